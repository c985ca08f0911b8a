#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <qpdf/QPDF.hh>

#include <orv_doc/document.h>
#include <orv_img/picture_buffer.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>

#include "document_library/pdf/reader/late_texts.h"
#include "orv_img/sample_packing.h"
#include "pdf/reader/file/source_file.h"
#include "pdf/reader/pictures/file_picture.h"
#include "pdf/reader/pictures/picture_resource.h"
#include "pdf/reader/resources/document_resources.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

/// Small files of image XObjects, and the pictures that are read of them.
namespace ReaderTests
{

inline std::string ImageObject(const std::string& data, const std::string& entries)
{
    return HarrowSupport::Testing::PdfStream(data, "/Type /XObject /Subtype /Image " + entries);
}

/// All samples of a picture, row by row, pixel by pixel.
inline std::vector<int> SamplesOf(const OrvImg::PictureBuffer& buffer)
{
    std::vector<int> samples;
    for (std::size_t row = 0; row < buffer.height; ++row) {
        for (std::size_t index = 0; index < buffer.width * buffer.channels; ++index)
            samples.push_back(static_cast<int>(
                OrvImg::Detail::ReadSample(buffer.GetRowPtr(row), index, buffer.bitsPerChannel)));
    }
    return samples;
}

inline std::vector<int> SamplesOf(const OrvImg::PictureData& data)
{
    return SamplesOf(*data.GetPictureSource()->GetPictureBuffer());
}

/// A file of objects that are numbered from `first`, and no page. Holds no access to it.
class PictureBench
{
public:
    static constexpr int first = 3;

    explicit PictureBench(const std::vector<std::string>& objects, const OrvDoc::ReadOptions& options = {})
        : file(Open(objects, options)), resources(file)
    {
        resources.SetDocument(*document);
    }

    /// The picture in the object of that index; null, with a problem, if there is none.
    std::shared_ptr<OrvPdf::PictureResource> Read(int index = 0)
    {
        const OrvPdf::SourceFile::Access access(*file);
        problem.clear();
        const auto findSpace = [this](QPDFObjectHandle definition, std::string& spaceProblem) {
            return resources.GetColorSpace(definition, spaceProblem);
        };
        return resources.GetPictures().Read(access.GetQpdf().getObject(first + index, 0), findSpace, problem);
    }

    /// What decoding told since the last call, and parsing.
    std::vector<std::string> TakeLateTexts() const { return ReaderTests::TakeLateTexts(*file); }

    HarrowSupport::Testing::TemporaryFolder folder;
    std::shared_ptr<const OrvPdf::SourceFile> file;
    std::unique_ptr<OrvDoc::Document> document = OrvDoc::Document::CreateNew();
    OrvPdf::DocumentResources resources;
    std::string problem;

private:
    std::shared_ptr<const OrvPdf::SourceFile> Open(const std::vector<std::string>& objects,
                                                   const OrvDoc::ReadOptions& options) const
    {
        std::vector<std::string> all = {"<< /Type /Catalog /Pages 2 0 R >>",
                                        "<< /Type /Pages /Kids [] /Count 0 >>"};
        all.insert(all.end(), objects.begin(), objects.end());
        return OrvPdf::SourceFile::Open(folder.Write("file.pdf", HarrowSupport::Testing::PdfFile(all)),
                                        options);
    }
};

inline const OrvPdf::FilePicture& SourceOf(const OrvPdf::PictureResource& picture)
{
    return dynamic_cast<const OrvPdf::FilePicture&>(*picture.GetData()->GetPictureSource());
}

} // namespace ReaderTests
