#pragma once

#include "support/random_documents.h"

#include <orv_color/color_space.h>
#include <orv_color/component.h>
#include <orv_doc/blend_color_space.h>
#include <orv_doc/content_object.h>
#include <orv_doc/group.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/strokable.h>
#include <orv_paint/flat_paint.h>

#include <plexa/rectangle.h>
#include <plexa/transformation.h>

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
/// Mostly the identity; with or without inverse.
Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem> RandomMatrix(std::mt19937& random);
Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> RandomBox(std::mt19937& random);
OrvDoc::BlendColorSpace RandomBlendColorSpace(std::mt19937& random);
/// A colour space of any family but patterns and indexed colours.
OrvColor::ColorSpace::Pointer RandomSpace(std::mt19937& random);
/// Any colour or shading. Some are equal.
std::shared_ptr<const OrvPaint::Paint> RandomPaintOfAnyKind(std::mt19937& random);
/// Any colour: as a list of separations, or in a colour space of any family.
std::shared_ptr<const OrvPaint::FlatPaint> RandomPaint(std::mt19937& random);

/// Whether an object of this kind is a group that MakeGroup makes.
bool CanHaveChildren(PlannedKind kind);

/// Gives an object paints and stroke, blending and halftones; some without a paint.
void SetRandomPainting(OrvDoc::Strokable& object, std::mt19937& random);

/// A group without children as yet. `layers` are those that it may stand for.
std::unique_ptr<OrvDoc::Group> MakeGroup(PlannedKind kind, std::mt19937& random,
                                         const std::vector<std::shared_ptr<OrvDoc::LayerProperties>>& layers);
/// An object of a kind that can have no children.
std::unique_ptr<OrvDoc::ContentObject> MakeLeaf(PlannedKind kind, std::mt19937& random);

} // namespace HarrowSupport::Testing
