#include "pdf/writer/file/box_object.h"

#include <vector>

#include "pdf/writer/document/page_box_corners.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

QPDFObjectHandle MakeBoxObject(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& box)
{
    const auto corners = FindBoxCorners(box);
    if (!corners)
        return QPDFObjectHandle::newNull();
    std::vector<QPDFObjectHandle> items;
    for (const double number : {corners->left, corners->bottom, corners->right, corners->top})
        items.push_back(ObjectMaker::MakeLength(number));
    return QPDFObjectHandle::newArray(items);
}

} // namespace OrvPdf
