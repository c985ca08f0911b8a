#include "pdf/writer/nested_writer.h"

#include <cmath>
#include <utility>

#include <boost/filesystem/operations.hpp>
#include <qpdf/QPDF.hh>

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_paint/form_paint.h>

#include "pdf/marked_content_tags.h"
#include "pdf/reader/form_properties.h"
#include "pdf/reader/nested_source.h"
#include "pdf/reader/qpdf_text.h"
#include "pdf/writer/box_object.h"
#include "pdf/writer/content_text.h"
#include "pdf/writer/content_writer.h"
#include "pdf/writer/object_maker.h"
#include "pdf/writer/resources_writer.h"

namespace OrvPdf
{

namespace
{

using OrvPaint::FormPaint;
using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

bool IsPresent(QPDFObjectHandle object)
{
    return object.isInitialized() && !object.isNull();
}

/// The box around what a group paints, with room for what rounding and flattening add. A group without extent
/// has a point.
Rectangle FindPaintedBox(const OrvDoc::Group& group)
{
    constexpr double room = 1000.0;
    const Rectangle box = group.GetBoundingBoxSelf(OrvDoc::BoxKind::Painted, group.GetTransformation());
    if (box.isInitial)
        return {0.0, 0.0, 0.0, 0.0};
    return {std::floor(box.origin.x.value - room), std::floor(box.origin.y.value - room),
            std::ceil(box.size.width.value + 3 * room), std::ceil(box.size.height.value + 3 * room)};
}

QPDFObjectHandle MakeMatrix(const Matrix& matrix)
{
    std::string text = "[";
    AppendMatrix(text, matrix);
    return QPDFObjectHandle::parse(text + "]");
}

} // namespace

const NestedSource* NestedWriter::FindSource(const FormReference& reference) const
{
    if (!reference.paint || &reference.paint->GetContent().GetDocument() != &document)
        return nullptr;
    const auto* const source = dynamic_cast<const NestedSource*>(reference.paint->GetContent().GetSource());
    return source && source->user.lock() == reference.paint ? source : nullptr;
}

QPDFObjectHandle NestedWriter::FindKept(const FormReference& reference, bool& isWritten)
{
    const NestedSource* const source = FindSource(reference);
    if (!source || !source->isSelfContained || source->isGroup != reference.isGroup ||
        source->isIsolated != reference.isIsolated || source->isKnockout != reference.isKnockout)
        return QPDFObjectHandle::newNull();
    const QPDFObjectHandle kept = maker.FindSourceObject(source->object);
    isWritten = reference.paint->GetContent().GetRevision() == source->baseRevision;
    return kept;
}

QPDFObjectHandle NestedWriter::GetForm(const FormReference& reference)
{
    const void* const identity =
        reference.paint ? static_cast<const void*>(reference.paint.get()) : reference.group;
    const Key key(identity, reference.isGroup, reference.isIsolated, reference.isKnockout);
    const auto known = forms.find(key);
    if (known != forms.end())
        return known->second;
    bool isWritten = false;
    QPDFObjectHandle form = FindKept(reference, isWritten);
    if (!form.isStream())
        form = MakeForm(reference);
    else if (folder != document.GetFilePath().parent_path())
        SetReference(form.getDict(), *reference.paint);
    forms.emplace(key, form);
    references.push_back(reference);
    if (!isWritten)
        tasks.push_back({reference, form});
    return form;
}

QPDFObjectHandle NestedWriter::MakeForm(const FormReference& reference)
{
    QPDFObjectHandle stream = QPDFObjectHandle::newStream(&maker.GetFile());
    QPDFObjectHandle dictionary = stream.getDict();
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
    dictionary.replaceKey("/Subtype", QPDFObjectHandle::newName("/Form"));
    SetBox(dictionary, reference);
    if (!reference.paint) {
        dictionary.replaceKey(Tags::groupFormKey, QPDFObjectHandle::newBool(true));
        return stream;
    }
    const FormPaint& paint = *reference.paint;
    if (!Plexa::IsIdentity(paint.GetFormTransformation()))
        dictionary.replaceKey("/Matrix", MakeMatrix(paint.GetFormTransformation()));
    SetProperties(dictionary, paint);
    const auto [first, isFirst] = firstForms.emplace(&paint, stream);
    if (!isFirst)
        dictionary.replaceKey(Tags::sameFormKey, first->second);
    return stream;
}

void NestedWriter::SetBox(QPDFObjectHandle dictionary, const FormReference& reference)
{
    const Rectangle box = reference.paint ? reference.paint->GetFormBBox() : FindPaintedBox(*reference.group);
    const QPDFObjectHandle object = box.isInitial ? QPDFObjectHandle::newNull() : MakeBoxObject(box);
    if (IsPresent(object)) {
        dictionary.replaceKey("/BBox", object);
    } else if (!box.isInitial) {
        problems.Add("boxes of forms with negative extents or numbers that are not finite are left out");
    }
}

void NestedWriter::SetProperties(QPDFObjectHandle dictionary, const FormPaint& paint)
{
    if (paint.GetScope()) {
        const char* const name = formScopeNames[static_cast<std::size_t>(*paint.GetScope())];
        dictionary.replaceKey("/GTS_Scope", ObjectMaker::MakeName(name));
    }
    if (paint.GetUniqueID())
        dictionary.replaceKey("/GTS_XID", QPDFObjectHandle::newString(*paint.GetUniqueID()));
    SetReference(dictionary, paint);
}

void NestedWriter::SetReference(QPDFObjectHandle dictionary, const FormPaint& paint)
{
    const auto& reference = paint.GetExternalReference();
    if (!reference)
        return;
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

void NestedWriter::SetGroup(QPDFObjectHandle dictionary, const FormReference& reference)
{
    const auto space =
        reference.paint ? reference.paint->GetContent().GetBlendColorSpace().GetColorSpace() : nullptr;
    const QPDFObjectHandle definition =
        space ? maker.MakeShared(space->GetDefinition()) : QPDFObjectHandle::newNull();
    dictionary.removeKey(Tags::blendSpaceKey);
    if (!reference.isGroup) {
        dictionary.removeKey("/Group");
        if (space)
            dictionary.replaceKey(Tags::blendSpaceKey, definition);
        return;
    }
    QPDFObjectHandle group = dictionary.getKey("/Group");
    group = group.isDictionary() ? group.shallowCopy() : QPDFObjectHandle::newDictionary();
    group.replaceKey("/S", QPDFObjectHandle::newName("/Transparency"));
    const auto setFlag = [&group](const char* key, bool value) {
        if (value)
            group.replaceKey(key, QPDFObjectHandle::newBool(true));
        else
            group.removeKey(key);
    };
    setFlag("/I", reference.isIsolated);
    setFlag("/K", reference.isKnockout);
    if (space)
        group.replaceKey("/CS", definition);
    else
        group.removeKey("/CS");
    dictionary.replaceKey("/Group", group);
}

void NestedWriter::Write(Task& task, ResourcesWriter& resources, std::vector<std::string>& texts,
                         const std::string& place)
{
    const FormReference& reference = task.reference;
    QPDFObjectHandle dictionary = task.stream.getDict();
    SetGroup(dictionary, reference);
    WrittenContent written =
        reference.paint ? WriteContent(reference.paint->GetContent(), separations, ContentStart::Nested)
                        : WriteGroup(*reference.group, separations);
    const NestedSource* const source = FindSource(reference);
    if (source && source->hasUnmodelled)
        written.problems.Add("the content was changed and is written without what was not read of it");
    dictionary.replaceKey("/Resources", resources.Make(written, dictionary.getKey("/Resources")));
    maker.ReplaceData(task.stream, written.bytes);
    const std::string form =
        place + (reference.paint ? ", form " : ", group ") +
        std::to_string(reference.paint ? reference.paint->GetContent().GetID() : reference.group->GetID());
    for (std::string& text : written.problems.GetTexts(form))
        texts.push_back(std::move(text));
}

std::vector<std::string> NestedWriter::WriteAll(ResourcesWriter& resources, const std::string& place)
{
    std::vector<std::string> texts;
    for (std::size_t next = 0; next < tasks.size(); ++next) {
        Task task = tasks[next];
        Write(task, resources, texts, place);
    }
    tasks.clear();
    for (std::string& text : std::exchange(problems, WritingProblems()).GetTexts(place))
        texts.push_back(std::move(text));
    return texts;
}

} // namespace OrvPdf
