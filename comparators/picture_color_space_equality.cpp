#include "picture_color_space_equality.h"

#include <boost/variant/apply_visitor.hpp>
#include <boost/variant/static_visitor.hpp>

namespace HarrowSupport::Comparators
{

namespace
{

using Profile = std::shared_ptr<const OrvColor::ICCProfile>;

struct AreEqual : boost::static_visitor<bool>
{
    template <typename Left, typename Right>
    bool operator()(const Left&, const Right&) const
    {
        return false;
    }

    /// The families without numbers, and Lab.
    template <typename Space>
    bool operator()(const Space&, const Space&) const
    {
        return true;
    }

    bool operator()(const OrvImg::CalGray& left, const OrvImg::CalGray& right) const
    {
        return left.whitePoint == right.whitePoint && left.blackPoint == right.blackPoint &&
               left.gamma == right.gamma;
    }

    bool operator()(const OrvImg::CalRGB& left, const OrvImg::CalRGB& right) const
    {
        return left.whitePoint == right.whitePoint && left.blackPoint == right.blackPoint &&
               left.gamma == right.gamma && left.matrix == right.matrix;
    }

    bool operator()(const Profile& left, const Profile& right) const
    {
        return left == right || (left != nullptr && right != nullptr && *left == *right);
    }
};

} // namespace

bool CompareColorSpaces(const OrvImg::ColorSpace& left, const OrvImg::ColorSpace& right)
{
    return boost::apply_visitor(AreEqual(), left, right);
}

} // namespace HarrowSupport::Comparators
