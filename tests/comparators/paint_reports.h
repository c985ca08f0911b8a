#pragma once

#include "support/document_makers.h"
#include "support/recording_reporter.h"

#include <vector>

namespace HarrowSupport::Testing
{

/// What the comparison tells of two paints, of fills and of strokes alike, both ways round.
inline void ExpectPaintReports(const PaintPointer& left, const PaintPointer& right,
                               const std::vector<ExpectedReport>& expected)
{
    ExpectReports<OrvDoc::ContentObject>(*Filled(left), *Filled(right), expected);
    ExpectReports<OrvDoc::ContentObject>(*Stroked(left), *Stroked(right), expected);
}

} // namespace HarrowSupport::Testing
