#include "pdf/writer/resources/nested_writer.h"

#include <stdexcept>

#include <qpdf/QPDF.hh>

#include <orv_blend/soft_mask.h>
#include <orv_doc/content.h>
#include <orv_paint/flat_paint.h>
#include <orv_paint/function_definition.h>

#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/number_text.h"
#include "pdf/transfer_definition.h"
#include "pdf/writer/content/paint_color.h"
#include "pdf/writer/file/matrix_object.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

namespace
{

using OrvBlend::SoftMask;
using OrvColor::ColorSpace;
using FunctionPointer = std::shared_ptr<const OrvPaint::Function>;

bool IsBlendSpace(const ColorSpace::Pointer& space)
{
    try {
        return OrvDoc::BlendColorSpace(space).GetColorSpace() != nullptr;
    } catch (const std::invalid_argument&) {
        return false;
    }
}

/// The backdrop as a paint; null if the mask has none.
std::shared_ptr<const OrvPaint::FlatPaint> GetBackdrop(const SoftMask& mask)
{
    const auto& color = mask.GetBackdropColor();
    if (mask.GetNativeBackdrop() || (color.entries.empty() && !color.all && !color.overprint)) {
        return mask.GetNativeBackdrop();
    }
    return OrvPaint::GetFlatPaint(color, nullptr);
}

} // namespace

QPDFObjectHandle NestedWriter::GetMask(const std::shared_ptr<const SoftMask>& mask, const Matrix& matrix)
{
    std::vector<KnownMask>& known = masks[mask];
    for (const KnownMask& candidate : known) {
        if (AreIdentical(candidate.matrix, matrix)) {
            return candidate.dictionary;
        }
    }
    const QPDFObjectHandle dictionary = MakeMask(mask, matrix);
    masks[mask].push_back({matrix, dictionary});
    return dictionary;
}

QPDFObjectHandle NestedWriter::MakeMask(const std::shared_ptr<const SoftMask>& mask, const Matrix& matrix)
{
    QPDFObjectHandle dictionary = QPDFObjectHandle::newDictionary();
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/Mask"));
    dictionary.replaceKey("/S", QPDFObjectHandle::newName(mask->IsAlpha() ? "/Alpha" : "/Luminosity"));
    QPDFObjectHandle form = MakeMaskForm(*mask, matrix);
    dictionary.replaceKey("/G", form);
    SetBackdrop(dictionary, form, *mask);
    if (const auto* const function = boost::get<FunctionPointer>(&mask->GetTransferFunction());
        function && !IsTransferFunction(**function)) {
        problems.Add("transfer functions of soft masks that have more than one input or output are left out");
    } else if (function) {
        dictionary.replaceKey("/TR", maker.MakeShared(OrvPaint::GetFunctionDefinition(**function)));
    } else if (boost::get<bool>(mask->GetTransferFunction())) {
        dictionary.replaceKey("/TR", QPDFObjectHandle::newName("/Identity"));
    }
    if (!Plexa::IsIdentity(matrix)) {
        dictionary.replaceKey(Tags::maskMatrixKey, MakeMatrixObject(mask->GetTransformation()));
        dictionary.replaceKey(Tags::maskSettingKey, MakeMatrixObject(matrix));
    }
    return maker.GetFile().makeIndirectObject(dictionary);
}

QPDFObjectHandle NestedWriter::MakeMaskForm(const SoftMask& mask, const Matrix& matrix)
{
    QPDFObjectHandle form = AddContent(mask.GetSharedContent());
    QPDFObjectHandle dictionary = form.getDict();
    for (const char* const key : {"/BBox", "/Matrix", Tags::sameFormKey, Tags::groupFormKey}) {
        dictionary.removeKey(key);
    }
    // Another form of the drawing, or what stays in the file as it is, has the same content.
    QPDFObjectHandle other = FindKeptStream(mask.GetContent());
    const auto [first, isFirst] = drawings.emplace(&mask.GetContent(), form);
    if (!other.isStream() && !isFirst) {
        other = first->second;
    }
    dictionary.removeKey(Tags::sameDrawingKey);
    if (other.isStream()) {
        dictionary.replaceKey(Tags::sameDrawingKey, other);
    }
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
    dictionary.replaceKey("/Subtype", QPDFObjectHandle::newName("/Form"));
    SetBox(dictionary, mask.GetBoundingBox());
    const auto inverse = Plexa::Inverse(matrix);
    const Matrix transformation =
        inverse ? Plexa::Concatenate(mask.GetTransformation(), *inverse) : mask.GetTransformation();
    if (!IsFinite(transformation)) {
        problems.Add("soft masks with infinite numbers in their matrix are written without it");
    } else if (!Plexa::IsIdentity(transformation)) {
        dictionary.replaceKey("/Matrix", MakeMatrixObject(transformation));
    }
    FormReference group;
    group.isGroup = true;
    group.isKnockout = mask.IsKnockout();
    SetGroup(dictionary, group, mask.GetContent().GetBlendColorSpace());
    return form;
}

void NestedWriter::SetBackdrop(QPDFObjectHandle dictionary, QPDFObjectHandle form, const SoftMask& mask)
{
    const ColorSpace::Pointer blendSpace = mask.GetContent().GetBlendColorSpace().GetColorSpace();
    const std::shared_ptr<const OrvPaint::FlatPaint> backdrop = GetBackdrop(mask);
    ColorSpace::Pointer space = blendSpace;
    if (backdrop) {
        PaintColors colors(separations);
        const char* problem = "backdrops of soft masks cannot be written in the colour space of their group";
        const PaintSettings* const settings = colors.Find(*backdrop, problem);
        const ColorSpace::Pointer own = settings ? colors.GetSpace(settings->color) : nullptr;
        if (settings && settings->overprint) {
            problems.Add("backdrops of soft masks cannot overprint and are written without");
        }
        const bool isSaid = own && (blendSpace ? *own == *blendSpace : IsBlendSpace(own));
        if (!isSaid) {
            problems.Add(problem);
        } else {
            space = own;
            QPDFObjectHandle components = QPDFObjectHandle::newArray();
            for (const float component : settings->color.components) {
                std::string text;
                AppendFloat(text, component);
                components.appendItem(QPDFObjectHandle::newReal(text));
            }
            dictionary.replaceKey("/BC", components);
        }
    }
    form.getDict().removeKey(Tags::noBlendSpaceKey);
    if (!blendSpace && (!mask.IsAlpha() || dictionary.hasKey("/BC"))) {
        // Luminosity has to be that of colours in some space, and a backdrop has to be in one.
        const ColorSpace::Pointer stated = space ? space : ColorSpace::DeviceGray();
        form.getDict().getKey("/Group").replaceKey("/CS", maker.MakeShared(stated->GetDefinition()));
        form.getDict().replaceKey(Tags::noBlendSpaceKey, QPDFObjectHandle::newBool(true));
    }
}

} // namespace OrvPdf
