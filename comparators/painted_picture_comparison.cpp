// Order of steps: the picture, weighted by its soft mask if that is asked for; the kind of mask; the mask's
// own picture; the rendering intent, where it means anything. A difference ends the comparison, so that a
// mask is never looked at behind another picture.

#include "painted_picture_comparison.h"

#include "color_channels.h"
#include "decoded_data_comparison.h"
#include "picture_data_comparison.h"

#include <orv_doc/content_object.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>

namespace HarrowSupport::Comparators
{

namespace
{

using OrvImg::MaskKind;
using OrvImg::PaintedPicture;
using ObjectScope = DifferenceScope<OrvDoc::ContentObject>;

// All getters are asked for what the picture itself has, not for what a print would show in its place.
constexpr bool forPrint = false;

bool HasSoftMaskOfItsSize(const PaintedPicture& picture)
{
    const auto& mask = picture.GetMaskData(forPrint);
    const OrvImg::PictureData& data = *picture.GetPictureData(forPrint);
    return picture.GetMaskKind(forPrint) == MaskKind::SoftMask && mask != nullptr &&
           mask->GetWidth() == data.GetWidth() && mask->GetHeight() == data.GetHeight();
}

SoftMaskWeighting::Side WeightingBy(const PaintedPicture& picture)
{
    const auto& mask = picture.GetMaskData(forPrint);
    const auto& mapping = picture.GetSoftMaskMapping(forPrint);
    return {mask->GetPictureSource(), {ResolveMaskChannel(*mask, mapping.index), mapping.decode}};
}

SoftMaskWeighting Weighting(const PaintedPicture& left, const PaintedPicture& right, const Options& options)
{
    SoftMaskWeighting weighting;
    if (options.softMaskAsChannel && HasSoftMaskOfItsSize(left) && HasSoftMaskOfItsSize(right)) {
        weighting.engaged = true;
        weighting.left = WeightingBy(left);
        weighting.right = WeightingBy(right);
    }
    return weighting;
}

/// A mapping of the mask's one channel. The name stands for nothing: both sides have it.
ChannelMapping MappingOfMask(const PaintedPicture& picture)
{
    ChannelMapping mapping;
    mapping.Add("Foo", picture.GetSoftMaskMapping(forPrint));
    return mapping;
}

bool MasksAgree(const PaintedPicture& left, const PaintedPicture& right, ObjectScope& scope,
                const Options& options, HeldBuffers& buffers)
{
    const MaskKind kind = left.GetMaskKind(forPrint);
    if (kind != MaskKind::SoftMask && kind != MaskKind::StencilMask)
        return true;
    const auto& leftMask = left.GetMaskData(forPrint);
    const auto& rightMask = right.GetMaskData(forPrint);
    const bool bothAreThere = leftMask != nullptr && rightMask != nullptr;
    if (kind == MaskKind::SoftMask) {
        const bool areEqual = bothAreThere ? ComparePictureData(*leftMask, *rightMask, MappingOfMask(left),
                                                                MappingOfMask(right), SoftMaskWeighting(),
                                                                scope, options, buffers)
                                           : leftMask == rightMask;
        if (!areEqual)
            scope.AddDifference("DecodedSoftMaskData");
        return areEqual;
    }
    const bool areEqual = bothAreThere ? CompareMaskSources(leftMask->GetPictureSource(),
                                                            rightMask->GetPictureSource(), buffers)
                                       : leftMask == rightMask;
    if (!areEqual)
        scope.AddDifference("DecodedImageMaskData");
    return areEqual;
}

bool IsDeviceIndependent(const PaintedPicture& picture)
{
    return OrvImg::IsDeviceIndependentColorSpace(
        picture.GetPictureData(forPrint)->GetPictureSource()->GetColorSpace());
}

} // namespace

bool ComparePaintedPictures(const std::shared_ptr<const PaintedPicture>& left,
                            const std::shared_ptr<const PaintedPicture>& right, ObjectScope& scope,
                            const Options& options)
{
    HeldBuffers buffers;
    if (!ComparePictureData(*left->GetPictureData(forPrint), *right->GetPictureData(forPrint),
                            left->GetChannelMapping(forPrint), right->GetChannelMapping(forPrint),
                            Weighting(*left, *right, options), scope, options, buffers))
        return false;
    if (left->GetMaskKind(forPrint) != right->GetMaskKind(forPrint)) {
        scope.AddValues("ImageMaskKind", left->GetMaskKind(forPrint), right->GetMaskKind(forPrint));
        return false;
    }
    if (!MasksAgree(*left, *right, scope, options, buffers))
        return false;
    if (IsDeviceIndependent(*left) && IsDeviceIndependent(*right) &&
        left->GetRenderingIntent() != right->GetRenderingIntent()) {
        scope.AddValues("ObjectRenderingIntent", left->GetRenderingIntent(), right->GetRenderingIntent());
        return false;
    }
    return true;
}

} // namespace HarrowSupport::Comparators
