#include <plexa/compound.h>

#include <algorithm>
#include <utility>

namespace Plexa
{

Compound::Compound(std::vector<std::shared_ptr<const Subpath>> allSubpaths, WindingRule rule)
    : subpaths(std::move(allSubpaths)), windingRule(rule)
{}

bool operator==(const Compound& left, const Compound& right)
{
    const auto equal = [](const std::shared_ptr<const Subpath>& one,
                          const std::shared_ptr<const Subpath>& other) {
        return one == other || *one == *other;
    };
    return left.GetWindingRule() == right.GetWindingRule() &&
           std::equal(left.GetSubpaths().begin(), left.GetSubpaths().end(), right.GetSubpaths().begin(),
                      right.GetSubpaths().end(), equal);
}

bool operator!=(const Compound& left, const Compound& right)
{
    return !(left == right);
}

std::shared_ptr<const Compound> WithWindingRule(std::shared_ptr<const Compound> compound, WindingRule rule)
{
    if (!compound || compound->GetWindingRule() == rule)
        return compound;
    return std::make_shared<const Compound>(compound->GetSubpaths(), rule);
}

} // namespace Plexa
