#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "pdf/reader/pictures/file_picture.h"
#include "pdf/reader/pictures/picture_description.h"
#include "pdf/reader/pictures/picture_origin.h"

namespace OrvPdf
{

class SampleCache;
class SourceFile;

/// A picture of a PDF file: an image XObject or an inline image.
class PdfPicture : public FilePicture
{
public:
    PdfPicture(std::shared_ptr<const SourceFile> givenFile, std::shared_ptr<SampleCache> givenCache,
               std::shared_ptr<const PictureOrigin> givenOrigin, PictureDescription givenDescription);

    std::shared_ptr<const OrvImg::PictureBuffer> GetPictureBuffer() const override;
    std::unique_ptr<OrvImg::PictureStream> GetPictureStream() const override;
    OrvImg::PictureStream::Type GetStreamType() const override;
    std::shared_ptr<const OrvImg::ColorTable> GetColorTable() const override { return about.table; }
    const OrvImg::ColorSpace& GetColorSpace() const override { return about.space; }
    std::size_t GetWidth() const override { return about.shape.width; }
    std::size_t GetHeight() const override { return about.shape.height; }
    double GetXDpi() const override { return about.dpi[0]; }
    double GetYDpi() const override { return about.dpi[1]; }
    std::size_t GetBitsPerChannel() const override { return about.shape.bits; }
    const std::vector<OrvImg::ChannelInfo>& GetChannelInfos() const override { return about.channels; }
    std::shared_ptr<const Plexa::Compound> GetClippingPath() const override { return nullptr; }

    bool IsUndecodable() const override { return about.isUndecodable; }
    bool IsStoredLike(const StoredSamples& other) const override;

    int GetObjectNumber(const SourceFile& other) const override;
    OrvSys::PdfObject Convert(std::string& problem) const override;
    const OrvColor::ColorSpace::Pointer& GetNativeSpace() const override { return about.native; }
    boost::optional<OrvColor::RenderingIntent> GetOwnIntent() const override { return about.intent; }
    const FileMask& GetMask() const override { return about.mask; }
    bool IsFrom(const SourceFile& other) const override { return file.get() == &other; }
    std::string GetDamage() const override;

private:
    std::shared_ptr<const OrvImg::PictureBuffer> Decode() const;
    void Tell(const std::string& problem) const;

    std::shared_ptr<const SourceFile> file;
    std::shared_ptr<SampleCache> cache;
    std::shared_ptr<const PictureOrigin> origin;
    PictureDescription about;
    /// Held while decoding, so that threads that ask at once decode once.
    mutable std::mutex mutex;
    mutable std::weak_ptr<const OrvImg::PictureBuffer> known;
    mutable std::string damage;
};

} // namespace OrvPdf
