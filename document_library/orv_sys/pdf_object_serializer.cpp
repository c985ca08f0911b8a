#include <orv_sys/pdf_object.h>

#include <cstring>

namespace OrvSys
{

namespace
{

constexpr char HexDigits[] = "0123456789ABCDEF";

void AppendHex(std::string& text, char byte)
{
    text += HexDigits[static_cast<unsigned char>(byte) >> 4];
    text += HexDigits[static_cast<unsigned char>(byte) & 15];
}

void AppendName(std::string& text, const std::string& name)
{
    text += '/';
    for (const char character : name) {
        if (character > ' ' && character <= '~' && !std::strchr("()<>[]{}/%#", character)) {
            text += character;
            continue;
        }
        text += '#';
        AppendHex(text, character);
    }
}

std::string LiteralString(const std::string& bytes)
{
    std::string text("(");
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (byte == '(' || byte == ')' || byte == '\\')
            text.append({'\\', byte});
        else if (code >= ' ' && code <= '~')
            text += byte;
        else
            text.append({'\\', HexDigits[code >> 6], HexDigits[code >> 3 & 7], HexDigits[code & 7]});
    }
    return text += ')';
}

void AppendString(std::string& text, const std::string& bytes)
{
    const std::string literal = LiteralString(bytes);
    if (literal.size() <= 2 * bytes.size() + 2) {
        text += literal;
        return;
    }
    text += '<';
    for (const char byte : bytes)
        AppendHex(text, byte);
    text += '>';
}

void Append(std::string& text, const PdfObject& object);

void AppendEntries(std::string& text, const PdfObject::Entries& entries)
{
    text += "<<";
    const char* separator = "";
    for (const auto& [key, value] : entries) {
        text += separator;
        AppendName(text, key);
        text += ' ';
        Append(text, value);
        separator = " ";
    }
    text += ">>";
}

void AppendStream(std::string& text, const PdfObject& stream)
{
    PdfObject::Entries entries = stream.GetEntries();
    entries["Length"] = PdfObject::Integer(static_cast<std::int64_t>(stream.GetRawBytes().size()));
    AppendEntries(text, entries);
    text += "\nstream\n" + stream.GetRawBytes() + "\nendstream";
}

void AppendItems(std::string& text, const PdfObject::Items& items)
{
    text += '[';
    const char* separator = "";
    for (const PdfObject& item : items) {
        text += separator;
        Append(text, item);
        separator = " ";
    }
    text += ']';
}

void Append(std::string& text, const PdfObject& object)
{
    switch (object.GetKind()) {
    case PdfObject::Kind::Null:
        text += "null";
        break;
    case PdfObject::Kind::Boolean:
        text += object.GetBoolean() ? "true" : "false";
        break;
    case PdfObject::Kind::Integer:
        text += std::to_string(object.GetInteger());
        break;
    case PdfObject::Kind::Real:
        text += object.GetText();
        break;
    case PdfObject::Kind::String:
        AppendString(text, object.GetText());
        break;
    case PdfObject::Kind::Name:
        AppendName(text, object.GetText());
        break;
    case PdfObject::Kind::Array:
        AppendItems(text, object.GetItems());
        break;
    case PdfObject::Kind::Dictionary:
        AppendEntries(text, object.GetEntries());
        break;
    case PdfObject::Kind::Stream:
        AppendStream(text, object);
        break;
    }
}

} // namespace

std::string PdfObject::Serialize() const
{
    std::string text;
    Append(text, *this);
    return text;
}

} // namespace OrvSys
