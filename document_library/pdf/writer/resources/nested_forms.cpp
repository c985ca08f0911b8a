#include "pdf/writer/resources/nested_writer.h"

#include <cmath>

#include <qpdf/QPDF.hh>

#include <orv_color/color_space.h>
#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_paint/form_paint.h>

#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/reader/resources/form_properties.h"
#include "pdf/reader/resources/nested_source.h"
#include "pdf/writer/file/box_object.h"
#include "pdf/writer/file/matrix_object.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

namespace
{

using OrvPaint::FormPaint;
using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

/// The box around what a group paints, with room for what rounding and flattening add. A group without extent
/// has a point.
Rectangle FindPaintedBox(const OrvDoc::Group& group, const Matrix& base)
{
    constexpr double room = 1000.0;
    const Rectangle box = group.GetBoundingBoxSelf(OrvDoc::BoxKind::Painted,
                                                   Plexa::Concatenate(group.GetTransformation(), base));
    if (box.isInitial) {
        return {0.0, 0.0, 0.0, 0.0};
    }
    return {std::floor(box.origin.x.value - room), std::floor(box.origin.y.value - room),
            std::ceil(box.size.width.value + 3 * room), std::ceil(box.size.height.value + 3 * room)};
}

void SetFlag(QPDFObjectHandle dictionary, const char* key, bool value)
{
    if (value) {
        dictionary.replaceKey(key, QPDFObjectHandle::newBool(true));
    } else {
        dictionary.removeKey(key);
    }
}

} // namespace

QPDFObjectHandle NestedWriter::GetForm(const FormReference& reference)
{
    const void* const identity =
        reference.paint ? static_cast<const void*>(reference.paint.get()) : reference.group;
    const FormKey key(identity, reference.isGroup, reference.isIsolated, reference.isKnockout);
    const auto known = forms.find(key);
    if (known != forms.end()) {
        return known->second;
    }
    QPDFObjectHandle form = FindKeptForm(reference);
    if (!form.isStream()) {
        form = reference.paint ? MakeForm(reference) : MakeGroupForm(reference);
    }
    forms.emplace(key, form);
    references.push_back(reference);
    return form;
}

QPDFObjectHandle NestedWriter::FindKeptForm(const FormReference& reference)
{
    const NestedSource* const source = reference.paint ? kept.FindSource(*reference.paint) : nullptr;
    if (!source || !source->isSelfContained || source->isGroup != reference.isGroup ||
        source->isIsolated != reference.isIsolated || source->isKnockout != reference.isKnockout) {
        return QPDFObjectHandle::newNull();
    }
    QPDFObjectHandle form = maker.FindSourceObject(source->object);
    if (!form.isStream()) {
        return QPDFObjectHandle::newNull();
    }
    MoveReference(form, *reference.paint);
    firstForms.emplace(reference.paint.get(), form);
    const OrvDoc::Content& content = reference.paint->GetContent();
    if (content.GetRevision() == source->baseRevision && kept.MayKeep(content)) {
        Keep(content);
    } else {
        // Whoever else names the object, such as a page that is kept as it stands, sees the change as well.
        SetGroup(form.getDict(), reference, content.GetBlendColorSpace());
        tasks.push_back({reference.paint->GetSharedContent(), nullptr, Matrix(), form});
    }
    return form;
}

QPDFObjectHandle NestedWriter::MakeForm(const FormReference& reference)
{
    const FormPaint& paint = *reference.paint;
    QPDFObjectHandle stream = AddContent(paint.GetSharedContent());
    QPDFObjectHandle dictionary = stream.getDict();
    for (const char* const key : {"/BBox", "/Matrix", "/Ref", "/GTS_Scope", "/GTS_XID", "/OC",
                                  Tags::sameFormKey, Tags::groupFormKey}) {
        dictionary.removeKey(key);
    }
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
    dictionary.replaceKey("/Subtype", QPDFObjectHandle::newName("/Form"));
    SetBox(dictionary, paint.GetFormBBox());
    if (!Plexa::IsIdentity(paint.GetFormTransformation())) {
        dictionary.replaceKey("/Matrix", MakeMatrixObject(paint.GetFormTransformation()));
    }
    SetProperties(dictionary, paint);
    SetGroup(dictionary, reference, paint.GetContent().GetBlendColorSpace());
    GetFormOfFile(reference);
    const auto [first, isFirst] = firstForms.emplace(&paint, stream);
    if (!isFirst) {
        dictionary.replaceKey(Tags::sameFormKey, first->second);
    }
    return stream;
}

