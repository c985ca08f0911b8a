#include "pdf/reader/pictures/picture_reader.h"

#include <array>
#include <stdexcept>

#include <orv_doc/document.h>

#include "pdf/limit_text.h"
#include "pdf/picture_keys.h"
#include "pdf/reader/document/layer_membership.h"
#include "pdf/reader/file/file_reading.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/pictures/pdf_picture.h"
#include "pdf/reader/resources/document_resources.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;
using OrvImg::ChannelInfo;
using OrvImg::MaskKind;
using OrvImg::PictureData;
using OrvSys::PdfObject;
using Problems = std::vector<std::string>;

// What an image dictionary says in values without references of its own kind; the rest are masks and what the
// picture has no need to know.
constexpr std::array<const char*, 13> PlainKeys = {
    "/Width", "/Height", "/BitsPerComponent", "/ImageMask",   "/Decode", "/Intent", "/SMaskInData",
    "/OPI",   "/Filter", "/DecodeParms",      "/Interpolate", "/Matte",  "/OrvDpi"};

std::string Join(const Problems& problems)
{
    std::string text;
    for (const std::string& problem : problems) {
        text += (text.empty() ? "" : "; ") + problem;
    }
    return text;
}

/// Whether the picture goes beyond a limit, which is told.
bool IsBeyondLimits(const PictureShape& shape, const OrvDoc::ReadOptions::Limits& limits, Problems& problems)
{
    // Each factor is below 2^31, or the number of colorants.
    const auto pixels = static_cast<double>(shape.width) * static_cast<double>(shape.height);
    const double samples = pixels * static_cast<double>(shape.channels);
    const double bytes = samples * static_cast<double>(shape.bits) / 8.0;
    if (samples > static_cast<double>(limits.pictureSamples)) {
        problems.push_back(LimitText("pictureSamples", limits.pictureSamples));
        return true;
    }
    if (bytes > static_cast<double>(limits.streamBytes)) {
        problems.push_back(LimitText("streamBytes", limits.streamBytes));
        return true;
    }
    return false;
}

/// Makes the ranges of the mask a colour key if there are enough. Renderers pass over those in excess.
void TakeColorKey(PictureDescription& about, Problems& problems)
{
    FileMask& mask = about.mask;
    const std::size_t wanted = about.shape.channels;
    const std::size_t given = mask.colorKey.size();
    if (given != wanted) {
        problems.push_back("Mask has " + std::to_string(given) + " ranges instead of " +
                           std::to_string(wanted) +
                           (given < wanted ? ", and is left out" : "; the first ones count"));
    }
    mask.colorKey.resize(given < wanted ? 0 : wanted);
    mask.kind = given < wanted ? MaskKind::None : MaskKind::ColorKey;
}

} // namespace

std::shared_ptr<PictureResource> PictureReader::Read(QPDFObjectHandle stream, const SpaceFinder& findSpace,
                                                     std::string& problem)
{
    QPDFObjectHandle definition = GetEntry(stream, "/ColorSpace");
    ColorSpace::Pointer space;
    std::string spaceProblem;
    if (!definition.isNull()) {
        space = findSpace(definition, spaceProblem);
    }
    const bool mayStand =
        !space || !definition.isName() || space->GetDefinition().IsName(GetNameText(definition));
    const auto [place, isNew] = pictures.try_emplace({stream.getObjGen(), space});
    if (isNew || !stream.isIndirect()) {
        place->second = Make(stream, space, mayStand, spaceProblem);
    }
    problem = place->second.problem;
    return place->second.picture;
}

