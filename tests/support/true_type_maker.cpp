#include "support/true_type_maker.h"

#include <algorithm>

namespace HarrowSupport::Testing
{

namespace
{

struct Box
{
    int left = 0;
    int bottom = 0;
    int right = 0;
    int top = 0;
};

Box BoxOf(const MadeTrueTypeGlyph& glyph)
{
    Box box;
    bool isFirst = true;
    for (const auto& contour : glyph.contours) {
        for (const MadePoint& point : contour) {
            box.left = isFirst ? point.x : std::min(box.left, point.x);
            box.bottom = isFirst ? point.y : std::min(box.bottom, point.y);
            box.right = isFirst ? point.x : std::max(box.right, point.x);
            box.top = isFirst ? point.y : std::max(box.top, point.y);
            isFirst = false;
        }
    }
    return box;
}

std::string MakeComposite(const MadeTrueTypeGlyph& glyph)
{
    constexpr int wordsThatAreOffsets = 0x0003;
    constexpr int moreToCome = 0x0020;
    FontBytes bytes;
    bytes.Add16(-1).Add16(0).Add16(0).Add16(0).Add16(0);
    for (const MadeComponent& component : glyph.components) {
        const bool isLast = &component == &glyph.components.back();
        bytes.Add16(isLast ? wordsThatAreOffsets : wordsThatAreOffsets | moreToCome);
        bytes.Add16(component.glyph).Add16(component.x).Add16(component.y);
    }
    return bytes.text;
}

std::string MakeGlyph(const MadeTrueTypeGlyph& glyph)
{
    if (!glyph.components.empty())
        return MakeComposite(glyph);
    if (glyph.contours.empty())
        return {};
    const Box box = BoxOf(glyph);
    FontBytes bytes;
    bytes.Add16(static_cast<int>(glyph.contours.size()));
    bytes.Add16(box.left).Add16(box.bottom).Add16(box.right).Add16(box.top);
    int last = -1;
    for (const auto& contour : glyph.contours)
        bytes.Add16(last += static_cast<int>(contour.size()));
    bytes.Add16(0);
    FontBytes across;
    FontBytes upwards;
    MadePoint current;
    for (const auto& contour : glyph.contours) {
        for (const MadePoint& point : contour) {
            bytes.Add8(point.isOnCurve ? 1 : 0);
            across.Add16(point.x - current.x);
            upwards.Add16(point.y - current.y);
            current = point;
        }
    }
    bytes.AddText(across.text + upwards.text);
    return bytes.AddText(std::string(bytes.text.size() % 2, '\0')).text;
}

} // namespace

FontTables MakeTrueTypeTables(const std::vector<MadeTrueTypeGlyph>& glyphs, int unitsPerEm)
{
    FontBytes data;
    FontBytes offsets;
    FontBytes metrics;
    Box all;
    offsets.Add32(0);
    for (const MadeTrueTypeGlyph& glyph : glyphs) {
        const Box box = BoxOf(glyph);
        all = {std::min(all.left, box.left), std::min(all.bottom, box.bottom), std::max(all.right, box.right),
               std::max(all.top, box.top)};
        data.AddText(MakeGlyph(glyph));
        offsets.Add32(static_cast<std::int64_t>(data.text.size()));
        metrics.Add16(glyph.advance).Add16(box.left);
    }
    const auto count = static_cast<std::int64_t>(glyphs.size());

    FontBytes head;
    head.Add32(0x10000).Add32(0x10000).Add32(0).Add32(0x5F0F3CF5).Add16(3).Add16(unitsPerEm);
    head.Add32(0).Add32(0).Add32(0).Add32(0);
    head.Add16(all.left).Add16(all.bottom).Add16(all.right).Add16(all.top);
    head.Add16(0).Add16(8).Add16(2).Add16(1).Add16(0);

    FontBytes header;
    header.Add32(0x10000).Add16(800).Add16(-200).Add16(0).Add16(unitsPerEm);
    header.AddText(std::string(22, '\0')).Add16(count);

    FontBytes limits;
    limits.Add32(0x10000).Add16(count).Add16(1000).Add16(1000).Add16(1000).Add16(1000).Add16(2);
    limits.AddText(std::string(12, '\0')).Add16(100).Add16(5);

    return {{"head", head.text},   {"hhea", header.text},  {"hmtx", metrics.text},
            {"maxp", limits.text}, {"loca", offsets.text}, {"glyf", data.text}};
}

std::string JoinTrueType(const FontTables& tables)
{
    return JoinTables(std::string("\0\1\0\0", 4), tables);
}

} // namespace HarrowSupport::Testing
