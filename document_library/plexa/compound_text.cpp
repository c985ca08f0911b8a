#include <plexa/compound.h>

#include <charconv>
#include <ostream>
#include <string>

namespace Plexa
{

namespace
{

void AppendNumber(std::string& text, double number)
{
    // The longest shortest form of a double, "-2.2250738585072014e-308", has 24 characters.
    char digits[32];
    const std::to_chars_result result = std::to_chars(digits, digits + sizeof digits, number);
    text.append(digits, result.ptr);
}

void AppendPoint(std::string& text, const Subpath::Point& point)
{
    text += ' ';
    AppendNumber(text, point.x.value);
    text += ' ';
    AppendNumber(text, point.y.value);
}

void AppendSubpath(std::string& text, const Subpath& subpath)
{
    if (subpath.IsEmpty()) {
        text += " E";
        return;
    }
    text += " M";
    AppendPoint(text, subpath.GetStart());
    for (const Segment& segment : subpath.GetDrawnSegments()) {
        text += segment.IsBezier() ? " C" : " L";
        if (segment.IsBezier()) {
            AppendPoint(text, segment.GetFirstControlPoint());
            AppendPoint(text, segment.GetSecondControlPoint());
        }
        AppendPoint(text, segment.GetEnd());
    }
    if (subpath.IsClosed())
        text += " Z";
}

std::string GetRuleText(WindingRule rule)
{
    switch (rule) {
    case WindingRule::EvenOdd:
        return "EvenOdd";
    case WindingRule::NonZero:
        return "NonZero";
    }
    return std::to_string(static_cast<int>(rule));
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const std::shared_ptr<const Compound>& compound)
{
    if (!compound)
        return stream << "(no shape)";
    std::string text = GetRuleText(compound->GetWindingRule()) + " {";
    for (const std::shared_ptr<const Subpath>& subpath : compound->GetSubpaths())
        AppendSubpath(text, *subpath);
    text += " }";
    return stream << text;
}

} // namespace Plexa
