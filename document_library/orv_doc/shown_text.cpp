#include <orv_doc/shown_text.h>

#include <algorithm>
#include <cmath>

namespace OrvDoc
{

void ShownText::Add(Kind kind, std::initializer_list<double> added)
{
    steps.push_back({static_cast<std::uint32_t>(codes.size()), kind});
    values.insert(values.end(), added.begin(), added.end());
}

void ShownText::DropTrailingSteps()
{
    while (!steps.empty() && steps.back().position == codes.size()) {
        values.resize(values.size() - CountValues(steps.back().kind));
        steps.pop_back();
    }
}

bool ShownText::IsFinite() const
{
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

bool operator==(const ShownText& left, const ShownText& right)
{
    const auto isSame = [](const ShownText::Step& one, const ShownText::Step& other) {
        return one.position == other.position && one.kind == other.kind;
    };
    return left.codes == right.codes && left.values == right.values &&
           std::equal(left.steps.begin(), left.steps.end(), right.steps.begin(), right.steps.end(), isSame);
}

} // namespace OrvDoc
