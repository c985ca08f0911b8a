#include "pdf/writer/resources/resources_writer.h"

#include <orv_paint/pattern_paint.h>

#include "pdf/writer/content/property_list_index.h"
#include "pdf/writer/document/layer_objects.h"
#include "pdf/writer/file/object_maker.h"
#include "pdf/writer/fonts/fonts_writer.h"
#include "pdf/writer/pictures/picture_colors_writer.h"
#include "pdf/writer/pictures/picture_problems.h"
#include "pdf/writer/pictures/pictures_writer.h"
#include "pdf/writer/resources/nested_writer.h"

namespace OrvPdf
{

namespace
{

void ReplaceCategory(QPDFObjectHandle resources, const char* category, QPDFObjectHandle entries)
{
    if (entries.getKeys().empty()) {
        resources.removeKey(category);
    } else {
        resources.replaceKey(category, entries);
    }
}

} // namespace

QPDFObjectHandle ResourcesWriter::MakePropertyLists(const WrittenContent& content)
{
    QPDFObjectHandle lists = QPDFObjectHandle::newDictionary();
    for (std::size_t index = 0; index < content.layers.size(); ++index) {
        lists.replaceKey("/oc" + std::to_string(index), layers.GetMembership(content.layers[index]));
    }
    for (std::size_t index = 0; index < content.propertyLists.size(); ++index) {
        const OrvDoc::MarkedContent& mark = content.propertyLists[index];
        QPDFObjectHandle kept = maker.FindSourceObject(mark.resourceObject);
        lists.replaceKey("/mc" + std::to_string(index),
                         kept.isInitialized() && !kept.isNull() ? kept : maker.Make(GetPropertyList(mark)));
    }
    return lists;
}

void ResourcesWriter::NoteSeparations(const OrvColor::ColorSpace* space)
{
    for (; space; space = space->GetBase().get()) {
        NoteSeparations(space->GetColorantNames());
    }
}

void ResourcesWriter::NoteSeparations(const std::vector<std::string>& names)
{
    for (const std::string& name : names) {
        if (knownSeparations.insert(name).second) {
            namedSeparations.push_back(name);
        }
    }
}

// A mapping may name others than the channels do.
void ResourcesWriter::NoteSeparations(const OrvImg::PaintedPicture& picture)
{
    if (HasDefaultMapping(picture)) {
        return;
    }
    std::vector<std::string> names;
    for (const auto& entry : picture.GetChannelMapping(false).entries) {
        names.push_back(entry.name);
    }
    NoteSeparations(names);
}

QPDFObjectHandle ResourcesWriter::MakeColorSpaces(const WrittenContent& content)
{
    QPDFObjectHandle spaces = QPDFObjectHandle::newDictionary();
    for (std::size_t index = 0; index < content.colorSpaces.size(); ++index) {
        NoteSeparations(content.colorSpaces[index].get());
        spaces.replaceKey("/cs" + std::to_string(index),
                          maker.MakeShared(content.colorSpaces[index]->GetDefinition()));
    }
    return spaces;
}

QPDFObjectHandle ResourcesWriter::MakePatterns(const WrittenContent& content)
{
    QPDFObjectHandle patterns = QPDFObjectHandle::newDictionary();
    for (std::size_t index = 0; index < content.patterns.size(); ++index) {
        const WrittenPattern& pattern = content.patterns[index];
        if (pattern.shading) {
            NoteSeparations(pattern.shading->space.get());
        }
        const auto object =
            pattern.shading
                ? shadings.GetPattern(pattern)
                : nested.GetTiling(std::static_pointer_cast<const OrvPaint::PatternPaint>(pattern.paint));
        patterns.replaceKey("/p" + std::to_string(index), object);
    }
    return patterns;
}

QPDFObjectHandle ResourcesWriter::MakeFonts(const WrittenContent& content)
{
    QPDFObjectHandle objects = QPDFObjectHandle::newDictionary();
    for (std::size_t index = 0; index < content.fonts.size(); ++index) {
        objects.replaceKey("/f" + std::to_string(index), fonts.GetFont(content.fonts[index]));
    }
    return objects;
}

QPDFObjectHandle ResourcesWriter::MakeXObjects(const WrittenContent& content)
{
    QPDFObjectHandle objects = QPDFObjectHandle::newDictionary();
    for (std::size_t index = 0; index < content.forms.size(); ++index) {
        objects.replaceKey("/fm" + std::to_string(index), nested.GetForm(content.forms[index]));
    }
    for (std::size_t index = 0; index < content.pictures.size(); ++index) {
        const UsedPicture& picture = content.pictures[index];
        const auto& data = picture.painted ? picture.painted->GetPictureData(false) : picture.stencil;
        NoteSeparations(ListSeparations(*data->GetPictureSource()));
        if (picture.painted) {
            NoteSeparations(*picture.painted);
        }
        objects.replaceKey("/im" + std::to_string(index), pictures.Get(picture));
    }
    return objects;
}

QPDFObjectHandle ResourcesWriter::Make(const WrittenContent& content, QPDFObjectHandle before)
{
    QPDFObjectHandle resources =
        before.isDictionary() ? before.shallowCopy() : QPDFObjectHandle::newDictionary();
    ReplaceCategory(resources, "/ColorSpace", MakeColorSpaces(content));
    ReplaceCategory(resources, "/Pattern", MakePatterns(content));
    // The operator that names shadings is not written.
    resources.removeKey("/Shading");
    const QPDFObjectHandle states =
        MakeExtGStates(content.graphicsStates, content.transferFunctions, content.start, maker, nested);
    AddForeignParameters(states, content.foreignParameters, maker);
    ReplaceCategory(resources, "/ExtGState", states);
    ReplaceCategory(resources, "/Properties", MakePropertyLists(content));
    ReplaceCategory(resources, "/XObject", MakeXObjects(content));
    ReplaceCategory(resources, "/Font", MakeFonts(content));
    return resources;
}

} // namespace OrvPdf
