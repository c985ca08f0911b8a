#include "pdf/writer/fonts/harfbuzz_face.h"

#include <limits>

namespace OrvPdf
{

HarfBuzzBlob MakeHarfBuzzBlob(std::string_view bytes)
{
    if (bytes.size() > std::numeric_limits<unsigned>::max())
        bytes = {};
    return HarfBuzzBlob(hb_blob_create(bytes.data(), static_cast<unsigned>(bytes.size()),
                                       HB_MEMORY_MODE_READONLY, nullptr, nullptr));
}

HarfBuzzFace OpenHarfBuzzFace(std::string_view program, unsigned face)
{
    return HarfBuzzFace(hb_face_create(MakeHarfBuzzBlob(program).get(), face));
}

HarfBuzzBlob GetTable(const HarfBuzzFace& face, hb_tag_t tag)
{
    return HarfBuzzBlob(hb_face_reference_table(face.get(), tag));
}

bool HasTable(const HarfBuzzFace& face, hb_tag_t tag)
{
    return hb_blob_get_length(GetTable(face, tag).get()) > 0;
}

std::string_view BytesOf(const HarfBuzzBlob& blob)
{
    unsigned length = 0;
    const char* bytes = hb_blob_get_data(blob.get(), &length);
    return {bytes, length};
}

} // namespace OrvPdf
