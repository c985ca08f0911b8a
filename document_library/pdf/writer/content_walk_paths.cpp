#include "pdf/writer/content_walk.h"

#include <orv_paint/flat_paint.h>
#include <orv_sys/pdf_object.h>
#include <plexa/compound.h>

#include "pdf/marked_content_tags.h"

namespace OrvPdf
{

using OrvDoc::ContentObject;
using OrvDoc::Path;

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
        const PaintSettings* const found =
            paint->GetType() == OrvPaint::Paint::Type::Flat
                ? colors.Find(static_cast<const OrvPaint::FlatPaint&>(*paint), problem)
                : nullptr;
        if (!found) {
            Refuse(path, problem);
            return nullptr;
        }
        known.paint = paint.get();
        known.settings = *found;
    }
    return &known.settings;
}

bool ContentWalk::BeginNamedObject(const Path& path, bool saysWindingRule, bool hasOutline)
{
    const bool isOddlyEvenOdd =
        !saysWindingRule && path.DefiningCompound()->GetWindingRule() == Plexa::WindingRule::EvenOdd;
    const std::string& name = path.GetName();
    if (!isOddlyEvenOdd && !hasOutline && name.empty()) {
        return false;
    }
    AppendName(out, Tags::object);
    std::string attributes;
    const auto add = [&attributes](const char* key, const std::string& value) {
        attributes.append(attributes.empty() ? "/" : " /").append(key).append(" ").append(value);
    };
    if (isOddlyEvenOdd) {
        add(Tags::evenOddKey, "true");
    }
    if (hasOutline) {
        add(Tags::outlineKey, "true");
    }
    if (!name.empty()) {
        add(Tags::nameKey, OrvSys::PdfObject::String(name).Serialize());
    }
    out.append(" <<" + attributes + ">> BDC\n");
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
        GetSettings(fill, path.GetFillPaint(), path, "fills that are not flat are not written yet");
    const PaintSettings* strokeSettings =
        GetSettings(stroke, path.GetStrokePaint(), path, "strokes that are not flat are not written yet");
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
    CheckBlending(path);
    if (path.GetHalftoneSet()) {
        Refuse(path, "halftones of objects are not written yet");
    }
    if (!LeaveMatrix(path.GetTransformation(), path)) {
        return false;
    }
    if (fillSettings) {
        states.SetFillColor(fillSettings->color);
    }
    if (strokeSettings) {
        states.SetStrokeColor(strokeSettings->color);
        states.SetStrokeProperties(path.GetStrokeProperties());
    }
    states.SetOverprint(fillSettings, strokeSettings);
    EnterMatrix(path.GetTransformation());
    const bool isNamed = BeginNamedObject(path, fillSettings != nullptr);
    out.append(pathOperators);
    const bool isEvenOdd = path.DefiningCompound()->GetWindingRule() == Plexa::WindingRule::EvenOdd;
    if (fillSettings) {
        out.append(strokeSettings ? "B" : "f");
        out.append(isEvenOdd ? "*\n" : "\n");
    } else {
        out.append(strokeSettings ? "S\n" : "n\n");
    }
    out.append(isNamed ? "EMC\n" : "");
    return false;
}

} // namespace OrvPdf
