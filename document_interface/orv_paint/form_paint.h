#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <utility>

#include <boost/filesystem/path.hpp>
#include <boost/optional.hpp>

#include <orv_color/color_list.h>
#include <orv_paint/paint.h>
#include <orv_sys/export.h>
#include <plexa/coordinate_systems.h>
#include <plexa/rectangle.h>
#include <plexa/transformation.h>

namespace OrvDoc
{
class Content;
}

namespace OrvPaint
{

/// A drawing that is painted as a unit and may be used many times (ISO 32000-1, 8.10). An object with a form
/// is a path with the outline of the form's box, filled with this paint: the path's transformation places it.
class ORV_EXPORT FormPaint : public Paint
{
public:
    class Factory;

    /// How far the same unique ID means the same form.
    enum class Scope : std::uint32_t
    {
        Unknown = 0,
        SingleUse = 1,
        Record = 2,
        File = 3,
        Stream = 4,
        Global = 5
    };

    ~FormPaint() override;

    /// A form has its colours in its objects: no names.
    OrvColor::ColorList<OrvColor::ColorantPolicy> GetColorants() const override;

    /// From the form's coordinates to those of the object that is filled with it.
    const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& GetFormTransformation() const
    {
        return fields.transformation;
    }

    /// What is seen of the form, in the form's coordinates.
    const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& GetFormBBox() const
    {
        return fields.boundingBox;
    }

    /// File and page, counted from zero, of the page of another document that the form stands for (`Ref`, ISO
    /// 32000-1, 8.10.4).
    const boost::optional<std::pair<boost::filesystem::path, std::size_t>>& GetExternalReference() const
    {
        return fields.externalReference;
    }

    boost::optional<Scope> GetScope() const { return fields.scope; }
    const boost::optional<std::string>& GetUniqueID() const { return fields.uniqueID; }

    /// The form's objects, of the type FormContent. It needs its document for as long as it is used.
    OrvDoc::Content& GetContent() const { return *fields.content; }

    // For makers of documents.

    const std::shared_ptr<OrvDoc::Content>& GetSharedContent() const { return fields.content; }

private:
    struct Fields
    {
        std::shared_ptr<OrvDoc::Content> content;
        Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem> transformation;
        Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> boundingBox;
        boost::optional<std::pair<boost::filesystem::path, std::size_t>> externalReference;
        boost::optional<Scope> scope;
        boost::optional<std::string> uniqueID;
    };

    explicit FormPaint(Fields givenFields);

    Fields fields;
};

/// The enumerator's name; nothing for a value that has none.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, FormPaint::Scope scope);

// For makers of documents.

class ORV_EXPORT FormPaint::Factory
{
public:
    /// The content must be of the type FormContent; throws std::invalid_argument otherwise and for null.
    explicit Factory(std::shared_ptr<OrvDoc::Content> content);
    /// With all fields of a paint, for one that differs in some of them.
    explicit Factory(const FormPaint& paint);
    ~Factory();

    Factory&
    SetFormTransformation(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation);
    Factory& SetFormBBox(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& box);
    Factory& SetExternalReference(boost::optional<std::pair<boost::filesystem::path, std::size_t>> reference);
    Factory& SetScope(boost::optional<Scope> scope);
    Factory& SetUniqueID(boost::optional<std::string> uniqueID);
    /// Other objects with the same fields.
    Factory& SetContent(std::shared_ptr<OrvDoc::Content> content);

    std::shared_ptr<const FormPaint> Get() const;

private:
    Fields fields;
};

} // namespace OrvPaint