QPDFObjectHandle NestedWriter::MakeGroupForm(const FormReference& reference)
{
    Task task;
    task.group = reference.group;
    task.base = reference.base;
    task.stream = QPDFObjectHandle::newStream(&maker.GetFile());
    tasks.push_back(task);
    QPDFObjectHandle dictionary = task.stream.getDict();
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
    dictionary.replaceKey("/Subtype", QPDFObjectHandle::newName("/Form"));
    dictionary.replaceKey(Tags::groupFormKey, QPDFObjectHandle::newBool(true));
    if (!Plexa::IsIdentity(reference.base)) {
        dictionary.replaceKey(Tags::baseKey, MakeMatrixObject(reference.base));
        dictionary.replaceKey("/Matrix", MakeMatrixObject(GetRoundedInverse(reference.base)));
    }
    SetBox(dictionary, FindPaintedBox(*reference.group, reference.base));
    SetGroup(dictionary, reference, OrvDoc::BlendColorSpace());
    return task.stream;
}

void NestedWriter::GetFormOfFile(const FormReference& reference)
{
    const NestedSource* const source = kept.FindSource(*reference.paint);
    if (source && source->isSelfContained && maker.FindSourceObject(source->object).isStream()) {
        GetForm(
            {reference.paint, nullptr, Matrix(), source->isGroup, source->isIsolated, source->isKnockout});
    }
}

// Files are named as seen from where the one stands that names them.
void NestedWriter::MoveReference(QPDFObjectHandle form, const FormPaint& paint)
{
    if (form.isStream() && folder != document.GetFilePath().parent_path()) {
        SetReference(form.getDict(), paint);
    }
}

void NestedWriter::SetBox(QPDFObjectHandle dictionary, const Rectangle& box)
{
    if (box.isInitial) {
        return;
    }
    QPDFObjectHandle object = MakeBoxObject(box);
    if (object.isNull()) {
        problems.Add("boxes of forms with negative extents or numbers that are not finite are left out");
    } else {
        dictionary.replaceKey("/BBox", object);
    }
}

void NestedWriter::SetProperties(QPDFObjectHandle dictionary, const FormPaint& paint)
{
    if (paint.GetScope()) {
        const char* const name = formScopeNames[static_cast<std::size_t>(*paint.GetScope())];
        dictionary.replaceKey("/GTS_Scope", ObjectMaker::MakeName(name));
    }
    if (paint.GetUniqueID()) {
        dictionary.replaceKey("/GTS_XID", QPDFObjectHandle::newString(*paint.GetUniqueID()));
    }
    SetReference(dictionary, paint);
}

void NestedWriter::SetReference(QPDFObjectHandle dictionary, const FormPaint& paint)
{
    const auto& reference = paint.GetExternalReference();
    if (!reference) {
        return;
    }
    boost::filesystem::path file = reference->first;
    if (!folder.empty() && file.is_absolute()) {
        const boost::filesystem::path relative = file.lexically_relative(folder);
        file = relative.empty() ? file : relative;
    }
    QPDFObjectHandle entry = dictionary.getKey("/Ref");
    entry = entry.isDictionary() ? entry.shallowCopy() : QPDFObjectHandle::newDictionary();
    entry.replaceKey("/F", ObjectMaker::MakeText(file.generic_string()));
    entry.replaceKey("/Page", QPDFObjectHandle::newInteger(static_cast<long long>(reference->second)));
    dictionary.replaceKey("/Ref", entry);
}

void NestedWriter::SetGroup(QPDFObjectHandle dictionary, const FormReference& reference,
                            const OrvDoc::BlendColorSpace& space)
{
    const auto& definition = space.GetColorSpace();
    dictionary.removeKey(Tags::blendSpaceKey);
    if (!reference.isGroup) {
        dictionary.removeKey("/Group");
        if (definition) {
            dictionary.replaceKey(Tags::blendSpaceKey, maker.MakeShared(definition->GetDefinition()));
        }
        return;
    }
    QPDFObjectHandle group = dictionary.getKey("/Group");
    group = group.isDictionary() ? group.shallowCopy() : QPDFObjectHandle::newDictionary();
    group.replaceKey("/S", QPDFObjectHandle::newName("/Transparency"));
    SetFlag(group, "/I", reference.isIsolated);
    SetFlag(group, "/K", reference.isKnockout);
    if (definition) {
        group.replaceKey("/CS", maker.MakeShared(definition->GetDefinition()));
    } else {
        group.removeKey("/CS");
    }
    dictionary.replaceKey("/Group", group);
}

} // namespace OrvPdf
