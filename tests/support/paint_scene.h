#pragma once

#include "support/paint_makers.h"
#include "support/picture_plan.h"

#include <orv_blend/transparency.h>
#include <orv_doc/group.h>
#include <orv_doc/text.h>

#include <memory>

namespace HarrowSupport::Testing
{

/// A document with one of each kind of paint, picture and mask, before it is put together, so that a test may
/// change a single property of it. Two scenes that were changed alike are equal.
///
/// The objects that carry the paints stand on a stage, the innermost of five contents: a form in a form in a
/// pattern in a form on the page. Behind each of these contents' users stands one more object, which is not
/// reached if a comparison ends too early.
struct Scene
{
    Scene();

    /// Puts all together on the document's page. To be called once, at the end.
    OrvDoc::Document& Assemble();

    std::unique_ptr<OrvDoc::Document>
        document; ///< The first one, since all contents need it until their end.

    std::unique_ptr<OrvDoc::Path> path;   ///< Filled, stroked, with a halftone.
    std::unique_ptr<OrvDoc::Path> clip;   ///< Alone in its group; clips if it is asked to.
    std::unique_ptr<OrvDoc::Group> group; ///< Unnamed and blended, so never looked through.

    std::unique_ptr<OrvDoc::Text> text; ///< Two characters, six points apart.

    OrvBlend::Transparency transparency; ///< Of an object of its own, with the mask.
    bool isBlended = true;
    bool isMasked = true;
    OrvBlend::SoftMask::Factory mask;

    OrvPaint::AxialShadingPaint::Factory axial; ///< In two separations, with a background.
    OrvPaint::RadialShadingPaint::Factory radial;
    OrvPaint::AxialShadingPaint::Factory registration; ///< In the one that stands for all.

    OrvPaint::PatternPaint::Factory pattern; ///< Used by two objects.
    bool patternIsShared = true;
    OrvPaint::PatternPaint::Factory uncolored;
    OrvPaint::PatternPaint::Factory firstOfCell; ///< Two patterns of one cell.
    OrvPaint::PatternPaint::Factory secondOfCell;

    OrvPaint::FormPaint::Factory form; ///< With a global unique ID, used by two objects.
    bool formIsShared = true;
    OrvPaint::FormPaint::Factory firstOfId; ///< Two forms of one ID of a narrow scope.
    OrvPaint::FormPaint::Factory secondOfId;

    PicturePlan picture;     ///< In two separations, behind a soft mask.
    PicturePlan stencilled;  ///< The same behind a stencil mask.
    PicturePlan independent; ///< In a calibrated space, with a separation.
    PicturePlan indexed;     ///< In one separation of two that the colour table has.
    PicturePlan stencil;     ///< Of an image mask.

    ContentPointer stage;
    std::unique_ptr<OrvDoc::ContentObject> last;  ///< At the end of the stage.
    std::unique_ptr<OrvDoc::ContentObject> extra; ///< Behind that; none.

private:
    void PlaceShadings();
    void PlacePatterns();
    void PlaceForms();
    void PlacePictures();
};

} // namespace HarrowSupport::Testing
