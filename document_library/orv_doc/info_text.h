#pragma once

#include <cstddef>
#include <string>

namespace OrvPaint
{
class Paint;
}

namespace OrvDoc
{

class Blendable;
class Fillable;
class Group;

namespace Detail
{

/// The properties of one item as a dump shows them: parts with commas between. What has its default is left
/// out.
class InfoText
{
public:
    InfoText& Add(const std::string& part);
    InfoText& AddCount(std::size_t count, const char* noun);
    /// `label "name"`; nothing for an empty name.
    InfoText& AddQuoted(const char* label, const std::string& value);
    /// The type, then a flat paint's or uncoloured pattern's colour, a shading's separations, a pattern's or
    /// form's content by its ID; nothing for a null pointer.
    InfoText& AddPaint(const char* label, const OrvPaint::Paint* paint);
    /// Name, transformation and transparency.
    InfoText& AddObject(const Blendable& object);
    /// Number of children, mark of the user, marked content.
    InfoText& AddGroup(const Group& group);

    const std::string& Get() const { return text; }

private:
    /// Begins a part.
    std::string& Begin();

    std::string text;
};

} // namespace Detail
} // namespace OrvDoc
