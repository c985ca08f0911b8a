#pragma once

#include "pdf/reader/file/stream_data.h"

#include <string>
#include <string_view>

namespace HarrowSupport::Fuzzing
{

/// What a plain decoder makes of data. It knows nothing of speed, limits and the library's ways.
struct PlainData
{
    std::string bytes;
    /// Whether the data keeps to the rules. Where they leave something open, data that has it is not sound.
    bool isSound = true;
};

PlainData DecodeHexadecimal(std::string_view encoded);
PlainData DecodeBase85(std::string_view encoded);
PlainData DecodeRunLengths(std::string_view encoded);
PlainData DecodeLzw(std::string_view encoded, bool changesEarly);

/// Undoes the predictor of a stage whose parameters are in range.
PlainData UndoPredictor(std::string_view bytes, const OrvPdf::FilterStage& stage);

std::string EncodeHexadecimal(std::string_view plain);
std::string EncodeBase85(std::string_view plain);
std::string EncodeRunLengths(std::string_view plain);
/// Clears the table where it is full, and every so many codes.
std::string EncodeLzw(std::string_view plain, bool changesEarly, std::size_t clearInterval);
std::string EncodeFlate(std::string_view plain);

/// Rows that the stage's predictor turns into these bytes, the last row filled up with zeros. The kinds of
/// PNG rows follow one another.
std::string ApplyPredictor(std::string_view plain, const OrvPdf::FilterStage& stage);

/// How many bytes a row of the stage's predictor has without its kind.
std::size_t GetRowBytes(const OrvPdf::FilterStage& stage);

} // namespace HarrowSupport::Fuzzing
