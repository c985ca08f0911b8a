#include "pdf/reader/pictures/picture_entries.h"

#include <cmath>
#include <stdexcept>

#include "pdf/opi_link.h"
#include "pdf/picture_keys.h"

namespace OrvPdf
{

namespace
{

using OrvSys::PdfObject;

// Wider pictures would take more than 2^31 samples in a row of one channel.
constexpr double LargestDimension = 2147483647.0;

std::size_t ReadDimension(const PdfObject& dictionary, const char* key)
{
    const PdfObject value = dictionary.Find(key);
    const double number = value.IsNumber() ? value.GetNumber() : 0.0;
    if (!(number >= 1.0 && number <= LargestDimension)) {
        throw std::invalid_argument(std::string("the picture needs a positive number under ") + key);
    }
    return static_cast<std::size_t>(number);
}

std::size_t ReadDepth(const PdfObject& dictionary)
{
    const PdfObject value = dictionary.Find("BitsPerComponent");
    const double number = value.IsNumber() ? value.GetNumber() : 0.0;
    return number >= 1.0 && number <= LargestDimension ? static_cast<std::size_t>(number) : 0;
}

std::vector<std::array<std::size_t, 2>> ReadColorKey(const PdfObject& dictionary,
                                                     std::vector<std::string>& problems)
{
    std::vector<std::array<std::size_t, 2>> key;
    const std::vector<double> numbers = ReadNumbers(dictionary, "Mask", problems);
    for (std::size_t index = 0; index + 1 < numbers.size(); index += 2) {
        if (!(numbers[index] >= 0.0 && numbers[index + 1] >= numbers[index] &&
              numbers[index + 1] <= 65535.0)) {
            problems.emplace_back("Mask has a range that is none of samples, and is left out");
            return {};
        }
        key.push_back(
            {static_cast<std::size_t>(numbers[index]), static_cast<std::size_t>(numbers[index + 1])});
    }
    return key;
}

/// The name of the file that a file specification, or the string that stands for one, leads to.
std::string ReadTarget(const PdfObject& specification)
{
    if (specification.IsString()) {
        return specification.GetText();
    }
    for (const char* const key : {"UF", "F"}) {
        if (specification.Find(key).IsString()) {
            return specification.Find(key).GetText();
        }
    }
    return {};
}

/// The proxy's original (ISO 32000-1, 14.11.7): the dictionary has one for each version.
boost::optional<OrvImg::PictureLink> ReadLink(const PdfObject& dictionary)
{
    const PdfObject versions = dictionary.Find("OPI");
    if (!versions.IsDictionary()) {
        return boost::none;
    }
    OrvImg::PictureLink link;
    link.definition = versions;
    for (const char* const version : {"2.0", "1.3"}) {
        if (link.uri.empty()) {
            link.uri = ReadTarget(versions.Find(version).Find("F"));
        }
    }
    if (link.definition == MakeOpiDictionary(link.uri)) {
        link.definition = PdfObject();
    }
    return link;
}

} // namespace

std::vector<double> ReadNumbers(const PdfObject& dictionary, const char* key,
                                std::vector<std::string>& problems)
{
    const PdfObject array = dictionary.Find(key);
    std::vector<double> numbers;
    if (!array.IsArray()) {
        return numbers;
    }
    for (const PdfObject& item : array.GetItems()) {
        if (!item.IsNumber()) {
            problems.push_back(std::string(key) + " has an element that is no number, and is left out");
            return {};
        }
        numbers.push_back(item.GetNumber());
    }
    return numbers;
}

PictureEntries ReadPictureEntries(const PdfObject& dictionary, std::vector<std::string>& problems)
{
    PictureEntries entries;
    entries.width = ReadDimension(dictionary, "Width");
    entries.height = ReadDimension(dictionary, "Height");
    entries.bits = ReadDepth(dictionary);
    const PdfObject stencil = dictionary.Find("ImageMask");
    entries.isStencil = stencil.IsBoolean() && stencil.GetBoolean();
    entries.decode = ReadNumbers(dictionary, "Decode", problems);
    const PdfObject intent = dictionary.Find("Intent");
    if (intent.IsName()) {
        entries.intent = OrvColor::FindRenderingIntent(intent.GetText());
        if (!entries.intent) {
            problems.push_back("Intent is none that there is: " + intent.GetText());
        }
    }
    entries.colorKey = ReadColorKey(dictionary, problems);
    const PdfObject inData = dictionary.Find("SMaskInData");
    if (inData.IsInteger() && inData.GetInteger() >= 0 && inData.GetInteger() <= 2) {
        entries.softMaskInData = static_cast<int>(inData.GetInteger());
    }
    const std::vector<double> dpi = ReadNumbers(dictionary, PictureKeys::dpi, problems);
    if (dpi.size() == 2) {
        entries.dpi = {dpi[0], dpi[1]};
    }
    entries.link = ReadLink(dictionary);
    return entries;
}

} // namespace OrvPdf
