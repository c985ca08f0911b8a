#include "pdf/reader/resources/document_resources.h"

#include <stdexcept>
#include <utility>

#include "pdf/marked_content_tags.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/fonts/type3_font.h"
#include "pdf/reader/resources/shading_resource.h"

namespace OrvPdf
{

DocumentResources::DocumentResources(std::shared_ptr<const SourceFile> givenFile)
    : file(std::move(givenFile)), converter(*file), fonts(file), pictures(*this)
{}

OrvColor::ColorSpace::Pointer DocumentResources::GetColorSpace(QPDFObjectHandle definition,
                                                               std::string& problem)
{
    KnownSpace known;
    if (definition.isIndirect()) {
        const auto found = spacesByObject.find(definition.getObjGen());
        if (found == spacesByObject.end())
            known = spacesByObject.emplace(definition.getObjGen(), MakeColorSpace(definition)).first->second;
        else
            known = found->second;
    } else {
        known = MakeColorSpace(definition);
    }
    if (!known.space)
        problem = known.problem;
    return known.space;
}

DocumentResources::KnownSpace DocumentResources::MakeColorSpace(QPDFObjectHandle definition)
{
    KnownSpace made;
    const OrvSys::PdfObject converted = converter.Convert(definition, made.problem);
    if (!made.problem.empty())
        return made;
    try {
        made.space = OrvColor::ColorSpace::FromDefinition(converted);
    } catch (const std::invalid_argument& failure) {
        made.problem = failure.what();
    } catch (const std::length_error& failure) {
        made.problem = failure.what();
    }
    if (!made.space)
        return made;
    std::vector<OrvColor::ColorSpace::Pointer>& candidates =
        spacesByDigest[made.space->GetDefinition().GetDigest()];
    for (const OrvColor::ColorSpace::Pointer& candidate : candidates) {
        if (*candidate == *made.space) {
            made.space = candidate;
            return made;
        }
    }
    candidates.push_back(made.space);
    return made;
}

std::shared_ptr<PdfForm> DocumentResources::GetForm(QPDFObjectHandle stream, QPDFObjectHandle around)
{
    std::shared_ptr<PdfForm>& form = forms[stream.getObjGen()];
    if (!form) {
        QPDFObjectHandle other = GetEntry(stream, Tags::sameFormKey);
        const bool hasSame = other.isStream() && !GetEntry(other, Tags::sameFormKey).isStream();
        form = std::make_shared<PdfForm>(*this, stream, around, hasSame ? GetForm(other, around) : nullptr);
    }
    return form;
}

std::shared_ptr<PdfGlyph> DocumentResources::GetGlyph(const std::shared_ptr<const OrvFont::Font>& font,
                                                      const OrvFont::Character& character,
                                                      QPDFObjectHandle around)
{
    const auto* const type3 = dynamic_cast<const Type3Font*>(&font->GetSource());
    if (!type3) {
        return nullptr;
    }
    const auto [place, isNew] = glyphs.emplace(std::make_pair(font, character.code), nullptr);
    if (isNew) {
        QPDFObjectHandle procedure = type3->GetGlyphProcedure(character.code);
        if (procedure.isStream()) {
            place->second = std::make_shared<PdfGlyph>(*this, procedure, around, font, *type3, character);
        }
    }
    return place->second;
}

std::shared_ptr<PdfTiling> DocumentResources::GetTiling(QPDFObjectHandle stream, QPDFObjectHandle around)
{
    std::shared_ptr<PdfTiling>& tiling = tilings[stream.getObjGen()];
    if (!tiling) {
        QPDFObjectHandle other = GetEntry(stream, Tags::sameCellKey);
        const bool hasSame = other.isStream() && !GetEntry(other, Tags::sameCellKey).isStream();
        tiling =
            std::make_shared<PdfTiling>(*this, stream, around, hasSame ? GetTiling(other, around) : nullptr);
    }
    return tiling;
}

std::shared_ptr<PdfMask> DocumentResources::GetMask(QPDFObjectHandle dictionary, QPDFObjectHandle around)
{
    QPDFObjectHandle stream = GetEntry(dictionary, "/G");
    QPDFObjectHandle other = GetEntry(stream, Tags::sameDrawingKey);
    if (other.isStream() && !GetEntry(other, Tags::sameDrawingKey).isStream()) {
        stream = other;
    }
    std::shared_ptr<MaskDrawing>& drawing = maskDrawings[stream.getObjGen()];
    if (!drawing) {
        drawing = std::make_shared<MaskDrawing>(*this, stream, around);
    }
    if (!dictionary.isIndirect()) {
        return std::make_shared<PdfMask>(*this, dictionary, drawing);
    }
    std::shared_ptr<PdfMask>& mask = masks[dictionary.getObjGen()];
    if (!mask) {
        mask = std::make_shared<PdfMask>(*this, dictionary, drawing);
    }
    return mask;
}

std::shared_ptr<const ShadingResource>
DocumentResources::GetShading(QPDFObjectHandle definition, QPDFObjGen owner,
                              const OrvColor::ColorSpace::Pointer& space, std::string& problem)
{
    KnownShading known;
    if (owner.isIndirect()) {
        const auto [entry, isNew] = shadings.try_emplace({owner, space});
        if (isNew)
            entry->second = MakeShading(definition, space);
        known = entry->second;
    } else {
        known = MakeShading(definition, space);
    }
    if (!known.shading)
        problem = known.problem;
    return known.shading;
}

DocumentResources::KnownShading DocumentResources::MakeShading(QPDFObjectHandle definition,
                                                               const OrvColor::ColorSpace::Pointer& space)
{
    KnownShading made;
    const OrvSys::PdfObject converted = converter.Convert(definition, made.problem);
    if (!made.problem.empty())
        return made;
    try {
        made.shading = std::make_shared<const ShadingResource>(converted, space);
    } catch (const std::invalid_argument& failure) {
        made.problem = failure.what();
    } catch (const std::length_error& failure) {
        made.problem = failure.what();
    }
    return made;
}

void DocumentResources::AddLayer(QPDFObjGen object, std::shared_ptr<OrvDoc::LayerProperties> layer)
{
    layers.emplace(object, std::move(layer));
}

std::shared_ptr<OrvDoc::LayerProperties> DocumentResources::FindLayer(QPDFObjectHandle object) const
{
    const auto found = layers.find(object.getObjGen());
    return found == layers.end() ? nullptr : found->second;
}

} // namespace OrvPdf
