#include "pdf/reader/page_boxes.h"

#include "pdf/number_text.h"
#include "pdf/reader/qpdf_text.h"

namespace OrvPdf
{

namespace
{

using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

constexpr int PointToMilliPoint = 3;

Rectangle ReadBox(QPDFObjectHandle box, const char* key, std::vector<std::string>& problems)
{
    if (!box.isInitialized() || box.isNull())
        return {};
    if (!box.isArray()) {
        problems.push_back(std::string(key) + " is no array of four numbers");
        return {};
    }
    const int count = box.getArrayNItems();
    if (count != 4) {
        problems.push_back(std::string(key) + " has " + std::to_string(count) + " entries and not four");
        return {};
    }
    std::array<double, 4> numbers = {};
    for (int index = 0; index < count; ++index) {
        std::string text;
        if (!GetNumberText(box.getArrayItem(index), text) ||
            !ParseNumber(text, PointToMilliPoint, numbers[static_cast<std::size_t>(index)])) {
            problems.push_back("entry " + std::to_string(index + 1) + " of " + key + " is no number");
            return {};
        }
    }
    return Plexa::RectangleFromCorners<Plexa::MilliPointCoordinateSystem>({numbers[0], numbers[1]},
                                                                          {numbers[2], numbers[3]});
}

} // namespace

PageBoxes ReadPageBoxes(const PageEntry& page, std::vector<std::string>& problems)
{
    QPDFObjectHandle dictionary = page.dictionary;
    PageBoxes boxes;
    boxes[0] = ReadBox(page.entries.mediaBox, "MediaBox", problems);
    if (QPDFObjectHandle mediaBox = page.entries.mediaBox; !mediaBox.isInitialized() || mediaBox.isNull())
        problems.push_back("MediaBox is missing");
    boxes[1] = ReadBox(page.entries.cropBox, "CropBox", problems);
    boxes[2] = ReadBox(dictionary.getKey("/BleedBox"), "BleedBox", problems);
    boxes[3] = ReadBox(dictionary.getKey("/TrimBox"), "TrimBox", problems);
    boxes[4] = ReadBox(dictionary.getKey("/ArtBox"), "ArtBox", problems);
    return boxes;
}

} // namespace OrvPdf
