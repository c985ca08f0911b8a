// One pair of objects: the classes have to be the same, then come the properties of any object, then those of
// its kind in the order halftone, fill paint, stroke paint, and what the kind has of its own. Kinds are told
// by casts from the base class, so that classes derived outside of the document library are compared as their
// base.

#include "content_comparison.h"

#include "comparison_context.h"
#include "image_comparison.h"
#include "object_properties_comparison.h"
#include "object_type_name.h"
#include "paint_comparison.h"
#include "path_comparison.h"
#include "text_comparison.h"
#include "work_counters.h"

#include <orv_doc/content.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/path.h>
#include <orv_doc/text.h>

#include <memory>
#include <string>
#include <typeinfo>

namespace HarrowSupport::Comparators
{

namespace
{

using ObjectScope = DifferenceScope<OrvDoc::ContentObject>;
using PaintPointer = std::shared_ptr<const OrvPaint::Paint>;

void CompareTypeNames(ObjectScope& scope)
{
    const std::string leftName = ObjectTypeName(*scope.left);
    const std::string rightName = ObjectTypeName(*scope.right);
    if (leftName != rightName)
        scope.AddValues("ObjectType", leftName, rightName);
}

/// Only the left object is asked.
bool StandsInUncoloredPattern(const OrvDoc::ContentObject& left)
{
    const OrvDoc::Content* content = left.GetContent();
    return content != nullptr && content->GetType() == OrvDoc::Content::Type::UncoloredPatternContent;
}

/// In an uncoloured pattern two paints mean nothing, while a missing one still leaves the object unpainted.
void ComparePaintPair(ComparisonContext& context, const PaintPointer& left, const PaintPointer& right,
                      const char* presenceLabel, bool inUncoloredPattern, ObjectScope& scope)
{
    const bool leftPresent = left != nullptr;
    const bool rightPresent = right != nullptr;
    if (!inUncoloredPattern && leftPresent && rightPresent)
        ComparePaint(context, left, right, scope);
    else if (leftPresent != rightPresent)
        scope.AddValues(presenceLabel, leftPresent, rightPresent);
}

void CompareFillPaints(ComparisonContext& context, bool inUncoloredPattern, ObjectScope& scope)
{
    const PaintPointer none;
    const auto& left = static_cast<const OrvDoc::Fillable&>(*scope.left);
    const auto& right = static_cast<const OrvDoc::Fillable&>(*scope.right);
    ComparePaintPair(context, left.IsClippingObject() ? none : left.GetFillPaint(),
                     right.IsClippingObject() ? none : right.GetFillPaint(), "ObjectHasFill",
                     inUncoloredPattern, scope);
}

void CompareStrokePaints(ComparisonContext& context, bool inUncoloredPattern, ObjectScope& scope)
{
    const PaintPointer none;
    const auto& left = static_cast<const OrvDoc::Strokable&>(*scope.left);
    const auto& right = static_cast<const OrvDoc::Strokable&>(*scope.right);
    ComparePaintPair(context, left.IsClippingObject() ? none : left.GetStrokePaint(),
                     right.IsClippingObject() ? none : right.GetStrokePaint(), "ObjectHasStroke",
                     inUncoloredPattern, scope);
}

void CompareImageObjects(ComparisonContext& context, ObjectScope& scope)
{
    const auto& left = static_cast<const OrvDoc::Image&>(*scope.left);
    const auto& right = static_cast<const OrvDoc::Image&>(*scope.right);
    if (StandsInUncoloredPattern(left))
        scope.AddDifference("UncoloredPatternPaintHasImage");
    if (context.softMaskDepth == 0)
        CompareHalftoneSet(left, right, scope);
    if (context.options.compareImageData)
        CompareImage(context, scope);
}

/// All kinds that can be filled. Returns as CompareObjects does.
bool CompareFillableObjects(ComparisonContext& context, ObjectKind kind, ObjectScope& scope)
{
    if (context.softMaskDepth == 0) {
        CompareHalftoneSet(static_cast<const OrvDoc::Fillable&>(*scope.left),
                           static_cast<const OrvDoc::Fillable&>(*scope.right), scope);
    }
    const bool inUncoloredPattern = StandsInUncoloredPattern(*scope.left);
    CompareFillPaints(context, inUncoloredPattern, scope);
    if (kind == ObjectKind::ImageMask) {
        if (context.options.compareImageData)
            CompareImageMask(context, scope);
        return true;
    }
    if (kind != ObjectKind::OtherFillable)
        CompareStrokePaints(context, inUncoloredPattern, scope);
    if (kind == ObjectKind::Path) {
        ComparePath(context, scope);
        return true;
    }
    if (kind == ObjectKind::Text) {
        CompareText(context, scope);
        return true;
    }
    scope.AddDifference("UnknownObjectType");
    return false;
}

} // namespace

bool CompareObjects(ComparisonContext& context, ObjectScope& scope)
{
    ++workCounters.pairsCompared;
    if (typeid(*scope.left) != typeid(*scope.right)) {
        CompareTypeNames(scope);
        return false;
    }
    CompareObjectBlending(context, scope);

    const ObjectKind kind = context.objectClasses.Of(*scope.left).kind;
    switch (kind) {
    case ObjectKind::Group:
        return true; // The children are the business of CompareChildLists.
    case ObjectKind::Image:
        CompareImageObjects(context, scope);
        return true;
    case ObjectKind::Other:
        return false;
    default:
        return CompareFillableObjects(context, kind, scope);
    }
}

} // namespace HarrowSupport::Comparators
