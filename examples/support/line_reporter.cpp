#include "line_reporter.h"

#include <ostream>

namespace Examples
{

namespace
{

bool IsControlCharacter(unsigned char character)
{
    return character < 0x20 || character == 0x7F;
}

void AppendEscaped(std::string& escaped, char character)
{
    constexpr char digits[] = "0123456789ABCDEF";
    const auto code = static_cast<unsigned char>(character);
    switch (character) {
    case '\\':
        escaped += "\\\\";
        break;
    case '\t':
        escaped += "\\t";
        break;
    case '\n':
        escaped += "\\n";
        break;
    case '\r':
        escaped += "\\r";
        break;
    default:
        if (IsControlCharacter(code)) {
            escaped += "\\x";
            escaped += digits[code / 16];
            escaped += digits[code % 16];
        } else {
            escaped += character;
        }
    }
}

} // namespace

LineReporter::LineReporter(std::ostream& streamToWrite, const OrvDoc::Document& left,
                           const OrvDoc::Document& right)
    : stream(streamToWrite), leftIndex(left), rightIndex(right)
{}

void LineReporter::Report(HarrowSupport::Comparators::ReportKind kind, const std::string& label,
                          const HarrowSupport::Comparators::LocationPath& left,
                          const HarrowSupport::Comparators::LocationPath& right, const std::string& text)
{
    if (kind != HarrowSupport::Comparators::ReportKind::ToleratedVariation)
        ++differenceCount;
    stream << static_cast<std::int32_t>(kind) << '\t' << label << '\t' << leftIndex.Describe(left) << '\t'
           << rightIndex.Describe(right) << '\t' << EscapeField(text) << '\n';
}

HarrowSupport::Comparators::Options StrictestOptions()
{
    HarrowSupport::Comparators::Options options;
    options.looseImageLinks = false;
    options.compareImageData = true;
    options.compareSeparationInfo = true;
    options.softMaskAsChannel = false;
    options.expandIndexedImages = false;
    options.comparePatternContentReuse = true;
    options.dumpLevel = 0;
    return options;
}

std::string EscapeField(const std::string& text)
{
    std::string escaped;
    escaped.reserve(text.size());
    for (const char character : text)
        AppendEscaped(escaped, character);
    return escaped;
}

} // namespace Examples
