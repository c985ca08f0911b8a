#include "orv_doc/info_text.h"

#include <cstdint>
#include <sstream>

#include <orv_blend/transparency.h>
#include <orv_doc/content.h>
#include <orv_doc/group.h>
#include <orv_doc/marked_content.h>
#include <orv_paint/flat_paint.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/pattern_paint.h>
#include <orv_paint/shading_paint.h>

#include "orv_doc/text_form.h"

namespace OrvDoc::Detail
{

namespace
{

/// The text that the stream operator of an enumeration writes.
template <typename Enumeration>
std::string GetName(Enumeration value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

void AppendColor(std::string& text, const OrvColor::ColorList<OrvColor::ColorPolicy>& color)
{
    text += '(';
    const char* separator = "";
    const auto append = [&](const std::string& name, float tint) {
        text += separator + name + ' ';
        AppendNumber(text, tint);
        separator = ", ";
    };
    if (color.all)
        append("All", color.valueForAll);
    for (const auto& entry : color.entries)
        append(entry.name, entry.value);
    text += ')';
    if (color.overprint)
        text += " overprint";
}

void AppendMapping(std::string& text, const OrvColor::ColorList<OrvColor::SeparationMappingPolicy>& mapping)
{
    text += mapping.all ? "(All" : "(";
    const char* separator = "";
    for (const auto& entry : mapping.entries) {
        text += separator + entry.name;
        separator = ", ";
    }
    text += ')';
    if (mapping.overprint)
        text += " overprint";
}

/// The ID shows which objects draw with one and the same content.
void AppendContent(std::string& text, const Content& content)
{
    text += "(content #" + std::to_string(content.GetID()) + ')';
}

void AppendPaint(std::string& text, const OrvPaint::Paint& paint)
{
    using Type = OrvPaint::Paint::Type;
    text += GetName(paint.GetType());
    switch (paint.GetType()) {
    case Type::Flat:
        AppendColor(text, static_cast<const OrvPaint::FlatPaint&>(paint).GetColor());
        break;
    case Type::AxialShading:
    case Type::RadialShading:
    case Type::OtherShading:
        AppendMapping(text, static_cast<const OrvPaint::ShadingPaint&>(paint).GetSeparationMapping());
        break;
    case Type::TilingPattern: {
        const auto& pattern = static_cast<const OrvPaint::PatternPaint&>(paint);
        if (pattern.GetColor())
            AppendColor(text, *pattern.GetColor());
        AppendContent(text, pattern.GetContent());
        break;
    }
    case Type::Form:
        AppendContent(text, static_cast<const OrvPaint::FormPaint&>(paint).GetContent());
        break;
    }
}

void AppendTransparency(std::string& text, const OrvBlend::Transparency& transparency)
{
    text += "transparency " + GetName(transparency.blendMode) + " ";
    AppendNumber(text, static_cast<float>(transparency.fillAlpha));
    text += '/';
    AppendNumber(text, static_cast<float>(transparency.strokeAlpha));
    if (transparency.isolated)
        text += " isolated";
    if (transparency.knockout)
        text += " knockout";
    if (transparency.alphaIsShape)
        text += " alpha is shape";
    if (transparency.softMask)
        text += " with soft mask";
}

} // namespace

std::string& InfoText::Begin()
{
    if (!text.empty())
        text += ", ";
    return text;
}

InfoText& InfoText::Add(const std::string& part)
{
    Begin() += part;
    return *this;
}

InfoText& InfoText::AddCount(std::size_t count, const char* noun)
{
    AppendCount(Begin(), count, noun);
    return *this;
}

InfoText& InfoText::AddQuoted(const char* label, const std::string& value)
{
    if (value.empty())
        return *this;
    Begin() += label;
    text += ' ';
    AppendQuoted(text, value);
    return *this;
}

InfoText& InfoText::AddPaint(const char* label, const OrvPaint::Paint* paint)
{
    if (!paint)
        return *this;
    Begin() += std::string(label) + ' ';
    AppendPaint(text, *paint);
    return *this;
}

InfoText& InfoText::AddObject(const Blendable& object)
{
    AddQuoted("name", object.ContentObject::GetName());
    if (!Plexa::IsIdentity(object.GetTransformation())) {
        Begin() += "transformation ";
        AppendTransformation(text, object.GetTransformation());
    }
    if (object.GetTransparency())
        AppendTransparency(Begin(), *object.GetTransparency());
    return *this;
}

InfoText& InfoText::AddGroup(const Group& group)
{
    std::size_t count = 0;
    for (const ContentObject* child = group.children.first; child; child = child->next)
        ++count;
    Add(std::to_string(count) + (count == 1 ? " child" : " children"));
    const auto flags = static_cast<std::uint32_t>(group.GetFlags());
    if ((flags & static_cast<std::uint32_t>(Group::Flags::UserCreated)) != 0)
        Add("user created");
    if (group.IsClippingObject())
        Add("clipping");
    if (const MarkedContent* const markedContent = group.GetMarkedContent())
        AddQuoted("marked content", markedContent->tag);
    return *this;
}

} // namespace OrvDoc::Detail
