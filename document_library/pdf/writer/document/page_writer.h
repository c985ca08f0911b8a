#pragma once

#include <string>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/reader/document/page_tree.h"
#include "pdf/writer/content/content_writer.h"

namespace OrvDoc
{
class Page;
}

namespace OrvPdf
{

class NestedWriter;
class ObjectMaker;
class PdfPageSource;
class ResourcesWriter;
class SeparationSpaces;

/// Writes pages: their boxes, their contents with the resources that these need, and the colour space of
/// their group. What the model doesn't know of a page stays as the file has it.
class PageWriter
{
public:
    PageWriter(ObjectMaker& givenMaker, SeparationSpaces& givenSeparations, ResourcesWriter& givenResources,
               NestedWriter& givenNested)
        : maker(givenMaker), separations(givenSeparations), resources(givenResources), nested(givenNested)
    {}

    /// `entry` is the page of the file that the model's page was read from; for a page that a program made it
    /// holds an empty dictionary. Its dictionary becomes that of the model's page, with nothing inherited.
    /// Returns the texts of the active errors of the content.
    std::vector<std::string> Write(const OrvDoc::Page& page, const PageEntry& entry);

private:
    void WriteBoxes(const OrvDoc::Page& page, const PdfPageSource* source, QPDFObjectHandle dictionary,
                    WritingProblems& problems);
    void WriteGroup(const OrvDoc::Page& page, QPDFObjectHandle dictionary);
    void KeepContent(const PdfPageSource& source, QPDFObjectHandle dictionary);
    void WriteContentAnew(WrittenContent& content, QPDFObjectHandle dictionary);

    ObjectMaker& maker;
    SeparationSpaces& separations;
    ResourcesWriter& resources;
    NestedWriter& nested;
};

} // namespace OrvPdf
