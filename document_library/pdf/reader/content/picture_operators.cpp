#include <array>
#include <utility>

#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>

#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"
#include "pdf/reader/file/stream_data.h"
#include "pdf/reader/pictures/picture_resource.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;
using OrvSys::PdfObject;

/// ISO 32000-1, Table 93.
constexpr std::array<std::pair<const char*, const char*>, 10> KeyAbbreviations = {
    {{"BPC", "BitsPerComponent"},
     {"CS", "ColorSpace"},
     {"D", "Decode"},
     {"DP", "DecodeParms"},
     {"F", "Filter"},
     {"H", "Height"},
     {"IM", "ImageMask"},
     {"I", "Interpolate"},
     {"W", "Width"},
     {"L", "Length"}}};

std::string ExpandKey(const std::string& key)
{
    for (const auto& [abbreviation, full] : KeyAbbreviations) {
        if (key == abbreviation) {
            return full;
        }
    }
    return key;
}

PdfObject ExpandFilters(const PdfObject& filters)
{
    if (filters.IsName()) {
        return PdfObject::Name(ExpandFilterName(filters.GetText()));
    }
    if (!filters.IsArray()) {
        return filters;
    }
    PdfObject::Items names;
    for (const PdfObject& name : filters.GetItems()) {
        names.push_back(ExpandFilters(name));
    }
    return PdfObject::Array(std::move(names));
}

bool IsStencil(const PdfObject& dictionary)
{
    const PdfObject stencil = dictionary.Find("ImageMask");
    return stencil.IsBoolean() && stencil.GetBoolean();
}

} // namespace

PdfObject Interpreter::GetInlineStream(const Arguments& arguments)
{
    PdfObject::Entries entries;
    const Operand* key = nullptr;
    for (const Operand& operand : arguments.Operation().operands) {
        if (key) {
            const std::string name = ExpandKey(std::string(key->Text()));
            const PdfObject value = ToObject(operand, arguments);
            entries.emplace(name, name == "Filter" ? ExpandFilters(value) : value);
            key = nullptr;
        } else if (operand.IsName()) {
            key = &operand;
        }
    }
    entries["Type"] = PdfObject::Name("XObject");
    entries["Subtype"] = PdfObject::Name("Image");
    return PdfObject::Stream(PdfObject::Dictionary(std::move(entries)),
                             std::string(arguments.Operation().inlineData));
}

ColorSpace::Pointer Interpreter::FindInlineSpace(const PdfObject& definition, const Arguments& arguments)
{
    if (!definition.IsName() && !definition.IsArray()) {
        return nullptr;
    }
    try {
        const ColorSpace::Pointer space = ColorSpace::FromDefinition(definition);
        return definition.IsName() ? FindColorSpace(space->GetDefinition().GetText(), arguments) : space;
    } catch (const std::invalid_argument&) {
        return definition.IsName() ? FindColorSpace(definition.GetText(), arguments) : nullptr;
    }
}

void Interpreter::PaintInlineImage(const Arguments& arguments)
{
    const PdfObject stream = GetInlineStream(arguments);
    const bool isStencil = IsStencil(stream);
    const ColorSpace::Pointer space =
        isStencil ? nullptr : FindInlineSpace(stream.Find("ColorSpace"), arguments);
    std::string problem;
    const std::shared_ptr<PictureResource> picture = resources.ReadInlinePicture(stream, space, problem);
    if (!picture) {
        problems.Unmodelled("BI", "the inline image is left out: " + problem, {}, arguments.Place());
        NotePicture(isStencil);
        return;
    }
    if (!problem.empty()) {
        problems.Odd("BI", "the inline image: " + problem, {}, arguments.Place());
    }
    PaintPicture(*picture);
}

void Interpreter::PaintPicture(PictureResource& picture)
{
    ScopeTree::Id scope = 0;
    EndRun();
    if (picture.GetLayer()) {
        GroupRecipe recipe;
        recipe.membership = picture.GetLayer();
        scope = tree.Open(std::move(recipe));
    }
    const ObjectAttributes attributes = TakeAttributes();
    NotePicture(picture.IsStencil());
    NotePainting();
    std::unique_ptr<OrvDoc::Blendable> object;
    if (picture.IsStencil()) {
        auto mask = std::make_unique<OrvDoc::ImageMask>(picture.GetData());
        if (!attributes.showsNothing) {
            mask->SetFillPaint(GetPaint(state.fill));
        }
        mask->SetHalftoneSet(state.halftones);
        object = std::move(mask);
    } else {
        auto image = std::make_unique<OrvDoc::Image>(picture.Paint(state.fill.overprint, state.intent));
        image->SetHalftoneSet(state.halftones);
        object = std::move(image);
    }
    if (!attributes.name.empty()) {
        object->SetName(attributes.name);
    }
    if (!Plexa::IsIdentity(state.matrix)) {
        object->SetTransformation(state.matrix);
    }
    foreignObjects.Add(object->GetID(), state.foreign);
    SetBlending(*object, attributes);
    ownClipsLeft = 0;
    tree.Place(std::move(object));
    if (picture.GetLayer()) {
        tree.Close(scope);
    }
}

void Interpreter::NotePicture(bool isStencil)
{
    MarkUsed(Inherited::painting |
             (isStencil ? Inherited::fill : Inherited::fillOverprint | Inherited::renderingIntent));
}

} // namespace OrvPdf
