#include "pdf/reader/pictures/picture_resource.h"

namespace OrvPdf
{

PictureResource::PictureResource(const OrvDoc::Document& givenDocument,
                                 std::shared_ptr<const OrvImg::PictureData> givenData, bool givenIsStencil,
                                 std::shared_ptr<const OrvDoc::Layer::Membership> givenLayer)
    : document(givenDocument),
      data(std::move(givenData)),
      source(dynamic_cast<const FilePicture&>(*data->GetPictureSource())),
      isStencil(givenIsStencil),
      layer(std::move(givenLayer))
{}

std::shared_ptr<const OrvImg::PaintedPicture> PictureResource::Paint(bool overprint,
                                                                     OrvColor::RenderingIntent intent)
{
    const OrvColor::RenderingIntent counting = source.GetOwnIntent().value_or(intent);
    const std::lock_guard<std::mutex> lock(mutex);
    std::shared_ptr<const OrvImg::PaintedPicture>& picture = painted[{overprint, counting}];
    if (picture) {
        return picture;
    }
    const FileMask& mask = source.GetMask();
    OrvImg::PaintedPicture::Factory factory(document, data, overprint);
    factory.SetRenderingIntent(counting);
    factory.SetMaskKind(mask.kind);
    factory.SetMaskData(mask.isOwn ? data : mask.data);
    factory.SetSoftMaskMapping(mask.isOwn ? data->GetDefaultSoftMaskMapping() : mask.softMaskMapping);
    factory.SetColorKey(mask.colorKey);
    picture = factory.Get();
    return picture;
}

} // namespace OrvPdf
