#pragma once

#include <harrow_support/generate_image.h>

#include <memory>

#include <orv_img/picture_data.h>

namespace HarrowSupport::GenerateImage
{

/// The picture of a case, without the mask that goes with it: 300 dots per inch, no clipping path. `flat`
/// chooses rows of one byte in place of ramps. With SoftMaskViaTB the last channel is an alpha channel.
///
/// The decode kind is the decode range of each channel, the alpha channel among them; of an indexed picture
/// it is that of the table.
std::shared_ptr<const OrvImg::PictureData> MakePictureData(const OrvDoc::Document& document,
                                                           const TestCase& testCase, bool flat);

} // namespace HarrowSupport::GenerateImage
