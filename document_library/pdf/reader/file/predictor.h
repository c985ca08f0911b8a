#pragma once

#include <cstdint>

#include "pdf/reader/file/flate_data.h"
#include "pdf/reader/file/stream_data.h"

namespace OrvPdf
{

/// Whether the filter has a predictor that changes its data. The parameters of other filters say nothing,
/// whatever stands in them.
bool HasPredictor(const FilterStage& stage);

/// Whether the stage's predictor is one that is known (ISO 32000-1, 7.4.4.4) and its rows are reasonable.
bool IsReasonablePredictor(const FilterStage& stage);

/// How many bytes there are before the predictor is undone, where so many are wanted behind it.
std::uint64_t CountPredictedBytes(const FilterStage& stage, std::uint64_t wanted);

/// Undoes a reasonable predictor in place and gives at most `byteLimit` bytes. A last row that is cut gives
/// what there is of it. Of PNG's kinds of rows the row itself tells which it is; an unknown one counts as
/// none and is told.
void UndoPredictor(const FilterStage& stage, DecodingResult& result, std::uint64_t byteLimit);

} // namespace OrvPdf
