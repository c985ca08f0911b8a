#include "pdf/writer/content/content_cleaning.h"

#include <algorithm>

#include <orv_sys/pdf_object.h>

#include "pdf/reader/lexer/content_lexer.h"
#include "pdf/writer/content/content_text.h"

namespace OrvPdf
{

namespace
{

/// Each range leaves a line feed: what stands around one must not grow together.
std::string CutOut(std::string_view bytes, std::vector<ByteRange> ranges)
{
    std::sort(ranges.begin(), ranges.end(),
              [](const ByteRange& left, const ByteRange& right) { return left.begin < right.begin; });
    std::string result;
    std::size_t at = 0;
    for (const ByteRange& range : ranges) {
        const std::size_t begin = std::min(range.begin, bytes.size());
        const std::size_t end = std::min(range.end, bytes.size());
        if (begin > at) {
            result.append(bytes.substr(at, begin - at));
        }
        if (end > at && end > begin) {
            result.push_back('\n');
        }
        at = std::max(at, end);
    }
    return result.append(bytes.substr(at));
}

void AppendOperand(std::string& out, const Operand& operand);

void AppendEntries(std::string& out, OperandRange elements)
{
    const Operand* key = nullptr;
    for (const Operand& element : elements) {
        if (key) {
            AppendName(out, key->Text());
            out.push_back(' ');
            AppendOperand(out, element);
            key = nullptr;
        } else if (element.IsName()) {
            key = &element;
        }
    }
}

// The nesting of operands is bounded by the lexer.
void AppendOperand(std::string& out, const Operand& operand)
{
    switch (operand.Kind()) {
    case OperandKind::Null:
        out.append("null");
        break;
    case OperandKind::Boolean:
        out.append(operand.AsBoolean() ? "true" : "false");
        break;
    case OperandKind::Number:
        out.append(OrvSys::PdfObject::Real(operand.AsNumber()).Serialize());
        break;
    case OperandKind::Name:
        AppendName(out, operand.Text());
        break;
    case OperandKind::String:
        out.append(OrvSys::PdfObject::String(std::string(operand.Text())).Serialize());
        break;
    case OperandKind::Array:
        out.push_back('[');
        for (const Operand& element : operand.Elements()) {
            AppendOperand(out, element);
            out.push_back(' ');
        }
        out.push_back(']');
        return;
    case OperandKind::Dictionary:
        out.append("<<");
        AppendEntries(out, operand.Elements());
        out.append(">>");
        break;
    }
    out.push_back(' ');
}

/// False if there was nothing to rewrite.
bool RewriteOperations(std::string_view content, std::string& result)
{
    ContentLexer lexer(content);
    ContentOperation operation;
    std::size_t damages = 0;
    while (lexer.Next(operation)) {
        const bool isDamaged = lexer.DamageCount() > damages;
        damages = lexer.DamageCount();
        if (isDamaged && operation.id != OperatorId::BeginInlineImage) {
            for (const Operand& operand : operation.operands) {
                AppendOperand(result, operand);
            }
            result.append(operation.operatorText);
        } else {
            result.append(content.substr(operation.begin, operation.end - operation.begin));
        }
        result.push_back('\n');
    }
    return lexer.DamageCount() > 0;
}

} // namespace

std::optional<std::string> CleanContent(std::string_view bytes, const std::vector<ByteRange>& damaged)
{
    std::string cut;
    if (!damaged.empty()) {
        cut = CutOut(bytes, damaged);
    }
    std::string rewritten;
    if (RewriteOperations(damaged.empty() ? bytes : cut, rewritten)) {
        return rewritten;
    }
    return damaged.empty() ? std::nullopt : std::optional<std::string>(std::move(cut));
}

} // namespace OrvPdf
