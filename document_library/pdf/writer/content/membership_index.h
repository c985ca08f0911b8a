#pragma once

#include <map>
#include <string>
#include <vector>

#include <orv_doc/layer.h>

namespace OrvPdf
{

/// The memberships of one content, each once, in order of their first use.
class MembershipIndex
{
public:
    /// The membership's place in the list. A single layer must not be null.
    std::size_t Add(const OrvDoc::Layer::Membership& membership);

    /// The list; the index is empty afterwards.
    std::vector<OrvDoc::Layer::Membership> TakeAll();

private:
    std::vector<OrvDoc::Layer::Membership> memberships;
    std::map<std::string, std::size_t> places;
};

/// A text that is the same for equal expressions of the same layers, and for no others. Only for look-ups in
/// one run: it holds addresses.
std::string GetLookupKey(const OrvDoc::LogicalLayerExpression& expression);

} // namespace OrvPdf
