#pragma once

namespace OrvImg
{
class PictureBuffer;
}

namespace HarrowSupport::Comparators
{

/// Whether two buffers of the same depth, in as many channels, hold the same samples. The rows and columns
/// are those of the left one; the right one must have no fewer. The bits behind the last sample of a row are
/// not looked at. Costs what memcmp costs.
bool StoredRowsAgree(const OrvImg::PictureBuffer& left, const OrvImg::PictureBuffer& right);

} // namespace HarrowSupport::Comparators
