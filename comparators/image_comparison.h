#pragma once

#include "difference_scope.h"

namespace OrvDoc
{
class ContentObject;
}

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares the pictures of a pair of images and remembers the outcome. Of a pair of pictures that was
/// compared before, a difference is told again by the label "Image" alone. An image without a picture is
/// equal to another one without.
void CompareImage(ComparisonContext& context, DifferenceScope<OrvDoc::ContentObject>& scope);

/// The same for the stencils of a pair of image masks, under the label "DecodedImageMaskData".
void CompareImageMask(ComparisonContext& context, DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
