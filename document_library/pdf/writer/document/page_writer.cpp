#include "pdf/writer/document/page_writer.h"

#include <array>
#include <iterator>

#include <qpdf/QPDF.hh>

#include <orv_doc/page.h>
#include <orv_doc/page_content.h>

#include "pdf/reader/document/page_source.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/writer/content/content_cleaning.h"
#include "pdf/writer/document/appearance_resources.h"
#include "pdf/writer/file/box_object.h"
#include "pdf/writer/file/object_maker.h"
#include "pdf/writer/resources/nested_writer.h"
#include "pdf/writer/resources/resources_writer.h"

namespace OrvPdf
{

namespace
{

using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

struct BoxKey
{
    OrvDoc::PageBox box;
    const char* key;
};

constexpr BoxKey boxKeys[] = {{OrvDoc::PageBox::Media, "/MediaBox"},
                              {OrvDoc::PageBox::Crop, "/CropBox"},
                              {OrvDoc::PageBox::Bleed, "/BleedBox"},
                              {OrvDoc::PageBox::Trim, "/TrimBox"},
                              {OrvDoc::PageBox::Art, "/ArtBox"}};

bool IsPresent(QPDFObjectHandle object)
{
    return object.isInitialized() && !object.isNull();
}

void PushDown(QPDFObjectHandle dictionary, const char* key, QPDFObjectHandle inherited)
{
    if (!IsPresent(dictionary.getKey(key)) && IsPresent(inherited)) {
        dictionary.replaceKey(key, inherited);
    }
}

QPDFObjectHandle MakeBox(const Rectangle& box, const char* key, WritingProblems& problems)
{
    const QPDFObjectHandle object = MakeBoxObject(box);
    if (!IsPresent(object)) {
        problems.Add(
            std::string(key + 1) +
            " is left out: a file has no boxes with negative extents or numbers that are not finite");
    }
    return object;
}

void AppendTexts(std::vector<std::string> added, std::vector<std::string>& texts)
{
    texts.insert(texts.end(), std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
}

} // namespace

std::vector<std::string> PageWriter::Write(const OrvDoc::Page& page, const PageEntry& entry)
{
    QPDFObjectHandle dictionary = entry.dictionary;
    const auto* const source = dynamic_cast<const PdfPageSource*>(page.GetSource());
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/Page"));
    PushDown(dictionary, "/Resources", entry.entries.resources);
    PushDown(dictionary, "/MediaBox", entry.entries.mediaBox);
    PushDown(dictionary, "/CropBox", entry.entries.cropBox);
    PushDown(dictionary, "/Rotate", entry.entries.rotate);

    WritingProblems problems;
    WriteBoxes(page, source, dictionary, problems);
    const OrvDoc::PageContent& content = page.GetContent();
    WriteGroup(page, dictionary);
    const std::string place = "page " + std::to_string(page.GetPageIndex() + 1);
    const bool hasUnmodelled = source && source->GetInterpretation().hasUnmodelled;
    const bool isUnchanged = source && content.GetRevision() == source->GetBaseRevision();
    const bool isDamaged =
        source && (!source->GetInterpretation().damaged.empty() || source->HasDamagedStreams());
    if (isUnchanged && nested.MayKeepPage(content, hasUnmodelled, isDamaged)) {
        KeepContent(*source, dictionary);
        nested.Keep(content);
        std::vector<std::string> texts = problems.GetTexts(place);
        AppendTexts(nested.WriteAll(resources, place), texts);
        return texts;
    }
    WrittenContent written = WriteContent(content, separations, ContentStart::Page);
    WriteContentAnew(written, dictionary);
    if (hasUnmodelled) {
        problems.Add("the content was changed and is written without what was not read of it");
    }
    std::vector<std::string> texts = problems.GetTexts(place);
    AppendTexts(written.problems.GetTexts(place), texts);
    AppendTexts(nested.WriteAll(resources, place), texts);
    return texts;
}

void PageWriter::WriteBoxes(const OrvDoc::Page& page, const PdfPageSource* source,
                            QPDFObjectHandle dictionary, WritingProblems& problems)
{
    std::array<Rectangle, 5> before;
    if (source) {
        before = source->ReadBoxes();
    }
    for (const BoxKey& key : boxKeys) {
        const Rectangle& box = page.GetPageBox(key.box);
        if (source && !box.isInitial && box == before[static_cast<std::size_t>(key.box)]) {
            continue;
        }
        const QPDFObjectHandle written =
            box.isInitial ? QPDFObjectHandle::newNull() : MakeBox(box, key.key, problems);
        if (IsPresent(written)) {
            dictionary.replaceKey(key.key, written);
        } else {
            dictionary.removeKey(key.key);
        }
    }
}

void PageWriter::WriteGroup(const OrvDoc::Page& page, QPDFObjectHandle dictionary)
{
    const OrvDoc::BlendColorSpace space = page.GetContent().GetBlendColorSpace();
    const auto* const source = dynamic_cast<const PdfPageSource*>(page.GetSource());
    if (source && page.GetContent().GetRevision() == source->GetBaseRevision()) {
        return;
    }
    QPDFObjectHandle group = dictionary.getKey("/Group");
    if (!space.GetColorSpace()) {
        if (GetEntry(group, "/S").isNameAndEquals("/Transparency") && IsPresent(GetEntry(group, "/CS"))) {
            QPDFObjectHandle copy = group.shallowCopy();
            copy.removeKey("/CS");
            dictionary.replaceKey("/Group", copy);
        }
        return;
    }
    QPDFObjectHandle changed = group.isDictionary() ? group.shallowCopy() : QPDFObjectHandle::newDictionary();
    changed.replaceKey("/Type", QPDFObjectHandle::newName("/Group"));
    changed.replaceKey("/S", QPDFObjectHandle::newName("/Transparency"));
    changed.replaceKey("/CS", maker.MakeShared(space.GetColorSpace()->GetDefinition()));
    dictionary.replaceKey("/Group", changed);
}

void PageWriter::KeepContent(const PdfPageSource& source, QPDFObjectHandle dictionary)
{
    const PageContentData data = source.ReadContent();
    const auto cleaned = CleanContent(data.bytes.View(), source.GetInterpretation().damaged);
    if (cleaned || source.HasDamagedStreams()) {
        dictionary.replaceKey("/Contents", maker.MakeStream(cleaned ? *cleaned : data.bytes.View()));
    }
}

void PageWriter::WriteContentAnew(WrittenContent& content, QPDFObjectHandle dictionary)
{
    if (content.bytes.empty()) {
        dictionary.removeKey("/Contents");
    } else {
        dictionary.replaceKey("/Contents", maker.MakeStream(content.bytes));
    }
    const QPDFObjectHandle before = dictionary.getKey("/Resources");
    GiveResourcesToAppearances(dictionary, before);
    dictionary.replaceKey("/Resources", resources.Make(content, before));
}

} // namespace OrvPdf
