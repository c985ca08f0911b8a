#include "pdf/reader/lexer/operand_conversion.h"

#include <cmath>
#include <stdexcept>

#include "pdf/number_text.h"

namespace OrvPdf
{

using OrvSys::PdfObject;

namespace
{

PdfObject ConvertNumber(const Operand& operand)
{
    // Larger integers have no room where integers are held.
    constexpr double largestInteger = 9007199254740992.0;
    const double value = operand.AsNumber();
    if (operand.IsInteger() && std::fabs(value) < largestInteger) {
        return PdfObject::Integer(static_cast<std::int64_t>(value));
    }
    // The text, as it stands, unless real files hold it and the standard doesn't know it, such as "--5" or
    // "1e5".
    double valueOfText = 0.0;
    if (ParseNumber(operand.Text(), 0, valueOfText) && valueOfText == value) {
        try {
            return PdfObject::Real(std::string(operand.Text()));
        } catch (const std::invalid_argument&) {
        }
    }
    return PdfObject::Real(value);
}

} // namespace

// The nesting of operands is bounded by the lexer, and by the maker of arrays and dictionaries.
PdfObject ConvertOperand(const Operand& operand)
{
    switch (operand.Kind()) {
    case OperandKind::Null:
        return PdfObject::Null();
    case OperandKind::Boolean:
        return PdfObject::Boolean(operand.AsBoolean());
    case OperandKind::Number:
        return ConvertNumber(operand);
    case OperandKind::Name:
        return PdfObject::Name(std::string(operand.Text()));
    case OperandKind::String:
        return PdfObject::String(std::string(operand.Text()));
    case OperandKind::Array: {
        PdfObject::Items items;
        for (const Operand& element : operand.Elements()) {
            items.push_back(ConvertOperand(element));
        }
        return PdfObject::Array(std::move(items));
    }
    case OperandKind::Dictionary:
        break;
    }
    PdfObject::Entries entries;
    const Operand* key = nullptr;
    for (const Operand& element : operand.Elements()) {
        if (key) {
            entries.emplace(std::string(key->Text()), ConvertOperand(element));
            key = nullptr;
        } else if (element.IsName()) {
            key = &element;
        }
    }
    return PdfObject::Dictionary(std::move(entries));
}

} // namespace OrvPdf
