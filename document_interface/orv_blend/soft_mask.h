#pragma once

#include <memory>

#include <boost/variant.hpp>

#include <orv_color/color_list.h>
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
class FlatPaint;
class Function;
} // namespace OrvPaint

namespace OrvBlend
{

/// A drawing whose alpha or luminosity says how much is seen of an object, point by point (ISO 32000-1,
/// 11.5 and 11.6.5.2). Immutable; handed around as shared pointer to const.
class ORV_EXPORT SoftMask
{
public:
    class Factory;

    using TransferFunction = boost::variant<bool, std::shared_ptr<const OrvPaint::Function>>;

    SoftMask(const SoftMask&) = delete;
    SoftMask& operator=(const SoftMask&) = delete;
    ~SoftMask();

    /// From the mask's coordinates to those of the content in which the masked object stands, groups with a
    /// transformation of their own left out of account.
    const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& GetTransformation() const
    {
        return fields.transformation;
    }

    /// What a luminosity mask is painted on; empty for black.
    const OrvColor::ColorList<OrvColor::ColorPolicy>& GetBackdropColor() const { return fields.backdrop; }

    /// Whether the alpha of the drawing counts; otherwise its luminosity.
    bool IsAlpha() const { return fields.isAlpha; }

    /// From the mask's values to those that count. The `bool` stands for the identity: whether it is stated.
    const TransferFunction& GetTransferFunction() const { return fields.transferFunction; }

    /// The drawing, of the type SoftMaskContent. It needs its document for as long as it is used.
    OrvDoc::Content& GetContent() const { return *fields.content; }

    // For makers of documents.

    /// What is seen of the drawing, in the mask's coordinates.
    const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& GetBoundingBox() const
    {
        return fields.boundingBox;
    }
    /// Whether the objects of the drawing knock one another out (`K` of its group).
    bool IsKnockout() const { return fields.isKnockout; }
    /// The backdrop as a file gave it; null if it was given as a list.
    const std::shared_ptr<const OrvPaint::FlatPaint>& GetNativeBackdrop() const
    {
        return fields.nativeBackdrop;
    }
    const std::shared_ptr<OrvDoc::Content>& GetSharedContent() const { return fields.content; }

private:
    struct Fields
    {
        std::shared_ptr<OrvDoc::Content> content;
        Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem> transformation;
        Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> boundingBox;
        OrvColor::ColorList<OrvColor::ColorPolicy> backdrop;
        std::shared_ptr<const OrvPaint::FlatPaint> nativeBackdrop;
        TransferFunction transferFunction{false};
        bool isAlpha = false;
        bool isKnockout = false;
    };

    explicit SoftMask(Fields givenFields);

    Fields fields;
};

// For makers of documents.

class ORV_EXPORT SoftMask::Factory
{
public:
    /// The content must be of the type SoftMaskContent; throws std::invalid_argument otherwise and for null.
    explicit Factory(std::shared_ptr<OrvDoc::Content> content);
    /// With all fields of a mask, for one that differs in some of them.
    explicit Factory(const SoftMask& mask);
    ~Factory();

    Factory&
    SetTransformation(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation);
    Factory& SetBoundingBox(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& box);
    Factory& SetBackdropColor(OrvColor::ColorList<OrvColor::ColorPolicy> color);
    /// The same from a paint, whose colour and native space count; null for none.
    Factory& SetBackdropColor(const std::shared_ptr<const OrvPaint::FlatPaint>& paint);
    Factory& SetAlpha(bool isAlpha);
    /// Throws std::invalid_argument for a null function.
    Factory& SetTransferFunction(TransferFunction transferFunction);
    Factory& SetKnockout(bool isKnockout);
    /// Another drawing with the same fields.
    Factory& SetContent(std::shared_ptr<OrvDoc::Content> content);

    std::shared_ptr<const SoftMask> Get() const;

private:
    Fields fields;
};

} // namespace OrvBlend
