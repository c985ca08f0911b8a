#include <vector>

#include <orv_doc/group.h>

#include "orv_doc/group_class.h"

namespace OrvDoc
{

using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

Rectangle Group::GetBoundingBoxSelf(BoxKind kind, const Transformation& transformation) const
{
    struct Level
    {
        const ContentObject* next;
        Transformation outer;
    };
    Rectangle box;
    std::vector<Level> levels{{children.first, transformation}};
    while (!levels.empty()) {
        Level& level = levels.back();
        const ContentObject* const object = level.next;
        if (!object) {
            levels.pop_back();
            continue;
        }
        level.next = object->next;
        if (object->IsClippingObject())
            continue;
        Transformation full = level.outer;
        if (const auto* transformable = dynamic_cast<const Transformable*>(object))
            full = Plexa::Concatenate(transformable->GetTransformation(), full);
        if (Detail::GetGroupClass(*object) != Detail::GroupClass::None)
            levels.push_back({static_cast<const Group*>(object)->children.first, full});
        else
            box = Plexa::Union(box, object->GetBoundingBoxSelf(kind, full));
    }
    return box;
}

} // namespace OrvDoc
