#include "pdf/writer/content_walk.h"

#include <orv_blend/transparency.h>
#include <orv_paint/flat_paint.h>
#include <orv_sys/pdf_object.h>
#include <plexa/compound.h>

#include "pdf/marked_content_tags.h"

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
                                              const Path& path, const char* unwritten)
{
    if (!paint) {
        return nullptr;
    }
    if (known.paint != paint.get()) {
        known = KnownPaint();
        const char* problem = unwritten;
        const PaintSettings* const found = FindSettings(paint, problem);
        if (!found) {
            Refuse(path, problem);
            return nullptr;
        }
        known.paint = paint.get();
        known.settings = *found;
    }
    return &known.settings;
}

bool ContentWalk::BeginObject(const ContentObject& object, const std::vector<const char*>& flags)
{
    const std::string& name = object.GetName();
    if (flags.empty() && name.empty()) {
        return false;
    }
    AppendName(out, Tags::object);
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

bool ContentWalk::Visit(const Path& path)
{
    if (path.GetFillPaint() && path.GetFillPaint()->GetType() == OrvPaint::Paint::Type::Form) {
        return WriteForm(path);
    }
    if (!MakePath(path)) {
        return false;
    }
    const PaintSettings* fillSettings =
        GetSettings(fill, path.GetFillPaint(), path, "fills of unknown kinds cannot be written");
    const PaintSettings* strokeSettings =
        GetSettings(stroke, path.GetStrokePaint(), path, "strokes with a form cannot be written");
    PaintSettings changed;
    if (fillSettings && strokeSettings && fillSettings->DependsOnMode() && strokeSettings->DependsOnMode() &&
        fillSettings->nonzeroOverprint != strokeSettings->nonzeroOverprint) {
        // There is one overprint mode for both.
        const PaintSettings*& ordinary = fillSettings->nonzeroOverprint ? strokeSettings : fillSettings;
        changed = colors.WithoutMode(*ordinary);
        ordinary = &changed;
    }
    if (strokeSettings && !IsFinite(path.GetStrokeProperties())) {
        return Refuse(path, "paths with infinite stroke properties cannot be written");
    }
    const OrvBlend::Transparency blending = GetBlending(path);
    const bool isPainted = fillSettings || strokeSettings;
    const std::shared_ptr<OrvDoc::HalftoneSet> halftones = GetHalftones(path);
    const std::shared_ptr<OrvDoc::HalftoneSet>* const stated = isPainted || halftones ? &halftones : nullptr;
    const auto findParameters = [&] {
        return states.FindParameters(fillSettings, strokeSettings, blending, stated);
    };
    if (!GoToMatrix(path.GetTransformation(), findParameters, stated, path)) {
        return false;
    }
    if (fillSettings) {
        states.SetFillColor(fillSettings->color);
    }
    if (strokeSettings) {
        states.SetStrokeColor(strokeSettings->color);
        states.SetStrokeProperties(path.GetStrokeProperties());
    }
    states.SetParameters(findParameters(), stated);
    EnterMatrix(path.GetTransformation());
    const bool isEvenOdd = path.DefiningCompound()->GetWindingRule() == Plexa::WindingRule::EvenOdd;
    std::vector<const char*> flags = GetBlendingFlags(path, blending);
    if (isEvenOdd && !fillSettings) {
        flags.push_back(Tags::evenOddKey);
    }
    if (halftones && !isPainted) {
        flags.push_back(Tags::halftonesKey);
    }
    const bool isMarked = BeginObject(path, flags);
    out.append(pathOperators);
    if (fillSettings) {
        out.append(strokeSettings ? "B" : "f");
        out.append(isEvenOdd ? "*\n" : "\n");
    } else {
        out.append(strokeSettings ? "S\n" : "n\n");
    }
    out.append(isMarked ? "EMC\n" : "");
    return false;
}

} // namespace OrvPdf
