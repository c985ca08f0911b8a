#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include <orv_color/rendering_intent.h>
#include <orv_doc/layer.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>

#include "pdf/reader/pictures/file_picture.h"

namespace OrvDoc
{
class Document;
}

namespace OrvPdf
{

/// An image as operators name it: an image XObject, or an inline image. Any number of threads may use it.
class PictureResource
{
public:
    PictureResource(const OrvDoc::Document& givenDocument,
                    std::shared_ptr<const OrvImg::PictureData> givenData, bool givenIsStencil,
                    std::shared_ptr<const OrvDoc::Layer::Membership> givenLayer);

    /// Painted through with the colour in force.
    bool IsStencil() const { return isStencil; }
    const std::shared_ptr<const OrvImg::PictureData>& GetData() const { return data; }
    /// Null if it belongs to no layer.
    const std::shared_ptr<const OrvDoc::Layer::Membership>& GetLayer() const { return layer; }

    /// The picture as it is painted where the graphics state has that overprint flag and intent; the same one
    /// for the same state. For one that is no stencil.
    std::shared_ptr<const OrvImg::PaintedPicture> Paint(bool overprint, OrvColor::RenderingIntent intent);

private:
    const OrvDoc::Document& document;
    std::shared_ptr<const OrvImg::PictureData> data;
    const FilePicture& source;
    bool isStencil;
    std::shared_ptr<const OrvDoc::Layer::Membership> layer;
    std::mutex mutex;
    std::map<std::pair<bool, OrvColor::RenderingIntent>, std::shared_ptr<const OrvImg::PaintedPicture>>
        painted;
};

} // namespace OrvPdf