PictureReader::Known PictureReader::Make(QPDFObjectHandle stream, const ColorSpace::Pointer& space,
                                         bool mayStand, const std::string& spaceProblem)
{
    Known made;
    Problems problems;
    if (!spaceProblem.empty()) {
        problems.push_back(spaceProblem);
    }
    try {
        std::string layerProblem;
        auto membership = ReadLayerMembership(document, GetEntry(stream, "/OC"), layerProblem);
        if (!layerProblem.empty()) {
            problems.push_back("its layer: " + layerProblem);
        }
        const bool hasLayer = membership.has_value();
        std::shared_ptr<const OrvDoc::Layer::Membership> layer;
        if (hasLayer) {
            layer = std::make_shared<const OrvDoc::Layer::Membership>(std::move(*membership));
        }
        const auto data = MakeData(stream, space, mayStand && !hasLayer, false, problems);
        made.picture = std::make_shared<PictureResource>(document.GetDocument(), data,
                                                         IsTrue(GetEntry(stream, "/ImageMask")), layer);
    } catch (const std::invalid_argument& failure) {
        problems.push_back(failure.what());
    } catch (const std::length_error& failure) {
        problems.push_back(failure.what());
    }
    made.problem = Join(problems);
    return made;
}

PdfObject PictureReader::ConvertEntries(QPDFObjectHandle stream, Problems& problems)
{
    PdfObject::Entries entries;
    for (const char* const key : PlainKeys) {
        std::string problem;
        const PdfObject value = document.GetConverter().Convert(GetEntry(stream, key), problem);
        if (!problem.empty()) {
            problems.push_back(WithoutSlash(key) + ": " + problem);
        }
        entries.emplace(WithoutSlash(key), value);
    }
    QPDFObjectHandle mask = GetEntry(stream, "/Mask");
    if (mask.isArray()) {
        std::string problem;
        entries.emplace("Mask", document.GetConverter().Convert(mask, problem));
    }
    return PdfObject::Dictionary(std::move(entries));
}

std::shared_ptr<const PictureData> PictureReader::MakeData(QPDFObjectHandle stream,
                                                           const ColorSpace::Pointer& space, bool mayStand,
                                                           bool isPart, Problems& problems)
{
    const PdfObject dictionary = ConvertEntries(stream, problems);
    const PictureEntries entries = ReadPictureEntries(dictionary, problems);
    auto origin = MakeXObjectOrigin(document.GetSharedFile(), stream);
    PictureDescription about =
        DescribePicture(document.GetFile(), dictionary, entries, FetchStream(stream), space, problems);
    about.mayStand = mayStand;
    if (!isPart) {
        ReadExtraChannels(stream, about, problems);
        ReadMask(stream, entries, about, problems);
    }
    return Finish(std::move(origin), entries, std::move(about),
                  isPart ? ReadNumbers(dictionary, "Matte", problems) : std::vector<double>(), problems);
}

std::shared_ptr<const PictureData> PictureReader::Finish(std::shared_ptr<const PictureOrigin> origin,
                                                         const PictureEntries& entries,
                                                         PictureDescription about, std::vector<double> matte,
                                                         Problems& problems)
{
    PictureShape whole = about.shape;
    whole.channels += about.extraChannels.size();
    if (IsBeyondLimits(whole, document.GetFile().GetOptions().limits, problems)) {
        throw std::invalid_argument("the picture is left out");
    }
    PictureData::Factory factory(document.GetDocument(),
                                 std::make_shared<const PdfPicture>(document.GetSharedFile(), cache,
                                                                    std::move(origin), std::move(about)));
    if (entries.link) {
        factory.SetLink(*entries.link);
    }
    factory.SetMatte(std::move(matte));
    return factory.Get();
}

std::shared_ptr<const PictureData> PictureReader::MakePart(QPDFObjectHandle stream, const char* key,
                                                           Problems& problems)
{
    if (!stream.isStream()) {
        problems.push_back(std::string(key) + " is no picture, and is left out");
        return nullptr;
    }
    std::shared_ptr<const PictureData>& known = parts[stream.getObjGen()];
    if (known && stream.isIndirect()) {
        return known;
    }
    Problems own;
    try {
        QPDFObjectHandle definition = GetEntry(stream, "/ColorSpace");
        std::string problem;
        const ColorSpace::Pointer space =
            definition.isNull() ? nullptr : document.GetColorSpace(definition, problem);
        if (!problem.empty()) {
            own.push_back(problem);
        }
        known = MakeData(stream, space, true, true, own);
    } catch (const std::invalid_argument& failure) {
        own.emplace_back(failure.what());
    } catch (const std::length_error& failure) {
        own.emplace_back(failure.what());
    }
    if (!own.empty()) {
        problems.push_back(std::string(key) + ": " + Join(own));
    }
    return known;
}

