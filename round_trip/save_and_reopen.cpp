#include <harrow_support/round_trip.h>

#include <string>
#include <utility>

#include <boost/filesystem/path.hpp>

#include <orv_doc/document.h>

#include "round_trip/temporary_file.h"

namespace HarrowSupport
{

void SaveAndReopen(std::unique_ptr<OrvDoc::Document>& document, boost::string_view name,
                   const OrvDoc::WriteOptions& writeOptions, const OrvDoc::ReadOptions& readOptions)
{
    std::string model = "Harrow-";
    model.append(name.data(), name.size());
    model.append("-%%%%-%%%%-%%%%-%%%%.pdf");
    boost::filesystem::path path = MakeTemporaryPath(model);
    document->Save(path, writeOptions);
    // Before the file is read, so that no two documents exist side by side.
    document.reset();
    document = OrvDoc::Document::Create(path, readOptions);
    GiveFileToDocument(std::move(path), *document);
}

} // namespace HarrowSupport
