#include "pdf/writer/content/content_walk.h"

#include <orv_blend/transparency.h>
#include <orv_paint/flat_paint.h>
#include <orv_sys/pdf_object.h>
#include <plexa/compound.h>

#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/writer/content/content_text.h"

namespace OrvPdf
{

using OrvDoc::ContentObject;
using OrvDoc::Path;

const PaintSettings* ContentWalk::FindSettings(const std::shared_ptr<const OrvPaint::Paint>& paint,
                                               const char*& problem)
{
    using Type = OrvPaint::Paint::Type;
    switch (paint->GetType()) {
    case Type::Flat:
        return colors.Find(static_cast<const OrvPaint::FlatPaint&>(*paint), problem);
    case Type::AxialShading:
    case Type::RadialShading:
    case Type::OtherShading:
        return patterns.FindShading(paint, problem);
    case Type::TilingPattern:
        return patterns.FindTiling(paint, colors, problem);
    default:
        return nullptr;
    }
}

const PaintSettings* ContentWalk::GetSettings(KnownPaint& known,
                                              const std::shared_ptr<const OrvPaint::Paint>& paint,
                                              const ContentObject& object, const char* unwritten)
{
    if (!paint) {
        return nullptr;
    }
    if (known.paint != paint.get()) {
        known = KnownPaint();
        const char* problem = unwritten;
        const PaintSettings* const found = FindSettings(paint, problem);
        if (!found) {
            Refuse(object, problem);
            return nullptr;
        }
        known.paint = paint.get();
        known.settings = *found;
    }
    return &known.settings;
}

bool ContentWalk::BeginObject(const ContentObject& object, const std::vector<const char*>& flags,
                              bool isNeeded)
{
    const std::string& name = object.GetName();
    if (flags.empty() && name.empty() && !isNeeded) {
        return false;
    }
    AppendName(out, Tags::object);
    if (flags.empty() && name.empty()) {
        out.append(" BMC\n");
        return true;
    }
    out.append(" <<");
    const char* separator = "/";
    for (const char* const flag : flags) {
        out.append(separator).append(flag).append(" true");
        separator = " /";
    }
    if (!name.empty()) {
        out.append(separator).append(Tags::nameKey).push_back(' ');
        out.append(OrvSys::PdfObject::String(name).Serialize());
    }
    out.append(">> BDC\n");
    return true;
}

bool ContentWalk::SetPainting(const OrvDoc::Strokable& object, ObjectPainting& painting)
{
    painting.fill =
        GetSettings(fill, object.GetFillPaint(), object, "fills of unknown kinds cannot be written");
    painting.stroke =
        GetSettings(stroke, object.GetStrokePaint(), object, "strokes with a form cannot be written");
    if (painting.fill && painting.stroke && painting.fill->DependsOnMode() &&
        painting.stroke->DependsOnMode() &&
        painting.fill->nonzeroOverprint != painting.stroke->nonzeroOverprint) {
        // There is one overprint mode for both.
        const PaintSettings*& ordinary = painting.fill->nonzeroOverprint ? painting.stroke : painting.fill;
        painting.changed = colors.WithoutMode(*ordinary);
        ordinary = &painting.changed;
    }
    if (painting.stroke && !IsFinite(object.GetStrokeProperties())) {
        return Refuse(object, "objects with infinite stroke properties cannot be written");
    }
    if (!isInTextObject) {
        EnterForeignParameters(object);
    }
    painting.blending = GetBlending(object);
    painting.halftones = GetHalftones(object, object.GetHalftoneSet());
    const std::shared_ptr<OrvDoc::HalftoneSet>* const stated =
        painting.IsPainted() || painting.halftones ? &painting.halftones : nullptr;
    const auto findParameters = [&] {
        return states.FindParameters(painting.fill, painting.stroke, painting.blending, stated);
    };
    if (!isInTextObject && !GoToMatrix(object.GetTransformation(), findParameters, stated, object)) {
        return false;
    }
    if (painting.fill) {
        states.SetFillColor(painting.fill->color);
    }
    if (painting.stroke) {
        states.SetStrokeColor(painting.stroke->color);
        states.SetStrokeProperties(object.GetStrokeProperties());
    }
    states.SetParameters(findParameters(), stated);
    if (!isInTextObject) {
        EnterMatrix(object.GetTransformation());
    }
    return true;
}

bool ContentWalk::Visit(const Path& path)
{
    if (path.GetFillPaint() && path.GetFillPaint()->GetType() == OrvPaint::Paint::Type::Form) {
        return !WriteGlyph(path) && WriteForm(path);
    }
    if (!MakePath(path)) {
        return false;
    }
    ObjectPainting painting;
    if (!SetPainting(path, painting)) {
        return false;
    }
    const bool isEvenOdd = path.DefiningCompound()->GetWindingRule() == Plexa::WindingRule::EvenOdd;
    std::vector<const char*> flags = GetBlendingFlags(path, painting.blending);
    if (isEvenOdd && !painting.fill) {
        flags.push_back(Tags::evenOddKey);
    }
    if (painting.halftones && !painting.IsPainted()) {
        flags.push_back(Tags::halftonesKey);
    }
    const bool isMarked = BeginObject(path, flags);
    out.append(pathOperators);
    if (painting.fill) {
        out.append(painting.stroke ? "B" : "f");
        out.append(isEvenOdd ? "*\n" : "\n");
    } else {
        out.append(painting.stroke ? "S\n" : "n\n");
    }
    out.append(isMarked ? "EMC\n" : "");
    return false;
}

} // namespace OrvPdf