void PictureReader::ReadExtraChannels(QPDFObjectHandle stream, PictureDescription& about, Problems& problems)
{
    QPDFObjectHandle list = GetEntry(stream, (std::string("/") + PictureKeys::channels).c_str());
    if (!list.isArray()) {
        return;
    }
    std::vector<std::shared_ptr<const FilePicture>> sources;
    std::vector<ChannelInfo> channels;
    for (QPDFObjectHandle entry : list.getArrayAsVector()) {
        const auto data = MakePart(GetEntry(entry, "/Picture"), PictureKeys::channels, problems);
        QPDFObjectHandle name = GetEntry(entry, "/Name");
        QPDFObjectHandle type = GetEntry(entry, "/Type");
        const bool fits = data && data->GetWidth() == about.shape.width &&
                          data->GetHeight() == about.shape.height &&
                          data->GetPictureSource()->GetBitsPerChannel() == about.shape.bits &&
                          data->GetChannelInfos().size() == 1 && !data->GetPictureSource()->GetColorTable();
        if (!fits) {
            problems.emplace_back(
                "a channel beside those of the colour space does not fit, and all are left out");
            return;
        }
        const bool isAlpha = type.isInteger() && type.getIntValue() == 1;
        channels.emplace_back(name.isString() ? name.getStringValue() : std::string(),
                              isAlpha ? ChannelInfo::ChannelType::Alpha : ChannelInfo::ChannelType::Color,
                              data->GetChannelInfos().front().GetDecode());
        sources.push_back(std::dynamic_pointer_cast<const FilePicture>(data->GetPictureSource()));
    }
    about.channels.insert(about.channels.end(), channels.begin(), channels.end());
    about.extraChannels = std::move(sources);
}

void PictureReader::ReadMask(QPDFObjectHandle stream, const PictureEntries& entries,
                             PictureDescription& about, Problems& problems)
{
    QPDFObjectHandle soft = GetEntry(stream, "/SMask");
    QPDFObjectHandle hard = GetEntry(stream, "/Mask");
    FileMask& mask = about.mask;
    if (mask.isOwn || entries.isStencil) {
        return;
    }
    if (soft.isStream()) {
        mask.data = MakePart(soft, "SMask", problems);
        if (!mask.data) {
            return;
        }
        mask.kind = MaskKind::SoftMask;
        mask.softMaskMapping = {0, mask.data->GetChannelInfos().front().GetDecode()};
        const auto source = mask.data->GetPictureSource();
        for (const auto& channel : about.extraChannels) {
            mask.isOwn = mask.isOwn || channel == source;
        }
        mask.data = mask.isOwn ? nullptr : mask.data;
    } else if (hard.isStream()) {
        mask.data = MakePart(hard, "Mask", problems);
        mask.kind = mask.data ? MaskKind::StencilMask : MaskKind::None;
    } else if (!entries.colorKey.empty()) {
        mask.colorKey = entries.colorKey;
        TakeColorKey(about, problems);
    }
}

std::shared_ptr<PictureResource>
PictureReader::ReadInline(const PdfObject& stream, const ColorSpace::Pointer& space, std::string& problem)
{
    Problems problems;
    std::shared_ptr<PictureResource> picture;
    try {
        const PictureEntries entries = ReadPictureEntries(stream.GetDictionary(), problems);
        FileReading* const reading = FileReading::FindCurrent(document.GetFile());
        auto origin = MakeInlineOrigin(stream, reading ? reading->NameInlineImage() : "an inline image");
        PictureDescription about =
            DescribePicture(document.GetFile(), stream, entries, origin->Fetch(), space, problems);
        about.mayStand = false;
        const auto data = Finish(std::move(origin), entries, std::move(about), {}, problems);
        picture = std::make_shared<PictureResource>(document.GetDocument(), data, entries.isStencil, nullptr);
    } catch (const std::invalid_argument& failure) {
        problems.emplace_back(failure.what());
    } catch (const std::length_error& failure) {
        problems.emplace_back(failure.what());
    }
    problem = Join(problems);
    return picture;
}

} // namespace OrvPdf
