#pragma once

#include <vector>

namespace OrvDoc
{
class Content;
class Document;
} // namespace OrvDoc

namespace Examples
{

/// All contents of a document, each once: those of its pages, and those of the forms, patterns and soft masks
/// that objects have, however deep they lie in one another. Reads every page. Linear in the objects; depth
/// costs no stack. The pointers are good as long as nobody changes what the objects have.
std::vector<OrvDoc::Content*> ListAllContents(OrvDoc::Document& document);

/// Marks all of them as changed, so that saving writes them anew from the model; glyphs of Type 3 fonts are
/// left out, which would be no text any more.
void MarkAllContentsChanged(OrvDoc::Document& document);

} // namespace Examples
