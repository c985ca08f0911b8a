#pragma once

#include <memory>
#include <string_view>

#include <hb.h>

namespace OrvPdf
{

template <auto destroy>
struct HarfBuzzRelease
{
    template <typename Object>
    void operator()(Object* object) const
    {
        destroy(object);
    }
};

using HarfBuzzBlob = std::unique_ptr<hb_blob_t, HarfBuzzRelease<hb_blob_destroy>>;
using HarfBuzzFace = std::unique_ptr<hb_face_t, HarfBuzzRelease<hb_face_destroy>>;
using HarfBuzzFont = std::unique_ptr<hb_font_t, HarfBuzzRelease<hb_font_destroy>>;
using HarfBuzzSet = std::unique_ptr<hb_set_t, HarfBuzzRelease<hb_set_destroy>>;

/// The bytes, not copied. Empty for more than HarfBuzz can count.
HarfBuzzBlob MakeHarfBuzzBlob(std::string_view bytes);

/// A face of a font program, which has to live as long. Never null; one without glyphs if the bytes are no
/// font program or have no such face.
HarfBuzzFace OpenHarfBuzzFace(std::string_view program, unsigned face);

/// The bytes of a table; empty if the face has none of that name.
HarfBuzzBlob GetTable(const HarfBuzzFace& face, hb_tag_t tag);
bool HasTable(const HarfBuzzFace& face, hb_tag_t tag);

/// The bytes of a blob, which live as long.
std::string_view BytesOf(const HarfBuzzBlob& blob);

} // namespace OrvPdf
