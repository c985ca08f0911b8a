#include "pdf/writer/content/content_walk.h"

#include <orv_doc/content.h>
#include <orv_paint/form_paint.h>
#include <plexa/compound.h>

#include "orv_font/font_source.h"
#include "pdf/form_outline.h"
#include "pdf/matrix_numbers.h"
#include "pdf/reader/resources/glyph_source.h"
#include "pdf/writer/content/path_operators.h"
#include "pdf/writer/content/text_operators.h"

namespace OrvPdf
{

using OrvDoc::Path;

namespace
{

bool HasUsualOutline(const Path& path, const OrvPaint::FormPaint& form)
{
    std::string outline;
    std::string usual;
    AppendPath(outline, *path.DefiningCompound());
    AppendPath(usual, *MakeFormOutline(form));
    return outline == usual && path.DefiningCompound()->GetWindingRule() == Plexa::WindingRule::NonZero;
}

/// A content that paints with several sets of functions has none itself; the glyph's own is then told by its
/// form.
bool HasFunctionsOfContent(const Path& path, const OrvPaint::FormPaint& form)
{
    const OrvDoc::Content* const around = path.GetContent();
    return around && around->GetTransferFunctionSet() == form.GetContent().GetTransferFunctionSet();
}

} // namespace

const GlyphSource* FindShownGlyph(const Path& path)
{
    const auto* const form = dynamic_cast<const OrvPaint::FormPaint*>(path.GetFillPaint().get());
    const auto* const source =
        form ? dynamic_cast<const GlyphSource*>(form->GetContent().GetSource()) : nullptr;
    const bool isUnchanged = source && source->canBeShown && source->user.lock().get() == form &&
                             form->GetContent().GetRevision() == source->baseRevision;
    const bool isPlain = isUnchanged && !path.GetStrokePaint() && !path.GetTransparency() &&
                         !path.GetHalftoneSet() && IsFinite(path.GetTransformation()) &&
                         HasUsualOutline(path, *form) &&
                         (!source->usesTransferFunctions || HasFunctionsOfContent(path, *form));
    return isPlain ? source : nullptr;
}

bool ContentWalk::WriteGlyph(const Path& path)
{
    const GlyphSource* const source = FindShownGlyph(path);
    if (!source) {
        const auto* const form = dynamic_cast<const OrvPaint::FormPaint*>(path.GetFillPaint().get());
        if (form && form->GetContent().IsGlyph()) {
            Refuse(path,
                   "glyphs of Type 3 fonts that are other than in their font are written as forms, without "
                   "their text");
        }
        return false;
    }
    if (!isInTextObject) {
        EnterForeignParameters(path);
        if (!LeaveMatrix(Matrix(), path)) {
            return false;
        }
    }
    const PaintSettings* settings = nullptr;
    if (source->fill) {
        const char* problem = nullptr;
        settings = colors.Find(*source->fill, problem);
        if (!settings) {
            return false;
        }
        states.SetFillColor(settings->color);
    }
    states.SetParameters(states.FindParameters(settings, nullptr, source->blending, &source->halftones),
                         true);
    const bool isAlone = !isInTextObject && !containers.back().isTextGroup;
    const bool isMarked = BeginObject(path, {}, isAlone);
    out.append(isInTextObject ? "" : "BT\n");
    OrvDoc::ShownText shown;
    shown.AppendCodes(CodeText(source->character));
    TextParameters parameters;
    parameters.font = UseFont(source->font, shown);
    parameters.size = 1.0;
    parameters.characterSpacing = source->characterSpacing;
    parameters.wordSpacing = source->wordSpacing;
    parameters.mode = source->textMode;
    states.SetText(parameters);
    AppendShownText(out, shown, path.GetTransformation(), parameters, {});
    states.NoteText(parameters);
    out.append(isInTextObject ? "" : "ET\n");
    out.append(isMarked ? "EMC\n" : "");
    return true;
}

} // namespace OrvPdf
