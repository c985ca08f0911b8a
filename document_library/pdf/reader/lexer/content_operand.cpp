#include "pdf/reader/lexer/content_operand.h"

namespace OrvPdf
{

Operand Operand::Null()
{
    return Operand();
}

Operand Operand::Boolean(bool value)
{
    Operand operand;
    operand.kind = OperandKind::Boolean;
    operand.flags = static_cast<std::uint8_t>(isExact | (value ? isTrue : 0));
    return operand;
}

Operand Operand::Name(std::string_view decoded)
{
    Operand operand;
    operand.text = decoded.data();
    operand.length = decoded.size();
    operand.kind = OperandKind::Name;
    return operand;
}

Operand Operand::String(std::string_view decoded, bool isHexString)
{
    Operand operand = Name(decoded);
    operand.kind = OperandKind::String;
    operand.flags = static_cast<std::uint8_t>(isExact | (isHexString ? isHex : 0));
    return operand;
}

Operand Operand::Container(OperandKind kind)
{
    Operand operand;
    operand.kind = kind;
    return operand;
}

void Operand::SetElements(std::size_t count, std::size_t extent)
{
    length = count;
    exponent = static_cast<std::int32_t>(extent);
}

const Operand* OperandRange::FindValue(std::string_view key) const
{
    return FindValue(key, key);
}

const Operand* OperandRange::FindValue(std::string_view key, std::string_view abbreviation) const
{
    Iterator at = begin();
    while (at != end()) {
        const Operand& candidate = *at;
        ++at;
        if (!candidate.IsName()) {
            continue;
        }
        if (at == end()) {
            return nullptr;
        }
        if (candidate.Text() == key || candidate.Text() == abbreviation) {
            return &*at;
        }
        ++at;
    }
    return nullptr;
}

} // namespace OrvPdf
