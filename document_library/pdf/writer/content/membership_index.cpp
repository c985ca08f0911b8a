#include "pdf/writer/content/membership_index.h"

#include <cstdint>
#include <utility>

namespace OrvPdf
{

namespace
{

std::string GetAddress(const OrvDoc::LayerProperties* layer)
{
    return std::to_string(reinterpret_cast<std::uintptr_t>(layer));
}

} // namespace

std::string GetLookupKey(const OrvDoc::LogicalLayerExpression& expression)
{
    std::string key = std::to_string(static_cast<unsigned>(expression.GetOperation())) + '(';
    key += GetAddress(expression.GetLayer().get());
    for (const OrvDoc::LogicalLayerExpression& operand : expression.GetOperands()) {
        key += ' ' + GetLookupKey(operand);
    }
    return key + ')';
}

std::size_t MembershipIndex::Add(const OrvDoc::Layer::Membership& membership)
{
    const auto* const single = boost::get<std::shared_ptr<OrvDoc::LayerProperties>>(&membership);
    std::string key = single ? GetAddress(single->get())
                             : GetLookupKey(boost::get<OrvDoc::LogicalLayerExpression>(membership));
    const auto [found, isNew] = places.emplace(std::move(key), memberships.size());
    if (isNew) {
        memberships.push_back(membership);
    }
    return found->second;
}

std::vector<OrvDoc::Layer::Membership> MembershipIndex::TakeAll()
{
    places.clear();
    return std::exchange(memberships, {});
}

} // namespace OrvPdf
