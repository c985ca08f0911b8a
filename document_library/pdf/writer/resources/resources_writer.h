#pragma once

#include <set>
#include <string>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/writer/content/content_writer.h"
#include "pdf/writer/resources/shading_writer.h"

namespace OrvPdf
{

class FontsWriter;
class LayerObjects;
class NestedWriter;
class ObjectMaker;
class PicturesWriter;

/// Makes the resource dictionaries of contents that are written anew (ISO 32000-1, 7.8.3).
class ResourcesWriter
{
public:
    ResourcesWriter(ObjectMaker& givenMaker, LayerObjects& givenLayers, NestedWriter& givenNested,
                    FontsWriter& givenFonts, PicturesWriter& givenPictures)
        : maker(givenMaker),
          layers(givenLayers),
          nested(givenNested),
          fonts(givenFonts),
          pictures(givenPictures),
          shadings(givenMaker)
    {}

    /// The resources of a content: those that `before` has, if it is a dictionary, with the categories
    /// replaced that the content's operators name.
    QPDFObjectHandle Make(const WrittenContent& content, QPDFObjectHandle before);

    /// The separations that the colour spaces of these contents, of their shadings and of their pictures
    /// name, in order of their first occurrence.
    const std::vector<std::string>& GetNamedSeparations() const { return namedSeparations; }

private:
    void NoteSeparations(const OrvColor::ColorSpace* space);
    void NoteSeparations(const std::vector<std::string>& names);
    void NoteSeparations(const OrvImg::PaintedPicture& picture);
    QPDFObjectHandle MakeColorSpaces(const WrittenContent& content);
    QPDFObjectHandle MakePatterns(const WrittenContent& content);
    QPDFObjectHandle MakePropertyLists(const WrittenContent& content);
    QPDFObjectHandle MakeFonts(const WrittenContent& content);
    QPDFObjectHandle MakeXObjects(const WrittenContent& content);

    ObjectMaker& maker;
    LayerObjects& layers;
    NestedWriter& nested;
    FontsWriter& fonts;
    PicturesWriter& pictures;
    ShadingWriter shadings;
    std::vector<std::string> namedSeparations;
    std::set<std::string> knownSeparations;
};

} // namespace OrvPdf
