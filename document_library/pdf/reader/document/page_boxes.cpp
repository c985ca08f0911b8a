#include "pdf/reader/document/page_boxes.h"

#include "pdf/reader/resources/geometry_reader.h"

namespace OrvPdf
{

PageBoxes ReadPageBoxes(const PageEntry& page, std::vector<std::string>& problems)
{
    QPDFObjectHandle dictionary = page.dictionary;
    PageBoxes boxes;
    boxes[0] = ReadRectangle(page.entries.mediaBox, "MediaBox", problems);
    if (QPDFObjectHandle mediaBox = page.entries.mediaBox; !mediaBox.isInitialized() || mediaBox.isNull())
        problems.push_back("MediaBox is missing");
    boxes[1] = ReadRectangle(page.entries.cropBox, "CropBox", problems);
    boxes[2] = ReadRectangle(dictionary.getKey("/BleedBox"), "BleedBox", problems);
    boxes[3] = ReadRectangle(dictionary.getKey("/TrimBox"), "TrimBox", problems);
    boxes[4] = ReadRectangle(dictionary.getKey("/ArtBox"), "ArtBox", problems);
    return boxes;
}

} // namespace OrvPdf
