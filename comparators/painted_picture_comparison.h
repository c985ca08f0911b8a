#pragma once

#include "difference_scope.h"

#include <harrow_support/comparators.h>

#include <memory>

namespace OrvImg
{
class PaintedPicture;
}

namespace HarrowSupport::Comparators
{

/// Compares two pictures as images show them: the picture data, then the mask, then the rendering intent.
/// Adds what differs and returns whether they are equal. Each step is only reached if those before found the
/// pictures equal.
///
/// No picture is decoded twice, and none whose stored form tells enough. A mask kind that goes without its
/// data counts as equal to another one without, and to nothing else.
bool ComparePaintedPictures(const std::shared_ptr<const OrvImg::PaintedPicture>& left,
                            const std::shared_ptr<const OrvImg::PaintedPicture>& right,
                            DifferenceScope<OrvDoc::ContentObject>& scope, const Options& options);

} // namespace HarrowSupport::Comparators
