#include "pdf/writer/resources/nested_writer.h"

#include <set>
#include <string>

#include <qpdf/QPDF.hh>

#include <orv_blend/soft_mask.h>
#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>

#include "pdf/reader/resources/nested_source.h"
#include "pdf/writer/content/content_writer.h"
#include "pdf/writer/file/object_maker.h"
#include "pdf/writer/resources/resources_writer.h"

namespace OrvPdf
{

namespace
{

const char* GetKind(OrvDoc::Content::Type type)
{
    switch (type) {
    case OrvDoc::Content::Type::SoftMaskContent:
        return ", soft mask ";
    case OrvDoc::Content::Type::ColoredPatternContent:
    case OrvDoc::Content::Type::UncoloredPatternContent:
        return ", pattern ";
    default:
        return ", form ";
    }
}

/// Takes over what a stream of the file says beside its data: such as metadata, which have no place in the
/// model. What follows from the new data, or from the model, is left to whoever writes that.
void TakeEntriesOver(QPDFObjectHandle original, QPDFObjectHandle stream)
{
    static const std::set<std::string> ownEntries{"/Length", "/Filter",    "/DecodeParms",
                                                  "/F",      "/FFilter",   "/FDecodeParms",
                                                  "/DL",     "/Resources", "/Group"};
    QPDFObjectHandle entries = original.getDict();
    for (const std::string& key : entries.getKeys()) {
        if (ownEntries.count(key) == 0 && key.rfind("/Orv", 0) != 0) {
            stream.getDict().replaceKey(key, entries.getKey(key));
        }
    }
}

ContentStart GetStart(OrvDoc::Content::Type type)
{
    return type == OrvDoc::Content::Type::UncoloredPatternContent ? ContentStart::Uncolored
                                                                  : ContentStart::Nested;
}

} // namespace

const NestedSource* NestedWriter::FindSource(const OrvDoc::Content& content) const
{
    return &content.GetDocument() == &document ? dynamic_cast<const NestedSource*>(content.GetSource())
                                               : nullptr;
}

QPDFObjectHandle NestedWriter::FindKeptStream(const OrvDoc::Content& content)
{
    const NestedSource* const source = FindSource(content);
    const bool isKept = source && source->isSelfContained && content.GetRevision() == source->baseRevision &&
                        kept.MayKeep(content);
    return isKept ? maker.FindSourceObject(source->object) : QPDFObjectHandle::newNull();
}

QPDFObjectHandle NestedWriter::AddContent(const std::shared_ptr<const OrvDoc::Content>& content)
{
    QPDFObjectHandle original = FindKeptStream(*content);
    if (original.isStream()) {
        Keep(*content);
        return original.copyStream();
    }
    Task task;
    task.content = content;
    task.stream = QPDFObjectHandle::newStream(&maker.GetFile());
    const NestedSource* const source = FindSource(*content);
    original = source ? maker.FindSourceObject(source->object) : original;
    if (original.isStream()) {
        TakeEntriesOver(original, task.stream);
    }
    tasks.push_back(task);
    return task.stream;
}

void NestedWriter::Keep(const OrvDoc::Content& content)
{
    std::vector<const OrvDoc::Content*> open{&content};
    while (!open.empty()) {
        const OrvDoc::Content& next = *open.back();
        open.pop_back();
        if (!seenKept.insert(&next).second) {
            continue;
        }
        for (const NestedContent& inside : ListNestedContents(next)) {
            const NestedSource* const source = inside.form ? kept.FindSource(*inside.form) : nullptr;
            if (source && source->isSelfContained) {
                GetForm({inside.form, nullptr, Matrix(), source->isGroup, source->isIsolated,
                         source->isKnockout});
                continue;
            }
            if (source) {
                MoveReference(maker.FindSourceObject(source->object), *inside.form);
            }
            open.push_back(inside.content);
        }
    }
}

void NestedWriter::Write(const Task& task, ResourcesWriter& resources, std::vector<std::string>& texts,
                         const std::string& place)
{
    WrittenContent written = task.content
                                 ? WriteContent(*task.content, separations, GetStart(task.content->GetType()))
                                 : WriteGroup(*task.group, task.base, separations);
    const NestedSource* const source = task.content ? FindSource(*task.content) : nullptr;
    if (source && source->hasUnmodelled) {
        written.problems.Add("the content was changed and is written without what was not read of it");
    }
    QPDFObjectHandle stream = task.stream;
    QPDFObjectHandle dictionary = stream.getDict();
    dictionary.replaceKey("/Resources", resources.Make(written, dictionary.getKey("/Resources")));
    maker.ReplaceData(stream, written.bytes);
    const std::string inner = task.content
                                  ? GetKind(task.content->GetType()) + std::to_string(task.content->GetID())
                                  : ", group " + std::to_string(task.group->GetID());
    for (std::string& text : written.problems.GetTexts(place + inner)) {
        texts.push_back(std::move(text));
    }
}

std::vector<std::string> NestedWriter::WriteAll(ResourcesWriter& resources, const std::string& place)
{
    std::vector<std::string> texts;
    for (std::size_t next = 0; next < tasks.size(); ++next) {
        const Task task = tasks[next];
        Write(task, resources, texts, place);
    }
    tasks.clear();
    for (std::string& text : std::exchange(problems, WritingProblems()).GetTexts(place)) {
        texts.push_back(std::move(text));
    }
    return texts;
}

} // namespace OrvPdf
