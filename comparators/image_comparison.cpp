#include "image_comparison.h"

#include "comparison_context.h"
#include "decoded_data_comparison.h"
#include "painted_picture_comparison.h"

#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_img/picture_data.h>

#include <map>
#include <memory>
#include <utility>

namespace HarrowSupport::Comparators
{

namespace
{

using ObjectScope = DifferenceScope<OrvDoc::ContentObject>;

/// Whether two pictures are equal; `compare` is asked at their first meeting.
template <typename Picture, typename Compare>
bool AreEqual(std::map<std::pair<const Picture*, const Picture*>, bool>& compared,
              const std::shared_ptr<const Picture>& left, const std::shared_ptr<const Picture>& right,
              Compare compare)
{
    const std::pair<const Picture*, const Picture*> key(left.get(), right.get());
    const auto known = compared.find(key);
    if (known != compared.end())
        return known->second;
    const bool areEqual = left != nullptr && right != nullptr ? compare() : left == right;
    compared.emplace(key, areEqual);
    return areEqual;
}

} // namespace

void CompareImage(ComparisonContext& context, ObjectScope& scope)
{
    const auto& left = static_cast<const OrvDoc::Image&>(*scope.left).GetPaintedPicture();
    const auto& right = static_cast<const OrvDoc::Image&>(*scope.right).GetPaintedPicture();
    if (!AreEqual(context.comparedImages, left, right,
                  [&] { return ComparePaintedPictures(left, right, scope, context.options); }))
        scope.AddDifference("Image");
}

void CompareImageMask(ComparisonContext& context, ObjectScope& scope)
{
    const auto& left = static_cast<const OrvDoc::ImageMask&>(*scope.left).GetPictureData();
    const auto& right = static_cast<const OrvDoc::ImageMask&>(*scope.right).GetPictureData();
    if (!AreEqual(context.comparedImageMasks, left, right, [&] {
            HeldBuffers buffers;
            return CompareMaskSources(left->GetPictureSource(), right->GetPictureSource(), buffers);
        }))
        scope.AddDifference("DecodedImageMaskData");
}

} // namespace HarrowSupport::Comparators
