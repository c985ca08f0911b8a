#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <orv_doc/content.h>
#include <orv_doc/content_object.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_doc/layer.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/layers.h>
#include <orv_doc/marked_content.h>
#include <orv_doc/path.h>
#include <orv_doc/read_options.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>
#include <orv_font/font.h>
#include <orv_paint/flat_paint.h>
#include <plexa/compound.h>

#include "orv_font/font_source.h"
#include "pdf/number_text.h"
#include "pdf/reader/content/content_interpreter.h"
#include "pdf/reader/content/content_resources.h"

/// Content streams to objects in a line, and the objects as a text of one line.
namespace OrvPdf::Testing
{

/// Codes of one byte, all with one advance, none with an outline.
class PlainFontSource : public OrvFont::Detail::FontSource
{
public:
    explicit PlainFontSource(double givenAdvance) : advance(givenAdvance) {}

    std::shared_ptr<const Plexa::Compound> MakeOutline(const OrvFont::Character&) const override
    {
        return nullptr;
    }
    double GetAdvance(const OrvFont::Character&) const override { return advance; }
    bool FindCharacter(char32_t, OrvFont::Character&) const override { return false; }
    void Decode(std::string_view bytes, std::vector<OrvFont::Character>& characters) const override
    {
        for (const char byte : bytes) {
            const auto code = static_cast<unsigned char>(byte);
            characters.push_back({code, code, 1});
        }
    }

private:
    double advance;
};

inline std::shared_ptr<const OrvFont::Font>
MakePlainFont(const std::string& name, OrvFont::WritingMode mode = OrvFont::WritingMode::Horizontal,
              double advance = 500.0)
{
    return std::make_shared<const OrvFont::Font>(OrvFont::Font::Names{name, name, "Regular"},
                                                 OrvFont::Font::Rectangle(), mode,
                                                 std::make_unique<PlainFontSource>(advance));
}

/// Resources that a test lists. The device spaces and `Pattern` are always there.
class FakeResources : public ContentResources
{
public:
    std::map<std::string, OrvColor::ColorSpace::Pointer> spaces{
        {"DeviceGray", OrvColor::ColorSpace::DeviceGray()},
        {"DeviceRGB", OrvColor::ColorSpace::DeviceRGB()},
        {"DeviceCMYK", OrvColor::ColorSpace::DeviceCMYK()},
        {"Pattern", OrvColor::ColorSpace::Pattern()}};
    std::map<std::string, OrvSys::PdfObject> states;
    std::map<std::string, std::shared_ptr<const Pattern>> patterns;
    std::map<std::string, std::shared_ptr<const ShadingResource>> shadings;
    /// `F` and `G` have codes of one byte and advances of 500; `V` is written vertically with advances of
    /// -1000.
    std::map<std::string, std::shared_ptr<const OrvFont::Font>> fonts{
        {"F", MakePlainFont("F")},
        {"G", MakePlainFont("G")},
        {"V", MakePlainFont("V", OrvFont::WritingMode::Vertical, -1000.0)}};
    /// By the names of states.
    std::map<std::string, SizedFont> stateFonts;
    std::map<std::string, PropertyList> lists;
    std::map<std::string, XObject> xObjects;
    std::map<std::string, std::shared_ptr<MaskDefinition>> masks;
    /// Problems that come with a resource that is found.
    std::map<std::string, std::string> warnings;
    std::size_t lookups = 0;

    OrvColor::ColorSpace::Pointer FindColorSpace(const std::string& name, std::string& problem) override
    {
        return Find(spaces, name, problem);
    }

    OrvSys::PdfObject FindGraphicsState(const std::string& name, std::string& problem) override
    {
        return Find(states, name, problem);
    }

    std::shared_ptr<const Pattern> FindPattern(const std::string& name, std::string& problem) override
    {
        return Find(patterns, name, problem);
    }

    std::shared_ptr<const ShadingResource> FindShading(const std::string& name, std::string& problem) override
    {
        return Find(shadings, name, problem);
    }

