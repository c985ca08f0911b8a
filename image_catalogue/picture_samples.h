#pragma once

#include <harrow_support/generate_image.h>

#include <memory>

#include <orv_img/color_table.h>
#include <orv_img/picture_buffer.h>

namespace HarrowSupport::GenerateImage
{

/// The samples of a picture in the making.
struct PictureSamples
{
    std::unique_ptr<const OrvImg::PictureBuffer> buffer;
    /// Null unless the picture is indexed.
    std::shared_ptr<const OrvImg::ColorTable> table;
};

/// Whether the case is an image with a colour table.
bool IsIndexedImage(const TestCase& testCase);

/// 2 to the power of the depth: one column for each value that a sample can have.
std::size_t GetWidth(const TestCase& testCase);

/// Ramps: in column x the samples are x, 0, or the distance of one of these from the highest value.
///
/// - Indexed images have three equal rows of one channel, in which column x holds x. The decode kind acts on
/// their
///   table.
/// - Others have three rows for each channel. First come two for each channel in which it alone runs. Then
/// comes
///   one for each channel in which it runs along with the next one, the last along with the first.
///
/// What does not run is 0. IsFullBase() turns the samples round, and so does DecodeInvert.
PictureSamples MakeRampPictureBuffer(const TestCase& testCase);

/// Two rows for each channel, each of one byte all along, whatever the depth: from 127 in the first to 255 in
/// the last. In full-base pictures that are not indexed all of them are 0. DecodeInvert turns the bits of
/// pictures round that are not indexed.
PictureSamples MakeFlatPictureBuffer(const TestCase& testCase);

} // namespace HarrowSupport::GenerateImage
