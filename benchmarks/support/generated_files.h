#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include <boost/filesystem/path.hpp>

#include <orv_doc/document.h>

namespace Benchmarks
{

/// A folder that is removed with everything in it when the object goes.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    boost::filesystem::path File(const std::string& name) const { return path / name; }

private:
    boost::filesystem::path path;
};

/// One page with so many paths of a few segments, of which some are stroked, some filled, in a handful of
/// colours.
std::unique_ptr<OrvDoc::Document> MakeVectorDocument(std::size_t objects);

/// A drawing as plotting programs write them: one page, one Flate stream of 2.8 MB when decoded, 35 000
/// strokes of about five segments with two decimals, each with its width and colour. Written as text and
/// compressed by qpdf, so that none of our own code has a hand in it.
void WriteDrawing(const boost::filesystem::path& file);

/// A file of so many small pages in one page tree with classic objects.
void WriteManyPages(const boost::filesystem::path& file, std::size_t pages);

/// Interprets all pages; the number of objects at the top of their contents.
std::size_t LoadAllPages(OrvDoc::Document& document);

} // namespace Benchmarks
