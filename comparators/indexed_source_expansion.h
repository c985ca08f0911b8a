#pragma once

#include "held_buffers.h"

#include <memory>

namespace HarrowSupport::Comparators
{

/// An indexed picture as one of 8 bits in as many channels as its colour table has, without a table. Throws
/// what making a buffer of that size throws.
std::shared_ptr<const OrvImg::PictureSource>
ExpandIndexedSource(const std::shared_ptr<const OrvImg::PictureSource>& source, HeldBuffers& buffers);

} // namespace HarrowSupport::Comparators
