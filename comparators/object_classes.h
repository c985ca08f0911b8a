#pragma once

#include <orv_doc/content_object.h>

#include <cstdint>
#include <typeinfo>
#include <vector>

namespace HarrowSupport::Comparators
{

/// The kinds of object that the comparison tells apart. A class derived from one of these counts as its base.
enum class ObjectKind : std::uint8_t
{
    Group,
    Image,
    ImageMask,
    Path,
    Text,
    OtherStrokable, ///< strokable, but neither path nor text
    OtherFillable,  ///< fillable, but neither image mask nor strokable
    Other,          ///< nothing that the comparison knows
};

/// What the comparison has to know of a dynamic class.
struct ObjectClass
{
    ObjectKind kind;
    bool isPlainGroup;    ///< exactly OrvDoc::Group, not derived from it
    bool isTextGroup;     ///< OrvDoc::TextGroup or derived from it
    bool isBlendable;     ///< has a transparency
    bool isTransformable; ///< has a position
};

/// Classifies each dynamic class once by dynamic casts, which cost more than all the rest of an equal pair,
/// and answers from memory after that. Classes derived outside of the document library are welcome.
class ObjectClasses
{
public:
    ObjectClass Of(const OrvDoc::ContentObject& object)
    {
        const std::type_info* type = &typeid(object);
        for (const Entry& entry : known) {
            if (entry.type == type)
                return entry.objectClass;
        }
        return Classify(object, type);
    }

private:
    struct Entry
    {
        // An address, since one class that has several descriptions in a program may well have several
        // entries.
        const std::type_info* type;
        ObjectClass objectClass;
    };

    ObjectClass Classify(const OrvDoc::ContentObject& object, const std::type_info* type);

    std::vector<Entry> known;
};

} // namespace HarrowSupport::Comparators
