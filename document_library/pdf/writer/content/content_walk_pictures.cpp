#include "pdf/writer/content/content_walk.h"

#include <orv_blend/transparency.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>
#include <orv_paint/flat_paint.h>

#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/writer/pictures/picture_problems.h"

namespace OrvPdf
{

namespace
{

/// A paint that leaves no ink, for a stencil that has none: its operator always paints.
std::shared_ptr<const OrvPaint::Paint> MakeBlankPaint()
{
    return OrvPaint::GetFlatPaint({}, nullptr);
}

bool HasOtherMaskChannels(const OrvImg::PaintedPicture& picture)
{
    return picture.GetMaskKind(false) == OrvImg::MaskKind::SoftMask &&
           picture.GetMaskData(false) != picture.GetPictureData(false) &&
           picture.GetMaskData(false)->GetPictureSource()->GetChannelInfos().size() > 1;
}

} // namespace

void ContentWalk::AppendPicture(const UsedPicture& picture)
{
    const void* const identity =
        picture.painted ? static_cast<const void*>(picture.painted.get()) : picture.stencil.get();
    const auto [known, isNew] = pictureIndices.emplace(identity, result.pictures.size());
    if (isNew) {
        result.pictures.push_back(picture);
    }
    out.append("/im" + std::to_string(known->second) + " Do\n");
}

void ContentWalk::WritePicture(const OrvDoc::Blendable& object, const ObjectPainting& painting,
                               bool setsColor, std::vector<const char*> flags, const UsedPicture& picture)
{
    if (!IsFinite(object.GetTransformation())) {
        Refuse(object, "objects with infinite numbers in their matrix cannot be written");
        return;
    }
    EnterForeignParameters(object);
    const auto findParameters = [&] {
        return states.FindParameters(painting.fill, nullptr, painting.blending, &painting.halftones);
    };
    if (!GoToMatrix(object.GetTransformation(), findParameters, true, object)) {
        return;
    }
    if (setsColor) {
        states.SetFillColor(painting.fill->color);
    }
    states.SetParameters(findParameters(), true);
    EnterMatrix(object.GetTransformation());
    for (const char* const flag : GetBlendingFlags(object, painting.blending)) {
        flags.push_back(flag);
    }
    const bool isMarked = BeginObject(object, flags);
    AppendPicture(picture);
    out.append(isMarked ? "EMC\n" : "");
}

bool ContentWalk::Visit(const OrvDoc::Image& image)
{
    const auto& picture = image.GetPaintedPicture();
    if (!picture) {
        return Refuse(image, "images without a picture cannot be written");
    }
    if (const char* const problem = FindPictureProblem(*picture)) {
        return Refuse(image, problem);
    }
    if (HasOtherMaskChannels(*picture)) {
        Refuse(image, "channels of soft masks that are no opacity are left out");
    }
    PaintSettings settings;
    settings.overprint = picture->GetChannelMapping(false).overprint;
    ObjectPainting painting;
    painting.fill = &settings;
    painting.blending = GetBlending(image);
    painting.halftones = GetHalftones(image, image.GetHalftoneSet());
    WritePicture(image, painting, false, {}, {picture, nullptr});
    return false;
}

bool ContentWalk::Visit(const OrvDoc::ImageMask& mask)
{
    if (!mask.GetPictureData()) {
        return Refuse(mask, "image masks without a picture cannot be written");
    }
    if (const char* const problem = FindStencilProblem(*mask.GetPictureData())) {
        return Refuse(mask, problem);
    }
    static const std::shared_ptr<const OrvPaint::Paint> blank = MakeBlankPaint();
    const bool isPainted = mask.GetFillPaint() != nullptr;
    ObjectPainting painting;
    painting.fill = GetSettings(fill, isPainted ? mask.GetFillPaint() : blank, mask,
                                "image masks that are filled with a form cannot be written");
    if (!painting.fill) {
        return false;
    }
    painting.blending = GetBlending(mask);
    painting.halftones = GetHalftones(mask, mask.GetHalftoneSet());
    std::vector<const char*> flags;
    if (!isPainted) {
        flags.push_back(Tags::emptyKey);
    }
    WritePicture(mask, painting, true, std::move(flags), {nullptr, mask.GetPictureData()});
    return false;
}

} // namespace OrvPdf
