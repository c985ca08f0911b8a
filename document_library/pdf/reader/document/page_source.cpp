#include "pdf/reader/document/page_source.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_set>
#include <utility>

#include <orv_doc/errors.h>
#include <orv_doc/page_box.h>
#include <orv_doc/page_content.h>

#include "pdf/reader/content/nested_content.h"
#include "pdf/reader/document/page_boxes.h"
#include "pdf/reader/file/file_reading.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/resources/group_space.h"
#include "pdf/reader/resources/resource_reader.h"

namespace OrvPdf
{

namespace
{

/// Tells what was met in the contents inside, each once, however many ways lead to it.
void TellNested(std::vector<std::shared_ptr<const NestedReading>> open, ErrorList& errors)
{
    std::reverse(open.begin(), open.end());
    std::unordered_set<const NestedReading*> known;
    while (!open.empty()) {
        const std::shared_ptr<const NestedReading> reading = std::move(open.back());
        open.pop_back();
        if (!known.insert(reading.get()).second)
            continue;
        for (const std::string& text : reading->errors)
            errors.Add(reading->place + ": " + text);
        open.insert(open.end(), reading->inside.rbegin(), reading->inside.rend());
    }
}

} // namespace

PdfPageSource::PdfPageSource(std::shared_ptr<const SourceFile> givenFile,
                             std::shared_ptr<DocumentResources> givenDocument, PageEntry givenEntry,
                             std::uint64_t givenIndex)
    : file(std::move(givenFile)),
      document(std::move(givenDocument)),
      entry(std::move(givenEntry)),
      index(givenIndex)
{}

PageBoxes PdfPageSource::ReadBoxes() const
{
    const SourceFile::Access access(*file);
    std::vector<std::string> problems; // Told with the content, which has a list for them.
    try {
        return ReadPageBoxes(entry, problems);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return {};
    }
}

void PdfPageSource::Interpret(OrvDoc::PageContent& content) const
{
    const std::string place = "page " + std::to_string(index + 1);
    FileReading reading(*file, place);
    ErrorList errors(file->GetOptions().limits.errors);
    try {
        InterpretInto(content, errors);
    } catch (const std::bad_alloc&) {
        errors.Add("the content is left out: it takes more memory than there is");
        hasDamagedStreams = true;
    } catch (const std::exception& problem) {
        errors.Add(std::string("the content is left out: ") + problem.what());
        hasDamagedStreams = true;
    }
    errors.Add(reading.TakeProblems());
    for (const std::string& text : errors.Take())
        content.GetActiveErrors().Add(place + ": " + text, OrvDoc::Errors::Origin::Reading);
    baseRevision = content.GetRevision();
}

void PdfPageSource::InterpretInto(OrvDoc::PageContent& content, ErrorList& errors) const
{
    PageBoxes boxes;
    {
        const SourceFile::Access access(*file);
        std::vector<std::string> problems;
        boxes = ReadPageBoxes(entry, problems);
        errors.Add(std::move(problems));
        ReadGroupSpace(GetEntry(entry.dictionary, "/Group"), *document, content, errors);
    }
    PageContentData data = ReadContent();
    hasDamagedStreams = !data.problems.empty();
    errors.Add(std::move(data.problems));

    ResourceReader resources(*document, entry.entries.resources);
    ContentFrame frame;
    frame.box = boxes[static_cast<std::size_t>(OrvDoc::PageBox::Media)];
    interpretation =
        InterpretContent(data.bytes.View(), resources, file->GetOptions().limits, content, frame);
    errors.Add(interpretation.errors);
    TellNested(interpretation.nested, errors);
}

} // namespace OrvPdf
