#pragma once

#include <memory>

#include <orv_doc/fillable.h>
#include <orv_doc/stroke_properties.h>

namespace OrvDoc
{

/// An object whose outline can be drawn.
class ORV_EXPORT Strokable : public Fillable
{
public:
    /// Null if the outline is not drawn.
    const std::shared_ptr<const OrvPaint::Paint>& GetStrokePaint() const { return strokePaint; }

    // For makers of documents.

    void SetStrokePaint(std::shared_ptr<const OrvPaint::Paint> paint);
    /// How the outline is drawn, also while nothing paints it.
    const StrokeProperties& GetStrokeProperties() const;
    void SetStrokeProperties(StrokeProperties properties);
    /// The same, shared with other objects. Null stands for the defaults.
    void SetSharedStrokeProperties(std::shared_ptr<const StrokeProperties> properties);
    const std::shared_ptr<const StrokeProperties>& GetSharedStrokeProperties() const
    {
        return strokeProperties;
    }

protected:
    Strokable() = default;
    /// The stroke properties have changed.
    virtual void StrokePropertiesChangedSelf() = 0;
    /// Copies what every strokable object has into a clone.
    void CloneStrokableInto(Strokable& clone, CloneStrategy& strategy) const;

private:
    std::shared_ptr<const OrvPaint::Paint> strokePaint;
    std::shared_ptr<const StrokeProperties> strokeProperties;
};

} // namespace OrvDoc
