#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include <orv_img/picture_buffer.h>
#include <orv_img/picture_stream.h>

#include "pdf/reader/file/stream_data.h"

namespace OrvPdf
{

class SourceFile;

/// The samples that a picture has by its dictionary.
struct PictureShape
{
    std::size_t width;
    std::size_t height;
    std::size_t channels;
    std::size_t bits;
};

/// How the bytes are stored under the filters that give bytes; by the last filter.
OrvImg::PictureStream::Type GetStreamType(const std::vector<FilterStage>& stages);

/// Why no samples can be had from the data: there is no decoder for its filter, or it is JPEG data without a
/// picture or of a depth that no decoder takes. Empty if some may be had. Decodes none.
std::string FindUndecodable(const SourceFile& file, const EncodedStream& encoded);

/// What is left when the filters that give bytes are undone; the picture's own filter stays.
DecodedStream UndoByteFilters(const SourceFile& file, const EncodedStream& encoded,
                              std::uint64_t expectedBytes = 0);

/// Decodes into a buffer of that shape. Rows and channels that the data does not have are zero, those that it
/// has in excess are left out, and either is told in `problem`; but JPEG 2000 data may have opacities that
/// nobody asks for. Takes the bytes of the data themselves where they are the rows. Throws `std::bad_alloc`
/// alone.
std::shared_ptr<const OrvImg::PictureBuffer> DecodePicture(const SourceFile& file,
                                                           const EncodedStream& encoded,
                                                           const PictureShape& shape, std::string& problem);

} // namespace OrvPdf
