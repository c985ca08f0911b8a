#pragma once

#include <orv_doc/group.h>
#include <orv_doc/path.h>
#include <orv_doc/strokable.h>
#include <orv_doc/text_group.h>

#include <stdexcept>
#include <string>
#include <utility>

/// Classes of content objects that the document library doesn't have, such as a program may derive.
namespace HarrowSupport::Testing
{

/// Gives an abstract class of the tree the operations that it lacks. None of them is for use.
template <typename Base>
class ForeignObject : public Base
{
public:
    OrvDoc::ContentObject* Clone(OrvDoc::CloneStrategy&) const override
    {
        throw std::logic_error("A foreign object is not cloned.");
    }
    std::pair<std::string, std::string> DumpInfo() const override { return {"foreign", std::string()}; }
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>
    GetBoundingBoxSelf(OrvDoc::BoxKind,
                       const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>&) const override
    {
        return {};
    }
    void Accept(OrvDoc::ConstVisitorBase&) const override {}
    void Accept(OrvDoc::VisitorBase&) override {}

protected:
    void OriginalOutlineChangedSelf() override {}
    void TransformationChangedSelf(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>&,
                                   OrvDoc::TransformationMode) override
    {}
    void ClippingObjectChangedSelf() override {}
};

/// Neither a group nor anything that can be painted.
class UnknownObject : public ForeignObject<OrvDoc::ContentObject>
{};

/// Can be filled, but is neither image mask nor strokable.
class UnknownFillable : public ForeignObject<OrvDoc::Fillable>
{};

/// Can be stroked, but is neither path nor text.
class UnknownStrokable : public ForeignObject<OrvDoc::Strokable>
{
protected:
    void StrokePropertiesChangedSelf() override {}
};

/// A path of another class.
class ForeignPath : public OrvDoc::Path
{
public:
    using OrvDoc::Path::Path;
};

/// A group of another class.
class ForeignGroup : public OrvDoc::Group
{
public:
    using OrvDoc::Group::Group;
};

/// A text group of another class.
class ForeignTextGroup : public OrvDoc::TextGroup
{};

} // namespace HarrowSupport::Testing
