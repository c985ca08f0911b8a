#include "pdf/writer/file/write_document.h"

#include <cstring>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include <boost/filesystem/operations.hpp>
#include <qpdf/Pipeline.hh>
#include <qpdf/Pl_Discard.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFExc.hh>
#include <qpdf/QPDFWriter.hh>

#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/page_content.h>

#include "pdf/reader/file/qpdf_text.h"
#include "pdf/writer/document/document_assembly.h"
#include "pdf/writer/file/atomic_file.h"

namespace OrvPdf
{

namespace
{

/// Gathers what the PDF library writes token by token.
class FilePipeline : public Pipeline
{
public:
    explicit FilePipeline(AtomicFile& givenFile) : Pipeline("file", nullptr), file(givenFile)
    {
        buffer.reserve(capacity);
    }

    void write(unsigned char const* data, size_t length) override
    {
        if (buffer.size() + length > capacity) {
            Flush();
        }
        if (length > capacity) {
            file.Write(data, length);
            return;
        }
        buffer.insert(buffer.end(), data, data + length);
    }

    /// The PDF library calls this after each stream that it writes, which is too early to empty the buffer.
    void finish() override {}

    void Flush()
    {
        file.Write(buffer.data(), buffer.size());
        buffer.clear();
    }

private:
    static constexpr std::size_t capacity = std::size_t{1} << 20;

    AtomicFile& file;
    std::vector<unsigned char> buffer;
};

void WriteTo(Pipeline& output, DocumentAssembly& assembly)
{
    QPDFWriter writer(*assembly.file);
    writer.setOutputPipeline(&output);
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.setMinimumPDFVersion(assembly.version);
    // What comes from elsewhere keeps its filters.
    writer.setDecodeLevel(qpdf_dl_none);
    writer.setRecompressFlate(false);
    if (!assembly.file->isEncrypted()) {
        // The identifier then follows from the content; encryption takes it before there is any.
        writer.setDeterministicID(true);
    }
    writer.write();
}

void SetErrors(OrvDoc::Document& document, DocumentAssembly& assembly)
{
    document.GetActiveErrors().Replace(OrvDoc::Errors::Origin::Writing, std::move(assembly.errors));
    auto texts = assembly.contentErrors.begin();
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page, ++texts) {
        page->GetContent().GetActiveErrors().Replace(OrvDoc::Errors::Origin::Writing, std::move(*texts));
    }
}

/// Runs the writing; what the PDF library throws becomes a `std::runtime_error` with the name in front.
void WithName(const std::string& name, const std::function<void()>& run)
{
    try {
        run();
    } catch (const QPDFExc& problem) {
        throw std::runtime_error(name + ": cannot be written: " + DescribeProblem(problem));
    } catch (const std::logic_error& problem) {
        throw std::runtime_error(name + ": cannot be written: " + problem.what());
    } catch (const std::range_error& problem) {
        // There is no number left for a new object.
        throw std::runtime_error(name + ": cannot be written: " + problem.what());
    }
}

} // namespace

void SaveDocument(OrvDoc::Document& document, const boost::filesystem::path& file,
                  const OrvDoc::WriteOptions&)
{
    WithName(file.string(), [&] {
        AtomicFile target(file);
        DocumentAssembly assembly =
            AssembleDocument(document, boost::filesystem::absolute(file).parent_path());
        FilePipeline output(target);
        WriteTo(output, assembly);
        output.Flush();
        target.Commit();
        SetErrors(document, assembly);
    });
}

void FlushDocument(OrvDoc::Document& document)
{
    const std::string name = document.GetFilePath().empty() ? "document" : document.GetFilePath().string();
    WithName(name, [&] {
        DocumentAssembly assembly = AssembleDocument(document, {});
        Pl_Discard output;
        WriteTo(output, assembly);
        SetErrors(document, assembly);
    });
}

} // namespace OrvPdf
