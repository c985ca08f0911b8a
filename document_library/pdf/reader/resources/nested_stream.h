#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/content.h>

#include "pdf/reader/content/content_interpreter.h"
#include "pdf/reader/content/graphics_state.h"
#include "pdf/reader/content/nested_content.h"
#include "pdf/reader/document/error_list.h"

namespace OrvPdf
{

class DocumentResources;
class NestedSource;

/// The contents of a document that lie inside of others are read one at a time: each is read once, and they
/// refer to one another in any way that a file likes.
struct NestedContentLock
{
    std::recursive_mutex mutex;
    /// How many contents are being read, one inside of the other.
    std::uint32_t depth = 0;
    /// How often one was found to be inside of itself.
    std::uint64_t cycles = 0;
    /// What the streams hold, in bytes, that were read another time for another state around.
    std::uint64_t bytesReadAgain = 0;
};

/// A stream of a file that is a content inside of others: a form, the cell of a pattern, the drawing of a
/// soft mask. Used under the lock of nested contents.
class NestedStream
{
public:
    /// `kind` is how messages call it. `around` are the resources of the content that names it first, which
    /// count for streams of old files that have none. Needs an access to the file.
    NestedStream(DocumentResources& givenDocument, QPDFObjectHandle givenStream, const char* kind,
                 QPDFObjectHandle around);
    /// A glyph of a Type 3 font, whose resources are the glyph's own if it has any.
    NestedStream(DocumentResources& givenDocument, QPDFObjectHandle givenStream, QPDFObjectHandle ofFont,
                 QPDFObjectHandle around);

    struct Reading
    {
        std::shared_ptr<OrvDoc::Content> content;
        Interpretation interpretation;
        ErrorList errors;
        /// What the stream holds, decoded, in bytes.
        std::uint64_t size = 0;
        /// Whether it has no resources of its own and what was read of it needs some.
        bool usesResourcesAround = false;
        /// The same for what was not read of it too.
        bool dependsOnResourcesAround = false;
        /// Whether it ends where something inside of it would be inside of itself: it is one turn of a
        /// circle, and written as a copy of the stream it would be one more.
        bool isCut = false;
    };

    /// Whether it is being read.
    bool IsOpen() const { return isOpen; }
    /// Whether it may be read now; otherwise `problem` says why not: it is being read already, or too many
    /// contents are.
    bool MayRead(std::string& problem) const;
    /// Reads it as a content of that type that begins in that state; null stands for that of a page.
    /// `base` is that of the container that the content is for, see `ContentFrame`.
    Reading Read(OrvDoc::Content::Type type, const GraphicsState* state, const Matrix& base = {});
    /// What a content that was read says of where it comes from. It stands for itself unless it is one turn
    /// of a circle or uses resources from around, which are made anew with the content around.
    void Describe(const Reading& reading, NestedSource& source) const;
    std::unique_ptr<NestedSource> MakeSource(const Reading& reading) const;
    /// Makes what was met active errors of the content, and what is told of it around; null for nothing.
    std::shared_ptr<const NestedReading> Tell(Reading& reading) const;

    DocumentResources& GetDocument() const { return document; }
    QPDFObjectHandle GetStream() const { return stream; }

private:
    DocumentResources& document;
    QPDFObjectHandle stream;
    QPDFObjectHandle resources;
    bool hasOwnResources = false;
    bool isGlyph = false;
    std::string place;
    bool isOpen = false;
};

} // namespace OrvPdf
