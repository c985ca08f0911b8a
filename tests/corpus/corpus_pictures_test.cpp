// The samples that pictures of real files decode to are those that a renderer which is not ours decodes: each
// picture is painted twice, as its file encodes it and with samples of this library's decoding, and the pages
// have to look alike. What cannot be decoded is listed.

#include "support/corpus_folder.h"
#include "support/document_makers.h"
#include "support/page_images.h"
#include "support/pdf_files.h"
#include "support/temporary_folder.h"

#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/page.h>
#include <orv_doc/page_content.h>
#include <orv_doc/visitor.h>
#include <orv_img/buffered_picture_source.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>

#include <gtest/gtest.h>

#include <exception>
#include <iostream>
#include <set>

namespace HarrowSupport::Testing
{
namespace
{

using OrvImg::MaskKind;
using OrvImg::PaintedPicture;
using OrvImg::PictureData;
using PaintedPointer = std::shared_ptr<const PaintedPicture>;
using DataPointer = std::shared_ptr<const PictureData>;

/// The pictures that images of a document show, each once, in the order of their first use.
class PictureList : public OrvDoc::ConstVisitorBase
{
public:
    using OrvDoc::ConstVisitorBase::Visit;

    bool Visit(const OrvDoc::Image& image) override
    {
        if (known.insert(image.GetPaintedPicture().get()).second)
            pictures.push_back(image.GetPaintedPicture());
        return true;
    }

    std::vector<PaintedPointer> pictures;

private:
    std::set<const PaintedPicture*> known;
};

std::vector<PaintedPointer> ListPictures(const OrvDoc::Document& document)
{
    PictureList list;
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page)
        page->GetContent().Accept(list);
    return list.pictures;
}

/// The same picture without its file.
DataPointer Decode(const OrvDoc::Document& document, const PictureData& data)
{
    const OrvImg::PictureSource& source = *data.GetPictureSource();
    return PictureData::Factory(document,
                                std::make_shared<OrvImg::BufferedPictureSource>(
                                    source.GetPictureBuffer(), source.GetColorSpace(),
                                    source.GetChannelInfos(), source.GetColorTable(), 0.0, 0.0, nullptr))
        .SetMatte(data.GetMatte())
        .Get();
}

PaintedPointer Decode(const OrvDoc::Document& document, const PaintedPicture& picture)
{
    const DataPointer data = Decode(document, *picture.GetPictureData(false));
    PaintedPicture::Factory factory(document, data, false);
    factory.SetMaskKind(picture.GetMaskKind(false))
        .SetSoftMaskMapping(picture.GetSoftMaskMapping(false))
        .SetRenderingIntent(picture.GetRenderingIntent())
        .SetColorKey(picture.GetColorKey(false));
    if (picture.GetMaskData(false))
        factory.SetMaskData(Decode(document, *picture.GetMaskData(false)));
    return factory.Get();
}

bool IsItsOwnMask(const PaintedPicture& picture)
{
    return picture.GetMaskData(false) == picture.GetPictureData(false);
}

/// Without its mask if that is in the picture itself: the renderer passes over opacities in JPEG 2000 data.
PaintedPointer ShowAllOf(const OrvDoc::Document& document, const PaintedPointer& picture)
{
    return IsItsOwnMask(*picture)
               ? PaintedPicture::Factory(document, picture->GetPictureData(false), false).Get()
               : picture;
}

/// A page of 100 points for each picture, which fills it.
std::string WritePages(const TemporaryFolder& folder, const std::string& name,
                       const std::vector<PaintedPointer>& pictures)
{
    const auto document = NewDocument(pictures.size());
    for (std::size_t index = 0; index < pictures.size(); ++index) {
        auto image = std::make_unique<OrvDoc::Image>(pictures[index]);
        image->SetTransformation(Matrix(100.0, 0.0, 0.0, 100.0, 0.0, 0.0));
        Place(ContentOf(*document, index), std::move(image));
    }
    const std::string file = folder.NameOf(name);
    document->Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    return file;
}

/// Why a picture can't be compared; empty if it can.
std::string FindReason(const PaintedPicture& picture)
{
    const OrvImg::PictureSource& source = *picture.GetPictureData(false)->GetPictureSource();
    if (source.GetStreamType() == OrvImg::PictureStream::Type::Jbig2)
        return "it cannot be decoded";
    const std::vector<OrvImg::ChannelInfo>& channels = source.GetChannelInfos();
    const bool isProcess = channels.front().GetName() == "Cyan";
    if (boost::get<OrvImg::DeviceN>(&source.GetColorSpace()) && channels.size() > 1 && !isProcess)
        return "without its file, its inks together look as they do one by one";
    return {};
}

class CorpusPictures : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const std::string reason = WhyNotRendered();
        if (!reason.empty())
            GTEST_SKIP() << reason;
    }

    /// How many pictures of the file were compared.
    std::size_t CompareDecodings(const std::string& file)
    {
        std::vector<PaintedPointer> asStored;
        std::unique_ptr<OrvDoc::Document> document;
        try {
            document = OrvDoc::Document::Create(CorpusFolder() + "/" + file, OrvDoc::ReadOptions());
        } catch (const std::exception&) {
            return 0; // What is no document is the business of other tests.
        }
        for (const PaintedPointer& picture : ListPictures(*document)) {
            const std::string reason = FindReason(*picture);
            if (reason.empty())
                asStored.push_back(ShowAllOf(*document, picture));
            else
                std::cout << file << ": a picture is left out: " << reason << "\n";
        }
        if (asStored.empty())
            return 0;
        std::vector<PaintedPointer> decoded;
        for (const PaintedPointer& picture : asStored)
            decoded.push_back(Decode(*document, *picture));
        const PageImages expected = RenderPages(WritePages(folder, "stored.pdf", asStored));
        const PageImages found = RenderPages(WritePages(folder, "decoded.pdf", decoded));
        EXPECT_EQ(expected.size(), asStored.size()) << file;
        EXPECT_EQ(found.size(), expected.size()) << file;
        for (const auto& [page, image] : expected) {
            const auto other = found.find(page);
            if (other == found.end())
                continue;
            // A decoder of lossy data may round another way than the next one.
            EXPECT_LE(ShareOfDifferentPixels(image, other->second, 8), 0.001)
                << file << ", picture " << page << " of its images: "
                << asStored[page - 1]->GetPictureData(false)->GetPictureSource()->GetColorSpace();
        }
        return asStored.size();
    }

    TemporaryFolder folder;
};

TEST_F(CorpusPictures, DecodeToWhatARendererDecodesThemTo)
{
    std::size_t pictures = 0;
    std::size_t files = 0;
    for (const std::string& file : ListPdfFiles(CorpusFolder())) {
        const std::size_t compared = CompareDecodings(file);
        pictures += compared;
        files += compared > 0 ? 1 : 0;
    }
    EXPECT_TRUE(pictures > 0 || !IsChosenCorpus()) << "not a single picture was compared";
    std::cout << pictures << " pictures of " << files << " files compared\n";
}

} // namespace
} // namespace HarrowSupport::Testing