    std::shared_ptr<const OrvFont::Font> FindFont(const std::string& name, std::string& problem) override
    {
        return Find(fonts, name, problem);
    }

    SizedFont FindFontOfState(const std::string& state, std::string& problem) override
    {
        return Find(stateFonts, state, problem);
    }

    bool HasGlyphContents(const OrvFont::Font&) override { return false; }

    std::shared_ptr<FormDefinition> FindGlyph(const std::shared_ptr<const OrvFont::Font>&,
                                              const OrvFont::Character&, std::string&) override
    {
        return nullptr;
    }

    boost::optional<PropertyList> FindPropertyList(const std::string& name, std::string& problem) override
    {
        const auto found = lists.find(name);
        Find(lists, name, problem);
        return found == lists.end() ? boost::none : boost::make_optional(found->second);
    }

    XObject FindXObject(const std::string& name, std::string& problem) override
    {
        return Find(xObjects, name, problem);
    }

    /// There are none: tests of inline images read files.
    std::shared_ptr<PictureResource> ReadInlinePicture(const OrvSys::PdfObject&,
                                                       const OrvColor::ColorSpace::Pointer&,
                                                       std::string& problem) override
    {
        problem = "there are no pictures here";
        return nullptr;
    }

    std::shared_ptr<MaskDefinition> FindMask(const std::string& state, std::string& problem) override
    {
        return Find(masks, state, problem);
    }

private:
    template <typename Value>
    Value Find(const std::map<std::string, Value>& resources, const std::string& name, std::string& problem)
    {
        ++lookups;
        const auto warning = warnings.find(name);
        problem = warning == warnings.end() ? "" : warning->second;
        const auto found = resources.find(name);
        if (found == resources.end()) {
            problem = "it is missing";
            return Value();
        }
        return found->second;
    }
};

/// What one content stream gave.
struct Reading
{
    std::unique_ptr<OrvDoc::Document> document = OrvDoc::Document::CreateNew();
    FakeResources resources;
    OrvDoc::ReadOptions::Limits limits;
    /// What is seen of the content.
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> box{0.0, 0.0, 100000.0, 50000.0};
    std::unique_ptr<OrvDoc::Content> content;
    Interpretation result;

    void Read(std::string_view stream)
    {
        content = std::make_unique<OrvDoc::Content>(*document, OrvDoc::Content::Type::PageContent);
        result = InterpretContent(stream, resources, limits, *content, {nullptr, box, {}});
    }

