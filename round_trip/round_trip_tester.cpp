#include "round_trip/round_trip_tester.h"

#include <cstdint>

#include <boost/optional.hpp>
#include <boost/variant.hpp>

#include <orv_doc/content.h>
#include <orv_doc/content_object.h>
#include <orv_doc/page.h>

namespace HarrowSupport
{

namespace
{

using Comparators::LocationPath;

std::string DescribeItem(const OrvDoc::Page& page)
{
    return "page (index: " + std::to_string(std::uint64_t{page.GetPageIndex()}) + ")";
}

std::string DescribeItem(const OrvDoc::Content& content)
{
    return "content CID" + std::to_string(std::uint64_t{content.GetID()});
}

std::string DescribeItem(const OrvDoc::ContentObject& object)
{
    return "object OID" + std::to_string(std::uint64_t{object.GetID()});
}

/// Puts the places of both sides in front of a text; makes no message where neither side has one.
class MessageMaker : public boost::static_visitor<boost::optional<std::string>>
{
public:
    explicit MessageMaker(const std::string& textOfReport) : text(textOfReport) {}

    template <typename Item>
    boost::optional<std::string> operator()(const Item* left, const Item* right) const
    {
        if (left && right)
            return "Left " + DescribeItem(*left) + " differs with Right " + DescribeItem(*right) + ": " +
                   text;
        if (left)
            return "Left " + DescribeItem(*left) + ": " + text;
        if (right)
            return "Right " + DescribeItem(*right) + ": " + text;
        return boost::none;
    }

    template <typename LeftItem, typename RightItem>
    boost::optional<std::string> operator()(const LeftItem*, const RightItem*) const
    {
        return text;
    }

private:
    const std::string& text;
};

boost::optional<std::string> MakeMessage(const LocationPath& left, const LocationPath& right,
                                         const std::string& text)
{
    if (left.empty() || right.empty())
        return text;
    return boost::apply_visitor(MessageMaker(text), left.back(), right.back());
}

} // namespace

RoundTripTester::~RoundTripTester() = default;

void RoundTripTester::Report(Comparators::ReportKind, const std::string& label, const LocationPath& left,
                             const LocationPath& right, const std::string& text)
{
    if (const auto message = MakeMessage(left, right, text))
        differences.push_back({label, *message});
}

} // namespace HarrowSupport
