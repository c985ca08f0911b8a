#pragma once

#include <memory>
#include <vector>

#include <boost/optional.hpp>

#include <orv_color/color_list.h>
#include <orv_color/color_space.h>
#include <orv_color/component.h>
#include <orv_paint/paint.h>
#include <orv_sys/export.h>
#include <plexa/coordinate_systems.h>
#include <plexa/rectangle.h>
#include <plexa/transformation.h>

namespace OrvPaint
{

/// A smooth transition of colours (ISO 32000-1, 8.7.4.5).
class ORV_EXPORT ShadingPaint : public Paint
{
public:
    /// Setters that the factories of all shadings share; T is the class of the shading.
    template <typename T>
    class Factory;

    ~ShadingPaint() override;

    /// The names of the mapping's entries and its flags.
    OrvColor::ColorList<OrvColor::ColorantPolicy> GetColorants() const override;

    /// From the shading's coordinates to those of the content in which an object is painted with it, groups
    /// with a transformation of their own left out of account.
    const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& GetTransformation() const
    {
        return common.transformation;
    }

    /// In points, in the shading's coordinates; outside of it nothing is painted. In its initial state if
    /// there is none.
    const Plexa::RectangleBase<Plexa::PdfCoordinateSystem>& GetBoundingBox() const
    {
        return common.boundingBox;
    }

    /// Which component of the function stands for which separation.
    const OrvColor::ColorList<OrvColor::SeparationMappingPolicy>& GetSeparationMapping() const
    {
        return common.mapping;
    }

    /// The colour where the shading itself paints nothing: one component for each mapped index.
    const boost::optional<std::vector<OrvColor::Component>>& GetBackground() const
    {
        return common.background;
    }

    // For makers of documents.

    /// The space that a file gives the colours in; null for a shading that was made for a list of
    /// separations. A file gets the shading back in this space.
    const std::shared_ptr<const OrvColor::ColorSpace>& GetNativeSpace() const { return common.nativeSpace; }

    /// Overprint mode 1 (ISO 32000-1, 8.6.7).
    bool IsNonzeroOverprint() const { return common.nonzeroOverprint; }

    /// Whether a file asks for smooth edges (`AntiAlias`).
    bool IsAntiAliased() const { return common.antiAliased; }

protected:
    struct Common
    {
        Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem> transformation;
        Plexa::RectangleBase<Plexa::PdfCoordinateSystem> boundingBox;
        OrvColor::ColorList<OrvColor::SeparationMappingPolicy> mapping;
        boost::optional<std::vector<OrvColor::Component>> background;
        std::shared_ptr<const OrvColor::ColorSpace> nativeSpace;
        bool nonzeroOverprint = false;
        bool antiAliased = false;
    };

    ShadingPaint(Type type, Common givenCommon);

private:
    Common common;
};

/// The mapping of a shading in a colour space of a file: each component's separation, as
/// `ColorSpace::ToColorList` names it, with the component's index. A space that says its colours by other
/// numbers than tints (DeviceGray) has separations of its own here, such as "DeviceGray Gray". Throws
/// std::invalid_argument for spaces that no shading can have: Pattern and Indexed.
ORV_EXPORT OrvColor::ColorList<OrvColor::SeparationMappingPolicy>
MakeSeparationMapping(const OrvColor::ColorSpace& space, bool overprint);

template <typename T>
class ShadingPaint::Factory
{
public:
    using TransformationType = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

    /// Without it, the identity.
    typename T::Factory& SetTransformation(const TransformationType& transformation)
    {
        common.transformation = transformation;
        return Self();
    }

    // For makers of documents.

    typename T::Factory& SetBoundingBox(const Plexa::RectangleBase<Plexa::PdfCoordinateSystem>& box)
    {
        common.boundingBox = box;
        return Self();
    }

    typename T::Factory& SetBackground(boost::optional<std::vector<OrvColor::Component>> background)
    {
        common.background = std::move(background);
        return Self();
    }

    typename T::Factory& SetNativeSpace(std::shared_ptr<const OrvColor::ColorSpace> space,
                                        bool nonzeroOverprint)
    {
        common.nativeSpace = std::move(space);
        common.nonzeroOverprint = nonzeroOverprint;
        return Self();
    }

    typename T::Factory& SetAntiAliased(bool antiAliased)
    {
        common.antiAliased = antiAliased;
        return Self();
    }

protected:
    explicit Factory(OrvColor::ColorList<OrvColor::SeparationMappingPolicy> mapping)
    {
        common.mapping = std::move(mapping);
    }
    ~Factory() = default;
    Factory(const Factory&) = default;
    Factory& operator=(const Factory&) = default;

    Common common;

private:
    typename T::Factory& Self() { return static_cast<typename T::Factory&>(*this); }
};

} // namespace OrvPaint
