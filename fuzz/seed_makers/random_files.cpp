#include "seed_makers/random_files.h"

#include "support/random_documents.h"
#include "support/temporary_folder.h"

#include <orv_doc/document.h>
#include <orv_doc/write_options.h>

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFWriter.hh>

#include <cstddef>
#include <memory>

namespace HarrowSupport::Fuzzing
{

namespace
{

constexpr std::size_t maximalUnpackedBytes = 2000;

std::string TextOf(const std::shared_ptr<Buffer>& buffer)
{
    return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
}

} // namespace

std::string MakeRandomFile(std::uint32_t seed)
{
    const Testing::TemporaryFolder folder;
    const std::string name = folder.NameOf("document.pdf");
    Testing::MakeDocument(Testing::PlanDocument(seed))
        ->Save(name, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));

    QPDF file;
    file.setSuppressWarnings(true);
    file.processFile(name.c_str());
    for (QPDFObjectHandle object : file.getAllObjects()) {
        // Font programs, profiles and the like: as text they would be most of the file.
        if (object.isStream() && object.getRawStreamData()->getSize() > maximalUnpackedBytes)
            object.setFilterOnWrite(false);
    }
    QPDFWriter writer(file);
    writer.setOutputMemory();
    writer.setStaticID(true);
    writer.setObjectStreamMode(qpdf_o_disable);
    writer.setStreamDataMode(qpdf_s_uncompress);
    writer.write();
    return TextOf(writer.getBufferSharedPointer());
}

std::vector<std::string> ContentStreamsOf(const std::string& file)
{
    QPDF opened;
    // It takes each escaped "#" in a name for a slip.
    opened.setSuppressWarnings(true);
    opened.processMemoryFile("random document", file.data(), file.size());
    std::vector<std::string> streams;
    for (QPDFObjectHandle page : opened.getAllPages()) {
        std::string joined;
        for (QPDFObjectHandle stream : page.getPageContents())
            joined += TextOf(stream.getStreamData()) + "\n";
        streams.push_back(joined);
    }
    return streams;
}

} // namespace HarrowSupport::Fuzzing
