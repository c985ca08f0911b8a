#pragma once

#include "support/random_documents.h"

#include <orv_color/component.h>
#include <orv_doc/blend_color_space.h>
#include <orv_doc/content_object.h>
#include <orv_doc/layer_properties.h>
#include <orv_paint/flat_paint.h>

#include <plexa/rectangle.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

/// Random values and objects of all kinds that a document can hold now.
namespace HarrowSupport::Testing
{

/// From plain words to bytes that are no text.
std::string RandomName(std::mt19937& random);
OrvColor::Component RandomTint(std::mt19937& random);
/// Milli-points: whole ones, ones with many digits, tiny and huge ones.
double RandomCoordinate(std::mt19937& random);
Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> RandomBox(std::mt19937& random);
OrvDoc::BlendColorSpace RandomBlendColorSpace(std::mt19937& random);
/// Any colour: as a list of separations, or in a colour space of any family.
std::shared_ptr<const OrvPaint::FlatPaint> RandomPaint(std::mt19937& random);

/// An object without children. `layers` are those of its document.
std::unique_ptr<OrvDoc::ContentObject>
MakeObject(PlannedKind kind, std::mt19937& random,
           const std::vector<std::shared_ptr<OrvDoc::LayerProperties>>& layers);

} // namespace HarrowSupport::Testing
