#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <qpdf/QPDFObjGen.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include <orv_color/color_space.h>

#include "pdf/reader/pictures/picture_entries.h"
#include "pdf/reader/pictures/picture_resource.h"
#include "pdf/reader/pictures/sample_cache.h"

namespace OrvPdf
{

class DocumentResources;
struct PictureDescription;

/// Makes pictures of image XObjects and inline images (ISO 32000-1, 8.9). The same object gives the same
/// picture. Needs an access to the file.
class PictureReader
{
public:
    /// The colour space of a definition under the resources around. Null, with the reason in the problem, if
    /// it can't be had.
    using SpaceFinder = std::function<OrvColor::ColorSpace::Pointer(QPDFObjectHandle, std::string&)>;

    explicit PictureReader(DocumentResources& givenDocument) : document(givenDocument) {}

    /// Null, with the reason in `problem`, if the dictionary tells no picture. What is wrong with one that
    /// can be had is told in `problem` too.
    std::shared_ptr<PictureResource> Read(QPDFObjectHandle stream, const SpaceFinder& findSpace,
                                          std::string& problem);

    /// An inline image: a stream with keys and names in full and no references. `space` may be null for a
    /// stencil.
    std::shared_ptr<PictureResource> ReadInline(const OrvSys::PdfObject& stream,
                                                const OrvColor::ColorSpace::Pointer& space,
                                                std::string& problem);

private:
    using Problems = std::vector<std::string>;
    struct Known
    {
        std::shared_ptr<PictureResource> picture;
        std::string problem;
    };

    Known Make(QPDFObjectHandle stream, const OrvColor::ColorSpace::Pointer& space, bool mayStand,
               const std::string& spaceProblem);
    /// A picture that is a mask of another one or a channel of it. Null, with a problem, if it can't be had.
    std::shared_ptr<const OrvImg::PictureData> MakePart(QPDFObjectHandle stream, const char* key,
                                                        Problems& problems);
    std::shared_ptr<const OrvImg::PictureData> MakeData(QPDFObjectHandle stream,
                                                        const OrvColor::ColorSpace::Pointer& space,
                                                        bool mayStand, bool isPart, Problems& problems);
    void ReadMask(QPDFObjectHandle stream, const PictureEntries& entries, PictureDescription& about,
                  Problems& problems);
    void ReadExtraChannels(QPDFObjectHandle stream, PictureDescription& about, Problems& problems);
    std::shared_ptr<const OrvImg::PictureData> Finish(std::shared_ptr<const class PictureOrigin> origin,
                                                      const PictureEntries& entries, PictureDescription about,
                                                      std::vector<double> matte, Problems& problems);
    OrvSys::PdfObject ConvertEntries(QPDFObjectHandle stream, Problems& problems);

    DocumentResources& document;
    std::shared_ptr<SampleCache> cache = std::make_shared<SampleCache>();
    std::map<std::pair<QPDFObjGen, OrvColor::ColorSpace::Pointer>, Known> pictures;
    std::map<QPDFObjGen, std::shared_ptr<const OrvImg::PictureData>> parts;
};

} // namespace OrvPdf
