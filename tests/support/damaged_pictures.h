#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/image.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>

#include "support/document_makers.h"
#include "support/pdf_text.h"

/// Files of pictures whose damage nobody can see before their samples are decoded.
namespace HarrowSupport::Testing
{

/// The text of an image XObject of two grey pixels whose data have but one. The byte makes it different from
/// others.
inline std::string DamagedPictureObject(std::size_t byte)
{
    constexpr char digits[] = "0123456789ABCDEF";
    return PdfStream(std::string{digits[byte / 16 % 16], digits[byte % 16], '>'},
                     "/Type /XObject /Subtype /Image /Width 2 /Height 1 /BitsPerComponent 8 "
                     "/ColorSpace /DeviceGray /Filter /ASCIIHexDecode");
}

/// A file of so many pages; the first shows so many damaged pictures, whose objects begin with the number
/// `FirstDamagedObject`.
inline std::string FileOfDamagedPictures(std::size_t pictures, std::size_t pages = 1)
{
    std::vector<std::string> contents(pages, "0 0 1 1 re f");
    std::vector<std::string> objects;
    std::string resources = "/XObject <<";
    for (std::size_t index = 0; index < pictures; ++index) {
        const std::string name = "/P" + std::to_string(index) + " ";
        contents.front() += "\n" + name + "Do";
        resources += name + std::to_string(3 + 2 * pages + index) + " 0 R";
        objects.push_back(DamagedPictureObject(index));
    }
    return PdfFileOfPages(contents, "", resources + ">>", objects);
}

inline std::size_t FirstDamagedObject(std::size_t pages = 1)
{
    return 3 + 2 * pages;
}

/// What is told when the picture in an object is decoded.
inline std::string DamageOf(std::size_t object)
{
    return "the picture in object " + std::to_string(object) + " 0: its data ends after 1 bytes of samples";
}

/// The sources of the pictures on a page, in order.
inline std::vector<std::shared_ptr<const OrvImg::PictureSource>> PicturesOf(const OrvDoc::Content& content)
{
    std::vector<std::shared_ptr<const OrvImg::PictureSource>> sources;
    for (const OrvDoc::ContentObject* object = content.GetChildren().first; object; object = object->next) {
        if (const auto* const image = dynamic_cast<const OrvDoc::Image*>(object))
            sources.push_back(image->GetPaintedPicture()->GetPictureData(false)->GetPictureSource());
    }
    return sources;
}

} // namespace HarrowSupport::Testing
