#pragma once

#include <memory>
#include <random>

#include <boost/optional.hpp>

#include <orv_doc/fillable.h>
#include <orv_doc/image.h>
#include <orv_doc/transfer_function_set.h>

/// Random values of what a content or an object has of the graphics state beside its colours.
namespace HarrowSupport::Testing
{

/// Those of a content; nothing for most.
boost::optional<OrvDoc::TransferFunctionSet> RandomTransferFunctions(std::mt19937& random);
/// Gives some objects a transparency.
void SetRandomBlending(OrvDoc::Blendable& object, std::mt19937& random);
/// Gives some objects halftones.
void SetRandomHalftones(OrvDoc::Fillable& object, std::mt19937& random);
void SetRandomHalftones(OrvDoc::Image& image, std::mt19937& random);

} // namespace HarrowSupport::Testing
