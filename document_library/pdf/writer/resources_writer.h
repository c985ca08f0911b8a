#pragma once

#include <set>
#include <string>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/writer/content_writer.h"
#include "pdf/writer/shading_writer.h"

namespace OrvPdf
{

class FontsWriter;
class LayerObjects;
class NestedWriter;
class ObjectMaker;

/// Makes the resource dictionaries of contents that are written anew (ISO 32000-1, 7.8.3).
class ResourcesWriter
{
public:
    ResourcesWriter(ObjectMaker& givenMaker, LayerObjects& givenLayers, NestedWriter& givenNested,
                    FontsWriter& givenFonts)
        : maker(givenMaker), layers(givenLayers), nested(givenNested), fonts(givenFonts), shadings(givenMaker)
    {}

    /// The resources of a content: those that `before` has, if it is a dictionary, with the categories
    /// replaced that the content's operators name.
    QPDFObjectHandle Make(const WrittenContent& content, QPDFObjectHandle before);

    /// The separations that the colour spaces of these contents and of their shadings name, in order of their
    /// first occurrence.
    const std::vector<std::string>& GetNamedSeparations() const { return namedSeparations; }

private:
    void NoteSeparations(const OrvColor::ColorSpace* space);
    QPDFObjectHandle MakeColorSpaces(const WrittenContent& content);
    QPDFObjectHandle MakePatterns(const WrittenContent& content);
    QPDFObjectHandle MakePropertyLists(const WrittenContent& content);
    QPDFObjectHandle MakeFonts(const WrittenContent& content);

    ObjectMaker& maker;
    LayerObjects& layers;
    NestedWriter& nested;
    FontsWriter& fonts;
    ShadingWriter shadings;
    std::vector<std::string> namedSeparations;
    std::set<std::string> knownSeparations;
};

} // namespace OrvPdf
