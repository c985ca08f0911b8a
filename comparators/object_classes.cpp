#include "object_classes.h"

#include <orv_doc/group.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/path.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>

namespace HarrowSupport::Comparators
{

namespace
{

template <typename Class>
bool Is(const OrvDoc::ContentObject& object)
{
    return dynamic_cast<const Class*>(&object) != nullptr;
}

ObjectKind KindOf(const OrvDoc::ContentObject& object)
{
    if (Is<OrvDoc::Group>(object))
        return ObjectKind::Group;
    if (Is<OrvDoc::Image>(object))
        return ObjectKind::Image;
    if (!Is<OrvDoc::Fillable>(object))
        return ObjectKind::Other;
    if (Is<OrvDoc::ImageMask>(object))
        return ObjectKind::ImageMask;
    if (Is<OrvDoc::Path>(object))
        return ObjectKind::Path;
    if (Is<OrvDoc::Text>(object))
        return ObjectKind::Text;
    return Is<OrvDoc::Strokable>(object) ? ObjectKind::OtherStrokable : ObjectKind::OtherFillable;
}

} // namespace

ObjectClass ObjectClasses::Classify(const OrvDoc::ContentObject& object, const std::type_info* type)
{
    ObjectClass result{};
    result.kind = KindOf(object);
    result.isPlainGroup = *type == typeid(OrvDoc::Group);
    result.isTextGroup = Is<OrvDoc::TextGroup>(object);
    result.isBlendable = Is<OrvDoc::Blendable>(object);
    result.isTransformable = Is<OrvDoc::Transformable>(object);
    known.push_back({type, result});
    return result;
}

} // namespace HarrowSupport::Comparators
