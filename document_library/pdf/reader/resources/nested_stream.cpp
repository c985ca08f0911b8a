#include "pdf/reader/resources/nested_stream.h"

#include <utility>

#include <orv_doc/document.h>
#include <orv_doc/errors.h>

#include "pdf/limit_text.h"
#include "pdf/marked_content_tags.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/file/stack_room.h"
#include "pdf/reader/file/stream_data.h"
#include "pdf/reader/resources/document_resources.h"
#include "pdf/reader/resources/geometry_reader.h"
#include "pdf/reader/resources/group_space.h"
#include "pdf/reader/resources/nested_source.h"
#include "pdf/reader/resources/resource_reader.h"

namespace OrvPdf
{

namespace
{

/// Marks a content as being read, for as long as it lives.
class OpenMark
{
public:
    OpenMark(bool& givenIsOpen, std::uint32_t& givenDepth) : isOpen(givenIsOpen), depth(givenDepth)
    {
        isOpen = true;
        ++depth;
    }
    ~OpenMark()
    {
        isOpen = false;
        --depth;
    }
    OpenMark(const OpenMark&) = delete;
    OpenMark& operator=(const OpenMark&) = delete;

private:
    bool& isOpen;
    std::uint32_t& depth;
};

} // namespace

NestedStream::NestedStream(DocumentResources& givenDocument, QPDFObjectHandle givenStream, const char* kind,
                           QPDFObjectHandle around)
    : document(givenDocument), stream(givenStream), resources(GetEntry(givenStream, "/Resources"))
{
    hasOwnResources = resources.isDictionary();
    if (!hasOwnResources) {
        resources = around;
    }
    place = std::string(kind) + " " + std::to_string(stream.getObjectID()) + " " +
            std::to_string(stream.getGeneration());
}

NestedStream::NestedStream(DocumentResources& givenDocument, QPDFObjectHandle givenStream,
                           QPDFObjectHandle ofFont, QPDFObjectHandle around)
    : NestedStream(givenDocument, givenStream, "glyph", ofFont.isDictionary() ? ofFont : around)
{
    hasOwnResources = hasOwnResources || ofFont.isDictionary();
    isGlyph = true;
}

bool NestedStream::MayRead(std::string& problem) const
{
    const std::uint32_t limit = document.GetFile().GetOptions().limits.formNesting;
    if (isOpen) {
        problem = "it is painted inside of itself";
        ++document.GetNestedContents().cycles;
    } else if (document.GetNestedContents().depth >= limit) {
        problem = LimitText("formNesting", limit);
    } else if (!HasStackRoom()) {
        problem = "the stack of the thread has no room for what is so deep inside of others";
    }
    return problem.empty();
}

NestedStream::Reading NestedStream::Read(OrvDoc::Content::Type type, const GraphicsState* state,
                                         const Matrix& base)
{
    const OpenMark mark(isOpen, document.GetNestedContents().depth);
    const std::uint64_t cyclesBefore = document.GetNestedContents().cycles;
    const SourceFile& file = document.GetFile();
    const OrvDoc::ReadOptions::Limits& limits = file.GetOptions().limits;
    Reading reading{
        std::make_shared<OrvDoc::Content>(document.GetDocument(), type), {}, ErrorList(limits.errors)};
    EncodedStream encoded;
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> box;
    {
        const SourceFile::Access access(file);
        if (!IsTrue(GetEntry(stream, Tags::noBlendSpaceKey))) {
            ReadGroupSpace(GetEntry(stream, "/Group"), document, *reading.content, reading.errors);
        }
        ReadBlendSpace(GetEntry(stream, Tags::blendSpaceKey), document, *reading.content, reading.errors);
        // What is wrong with it is told where the content is used.
        std::vector<std::string> problems;
        box = ReadRectangle(GetEntry(stream, "/BBox"), "BBox", problems);
        encoded = FetchStream(stream);
    }
    const DecodedStream decoded = DecodeStream(file, encoded, file.GetContentLimit());
    file.CountContentBytes(decoded.bytes.GetSize());
    if (!decoded.problem.empty()) {
        reading.errors.Add(decoded.problem);
    }
    reading.size = decoded.bytes.View().size();
    ResourceReader inner(document, resources);
    reading.interpretation =
        InterpretContent(decoded.bytes.View(), inner, limits, *reading.content, {state, box, base, isGlyph});
    reading.errors.Add(std::move(reading.interpretation.errors));
    reading.usesResourcesAround = !hasOwnResources && inner.HasFound();
    // What has no place in the model may name resources that nobody asked for.
    reading.dependsOnResourcesAround =
        reading.usesResourcesAround || (!hasOwnResources && reading.interpretation.hasUnmodelled);
    reading.isCut = document.GetNestedContents().cycles != cyclesBefore;
    return reading;
}

void NestedStream::Describe(const Reading& reading, NestedSource& source) const
{
    source.object = stream.getObjectID();
    source.isSelfContained = !reading.isCut && !reading.usesResourcesAround;
    source.hasUnmodelled = reading.interpretation.hasUnmodelled;
    source.baseRevision = reading.content->GetRevision();
    source.foreign = reading.interpretation.foreign;
}

std::unique_ptr<NestedSource> NestedStream::MakeSource(const Reading& reading) const
{
    auto source = std::make_unique<NestedSource>();
    Describe(reading, *source);
    return source;
}

std::shared_ptr<const NestedReading> NestedStream::Tell(Reading& reading) const
{
    auto told = std::make_shared<NestedReading>();
    told->place = place;
    told->errors = reading.errors.Take();
    told->inside = std::move(reading.interpretation.nested);
    for (const std::string& text : told->errors) {
        reading.content->GetActiveErrors().Add(place + ": " + text, OrvDoc::Errors::Origin::Reading);
    }
    const bool isSomethingTold = !told->errors.empty() || !told->inside.empty();
    return isSomethingTold ? told : nullptr;
}

} // namespace OrvPdf