    /// A layer of the document, as a property list of that resource name.
    std::shared_ptr<OrvDoc::LayerProperties> AddLayer(const std::string& resource, const std::string& name)
    {
        const auto layer = document->GetLayers().AddLayer(name);
        ContentResources::PropertyList list;
        list.layer = OrvDoc::Layer::Membership(layer);
        resources.lists[resource] = list;
        return layer;
    }
};

inline std::string ShortNumber(double value)
{
    std::string text;
    AppendNumber(text, value, 0);
    return text;
}

/// `{M 0 0 L 10 0 Z}` in milli-points, with a star in front for the even-odd rule.
inline std::string ShapeText(const Plexa::Compound& compound)
{
    std::string text = compound.GetWindingRule() == Plexa::WindingRule::EvenOdd ? "*{" : "{";
    const auto add = [&text](const std::string& word) { text += (text.back() == '{' ? "" : " ") + word; };
    const auto addPoint = [&](const char* kind, const auto& point) {
        add(kind + ShortNumber(point.x.value) + " " + ShortNumber(point.y.value));
    };
    for (const auto& subpath : compound.GetSubpaths()) {
        addPoint("M ", subpath->GetStart());
        for (const auto& segment : subpath->GetDrawnSegments()) {
            if (segment.IsBezier()) {
                addPoint("C ", segment.GetFirstControlPoint());
                addPoint("", segment.GetSecondControlPoint());
            }
            addPoint(segment.IsBezier() ? "" : "L ", segment.GetEnd());
        }
        if (subpath->IsClosed())
            add("Z");
    }
    return text + "}";
}

/// The space with the components as the file gave them: `Gray 0`, `CMYK 0 0 0 1 overprint nonzero`.
inline std::string PaintText(const std::shared_ptr<const OrvPaint::Paint>& paint)
{
    const auto* const flat = dynamic_cast<const OrvPaint::FlatPaint*>(paint.get());
    if (!flat || !flat->GetNativeSpace())
        return "?";
    const OrvSys::PdfObject& definition = flat->GetNativeSpace()->GetDefinition();
    std::string text = definition.IsName() ? definition.GetText() : definition.GetItems()[0].GetText();
    if (text.compare(0, 6, "Device") == 0 && text != "DeviceN")
        text.erase(0, 6);
    if (definition.IsArray() && !flat->GetNativeSpace()->GetColorantNames().empty())
        text = flat->GetNativeSpace()->GetColorantNames()[0];
    for (const float component : flat->GetNativeComponents()) {
        text += ' ';
        AppendFloat(text, component);
    }
    text += flat->GetColor().overprint ? " overprint" : "";
    text += flat->IsNonzeroOverprint() ? " nonzero" : "";
    return text;
}

/// What differs from the defaults, such as ` width 2000 cap 1 dash 3000 1000 from 500`.
inline std::string StrokeText(const OrvDoc::StrokeProperties& stroke)
{
    const OrvDoc::StrokeProperties defaults;
    std::string text;
    if (stroke.width != defaults.width)
        text += " width " + ShortNumber(stroke.width);
    if (stroke.cap != defaults.cap)
        text += " cap " + std::to_string(static_cast<int>(stroke.cap));
    if (stroke.join != defaults.join)
        text += " join " + std::to_string(static_cast<int>(stroke.join));
    if (stroke.miterLimit != defaults.miterLimit)
        text += " miter " + ShortNumber(stroke.miterLimit);
    if (!stroke.dashArray.empty())
        text += " dash";
    for (const double dash : stroke.dashArray)
        text += " " + ShortNumber(dash);
    if (stroke.dashPhase != 0.0)
        text += " from " + ShortNumber(stroke.dashPhase);
    return text;
}

/// Name, transformation and the like, as far as they aren't the initial ones.
inline std::string CommonText(const OrvDoc::Transformable& object)
{
    std::string text;
    if (!object.GetName().empty())
        text += " '" + object.GetName() + "'";
    const auto& t = object.GetTransformation();
    if (!Plexa::IsIdentity(t)) {
        for (const double number : {t.a, t.b, t.c, t.d, t.x.value, t.y.value})
            text += (number == t.a && text.find('@') == std::string::npos ? " @" : ",") + ShortNumber(number);
    }
    if (object.IsClippingObject())
        text += " clip";
    return text;
}

inline std::string TreeText(const OrvDoc::Detail::List<OrvDoc::ContentObject>& objects);

inline std::string GroupText(const OrvDoc::Group& group)
{
    std::string text = "group";
    if (dynamic_cast<const OrvDoc::TextGroup*>(&group))
        text = "text";
    else if (dynamic_cast<const OrvDoc::Layer*>(&group))
        text = "layer";
    text += CommonText(group);
    if (group.GetFlags() != OrvDoc::Group::Flags::Default)
        text += " #" + std::to_string(static_cast<std::uint32_t>(group.GetFlags()));
    if (const OrvDoc::MarkedContent* const mark = group.GetMarkedContent()) {
        text += (mark->isPoint ? " point /" : " /") + mark->tag;
        text += mark->properties.IsNull() ? "" : " " + mark->properties.Serialize();
        text += mark->resource.IsNull() ? "" : " = " + mark->resource.Serialize();
        text += mark->resourceObject == 0 ? "" : " object " + std::to_string(mark->resourceObject);
    }
    return text + "[" + TreeText(group.children) + "]";
}

/// Codes and steps: `(A back 120 B move 0 -12 C)`.
inline std::string ShownTextOf(const OrvDoc::ShownText& shown)
{
    static const char* const words[] = {"back", "move", "line", "turn", "scale", "rise"};
    std::string text;
    const auto add = [&text](const std::string& word) { text += (text.empty() ? "" : " ") + word; };
    std::size_t position = 0;
    const double* value = shown.GetValues().data();
    for (const auto& step : shown.GetSteps()) {
        if (step.position > position)
            add(shown.GetCodes().substr(position, step.position - position));
        position = step.position;
        add(words[static_cast<std::size_t>(step.kind)]);
        for (std::size_t left = OrvDoc::ShownText::CountValues(step.kind); left > 0; --left)
            add(ShortNumber(*value++));
    }
    if (position < shown.GetCodes().size())
        add(shown.GetCodes().substr(position));
    return "(" + text + ")";
}

/// `F 12 (AB) at 1,0,0,1,0,0 fill Gray 0`; the matrix is left out if it is the identity.
inline std::string TextText(const OrvDoc::Text& object)
{
    std::string text = object.GetFont()->GetName() + " " + ShortNumber(object.GetSize());
    text += CommonText(object);
    if (object.GetCharSpacing().value != 0.0)
        text += " spaced " + ShortNumber(object.GetCharSpacing().value);
    if (object.GetWordSpacing().value != 0.0)
        text += " words " + ShortNumber(object.GetWordSpacing().value);
    text += " " + ShownTextOf(*object.GetShownText());
    const auto& t = object.GetTextTransformation();
    if (!Plexa::IsIdentity(t)) {
        text += " at ";
        for (const double number : {t.a, t.b, t.c, t.d, t.x.value, t.y.value})
            text += (text.back() == ' ' ? "" : ",") + ShortNumber(number);
    }
    if (object.GetFillPaint())
        text += " fill " + PaintText(object.GetFillPaint());
    if (object.GetStrokePaint())
        text += " stroke " + PaintText(object.GetStrokePaint());
    return text + StrokeText(object.GetStrokeProperties());
}

inline std::string ObjectText(const OrvDoc::ContentObject& object)
{
    if (const auto* const group = dynamic_cast<const OrvDoc::Group*>(&object))
        return GroupText(*group);
    if (const auto* const text = dynamic_cast<const OrvDoc::Text*>(&object))
        return TextText(*text);
    const auto* const path = dynamic_cast<const OrvDoc::Path*>(&object);
    if (!path)
        return "?";
    std::string text = "path" + CommonText(*path) + " " + ShapeText(*path->DefiningCompound());
    if (path->GetFillPaint())
        text += " fill " + PaintText(path->GetFillPaint());
    if (path->GetStrokePaint())
        text += " stroke " + PaintText(path->GetStrokePaint());
    return text + StrokeText(path->GetStrokeProperties());
}

/// The objects of a container in paint order, separated by `; `.
inline std::string TreeText(const OrvDoc::Detail::List<OrvDoc::ContentObject>& objects)
{
    std::string text;
    for (const OrvDoc::ContentObject* object = objects.first; object; object = object->next)
        text += (object == objects.first ? "" : "; ") + ObjectText(*object);
    return text;
}

/// The objects of what was read.
inline std::string Tree(const Reading& reading)
{
    return TreeText(std::as_const(*reading.content).GetChildren());
}

/// The objects of a stream that needs no resources. The errors follow behind a bar, so that none goes unseen.
inline std::string Tree(std::string_view stream)
{
    Reading reading;
    reading.Read(stream);
    std::string text = Tree(reading);
    for (const std::string& error : reading.result.errors)
        text += " | " + error;
    return text;
}

/// The parts of a stream that count as damaged, as texts, in order, separated by `|`.
inline std::string DamagedText(std::string_view stream)
{
    Reading reading;
    reading.Read(stream);
    std::string text;
    for (const ByteRange& range : reading.result.damaged)
        text += (text.empty() ? "" : "|") + std::string(stream.substr(range.begin, range.end - range.begin));
    return text;
}

} // namespace OrvPdf::Testing
