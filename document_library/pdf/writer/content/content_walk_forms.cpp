#include "pdf/writer/content/content_walk.h"

#include <tuple>

#include <orv_blend/transparency.h>
#include <orv_doc/content.h>
#include <orv_paint/form_paint.h>
#include <plexa/compound.h>

#include "pdf/form_outline.h"
#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/resources/nested_source.h"
#include "pdf/writer/content/path_operators.h"

namespace OrvPdf
{

using OrvDoc::Path;

namespace
{

/// The base that a form for a group is written with: one that can be taken back.
Matrix FindWrittenBase(const Matrix& base)
{
    return Plexa::Inverse(base) && IsFinite(GetRoundedInverse(base)) ? base : Matrix();
}

/// The parameters around a form of a file that its content depends on.
std::uint32_t GetUsedParameters(const OrvPaint::FormPaint& form)
{
    const auto* const source = dynamic_cast<const NestedSource*>(form.GetContent().GetSource());
    return source ? source->usedParameters : 0;
}

bool UsesOverprint(const OrvPaint::FormPaint& form)
{
    constexpr std::uint32_t overprint =
        Inherited::fillOverprint | Inherited::strokeOverprint | Inherited::overprintMode;
    return (GetUsedParameters(form) & overprint) != 0;
}

} // namespace

void ContentWalk::AppendDo(const FormReference& reference)
{
    const void* const identity =
        reference.paint ? static_cast<const void*>(reference.paint.get()) : reference.group;
    const auto key = std::make_tuple(identity, reference.isGroup, reference.isIsolated, reference.isKnockout);
    const auto [known, isNew] = formIndices.emplace(key, result.forms.size());
    if (isNew) {
        result.forms.push_back(reference);
    }
    out.append("/fm" + std::to_string(known->second) + " Do\n");
}

// A form that is kept as it stands in its file counts on what a page begins with. One that is written anew
// sets all that it needs.
void ContentWalk::SetFormState(const OrvPaint::FormPaint& form)
{
    const std::uint32_t used = GetUsedParameters(form);
    constexpr std::uint32_t line = Inherited::lineWidth | Inherited::lineCap | Inherited::lineJoin |
                                   Inherited::miterLimit | Inherited::dash;
    if ((used & Inherited::fillColor) != 0) {
        states.SetInitialFillColor();
    }
    if ((used & Inherited::strokeColor) != 0) {
        states.SetInitialStrokeColor();
    }
    if ((used & line) != 0) {
        states.SetInitialStrokeProperties();
    }
    if ((used & Inherited::text) != 0) {
        states.SetInitialText();
    }
}

bool ContentWalk::WriteForm(const Path& path)
{
    FormReference reference;
    reference.paint = std::static_pointer_cast<const OrvPaint::FormPaint>(path.GetFillPaint());
    if (const auto& transparency = path.GetTransparency()) {
        reference.isGroup = true;
        reference.isIsolated = transparency->isolated;
        reference.isKnockout = transparency->knockout;
    }
    if (!IsFinite(path.GetTransformation())) {
        return Refuse(path, "objects with infinite numbers in their matrix cannot be written");
    }
    if (path.GetStrokePaint()) {
        Refuse(path, "strokes of paths that are filled with a form are left out");
    }
    const bool isEvenOdd = path.DefiningCompound()->GetWindingRule() == Plexa::WindingRule::EvenOdd;
    std::string usual;
    pathOperators.clear();
    const PathLosses losses = AppendPath(pathOperators, *path.DefiningCompound());
    AppendPath(usual, *MakeFormOutline(*reference.paint));
    const bool hasOutline = isEvenOdd || pathOperators != usual;
    if (hasOutline && (losses.notFinite || losses.empty)) {
        return Refuse(path, "forms with an outline that is empty or infinite cannot be written");
    }
    if (path.GetHalftoneSet()) {
        Refuse(path, "halftones of paths that are filled with a form are left out");
    }
    EnterForeignParameters(path);
    const OrvBlend::Transparency blending = GetBlending(path);
    const bool usesOverprint = UsesOverprint(*reference.paint);
    const auto findParameters = [&] { return states.FindFormParameters(blending, usesOverprint); };
    if (!GoToMatrix(path.GetTransformation(), findParameters, true, path)) {
        return false;
    }
    SetFormState(*reference.paint);
    states.SetParameters(findParameters(), true);
    EnterMatrix(path.GetTransformation());
    std::vector<const char*> flags;
    if (hasOutline) {
        flags.push_back(Tags::outlineKey);
    }
    const bool isMarked = BeginObject(path, flags);
    if (hasOutline) {
        out.append("q\n" + pathOperators + (isEvenOdd ? "W* n\n" : "W n\n"));
    }
    AppendDo(reference);
    out.append(hasOutline ? "Q\n" : "");
    out.append(isMarked ? "EMC\n" : "");
    return false;
}

bool ContentWalk::WriteAsForm(const OrvDoc::Group& group)
{
    const auto& transparency = group.GetTransparency();
    if (!transparency || &group == groupOfForm) {
        return false;
    }
    // Inside of the form there is no way out of a matrix without inverse.
    PrepareGroup(group);
    EnterForeignParameters(group);
    const OrvBlend::Transparency blending = GetBlending(group);
    const auto findParameters = [&] { return states.FindFormParameters(blending, false); };
    if (GoToMatrix(Matrix(), findParameters, true, group)) {
        states.SetParameters(findParameters(), true);
        FormReference reference;
        reference.group = &group;
        reference.base = FindWrittenBase(states.GetBase());
        reference.isGroup = true;
        reference.isIsolated = transparency->isolated;
        reference.isKnockout = transparency->knockout;
        AppendDo(reference);
    }
    return true;
}

} // namespace OrvPdf
