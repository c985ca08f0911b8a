#pragma once

#include <harrow_support/generate_image.h>

#include <memory>

#include <orv_img/color_table.h>

namespace HarrowSupport::GenerateImage
{

/// The colour table of an indexed case: an entry for each sample value, of which the channels at even
/// positions run from 0 to 255 and those at odd ones stay at 0. `invert` turns all bytes round, DecodeInvert
/// the order of the entries.
std::unique_ptr<const OrvImg::ColorTable> MakeColorTable(const TestCase& testCase, bool invert);

} // namespace HarrowSupport::GenerateImage
