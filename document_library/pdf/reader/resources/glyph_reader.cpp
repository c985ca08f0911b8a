#include "pdf/reader/resources/glyph_reader.h"

#include <orv_paint/form_paint.h>
#include <plexa/geometry.h>

#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/fonts/type3_font.h"
#include "pdf/reader/resources/document_resources.h"
#include "pdf/reader/resources/glyph_source.h"

namespace OrvPdf
{

namespace
{

using Box = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

} // namespace

PdfGlyph::PdfGlyph(DocumentResources& givenDocument, QPDFObjectHandle procedure, QPDFObjectHandle around,
                   std::shared_ptr<const OrvFont::Font> givenFont, const Type3Font& type3,
                   const OrvFont::Character& givenCharacter)
    : PdfForm(givenDocument, NestedStream(givenDocument, procedure, type3.GetResources(), around)),
      font(std::move(givenFont)),
      matrix(type3.GetMatrix()),
      character(givenCharacter)
{}

std::unique_ptr<NestedSource> PdfGlyph::MakeSource(const NestedStream::Reading& reading,
                                                   const GraphicsState& state) const
{
    constexpr std::uint32_t settable = Inherited::fill | Inherited::blending | Inherited::halftones |
                                       Inherited::transferFunctions | Inherited::characterSpacing |
                                       Inherited::wordSpacing | Inherited::textMode;
    const std::uint32_t used = reading.interpretation.usedParameters;
    auto source = std::make_unique<GlyphSource>();
    GetStream().Describe(reading, *source);
    // Its stream is no form.
    source->isSelfContained = false;
    source->font = font;
    source->character = character;
    source->blending = state.blending.value;
    source->halftones = state.halftones;
    source->usesTransferFunctions = (used & Inherited::transferFunctions) != 0;
    source->characterSpacing = state.text.characterSpacing;
    source->wordSpacing = state.text.wordSpacing;
    source->textMode = state.text.mode;
    const bool usesFill = (used & Inherited::fillColor) != 0;
    if (usesFill && state.fill.color) {
        source->fill = OrvPaint::FlatPaint::Factory(state.fill.color->space, state.fill.color->components,
                                                    state.fill.overprint, state.nonzeroOverprint)
                           .Get();
    }
    source->canBeShown = (!usesFill || source->fill) && !source->blending.softMask &&
                         FindPeculiar(state, used & ~settable) == 0 && !reading.dependsOnResourcesAround &&
                         !reading.isCut;
    return source;
}

// The box of the operator is what the glyph says that it paints. Coloured ones say nothing.
void PdfGlyph::SetPlace(OrvPaint::FormPaint::Factory& factory, const NestedStream::Reading& reading,
                        std::vector<std::string>&)
{
    Box box = reading.interpretation.glyphBox;
    if (!(box.size.width.value > 0.0 && box.size.height.value > 0.0)) {
        box = Box();
        const OrvDoc::Content& content = *reading.content;
        for (const OrvDoc::ContentObject* object = content.GetChildren().first; object;
             object = object->next) {
            box = Plexa::Union(box, object->GetBoundingBoxSelf(OrvDoc::BoxKind::Painted, Matrix()));
        }
    }
    factory.SetFormTransformation(matrix).SetFormBBox(box.isInitial ? Box(0.0, 0.0, 0.0, 0.0) : box);
}

} // namespace OrvPdf
