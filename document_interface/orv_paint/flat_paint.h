#pragma once

#include <memory>
#include <vector>

#include <orv_color/color_list.h>
#include <orv_color/color_space.h>
#include <orv_paint/paint.h>
#include <orv_sys/export.h>

namespace OrvDoc
{
class Document;
}

namespace OrvPaint
{

/// One colour all over.
class ORV_EXPORT FlatPaint : public Paint
{
public:
    class Factory;

    ~FlatPaint() override;

    /// The names of the colour's entries and its flags.
    OrvColor::ColorList<OrvColor::ColorantPolicy> GetColorants() const override;

    const OrvColor::ColorList<OrvColor::ColorPolicy>& GetColor() const { return color; }

    // For makers of documents.

    /// The space that the colour was given in; null if it was given as a list. A file gets the colour back in
    /// this space.
    const std::shared_ptr<const OrvColor::ColorSpace>& GetNativeSpace() const { return nativeSpace; }

    /// The components in that space as they were given; empty without a space.
    const std::vector<float>& GetNativeComponents() const { return nativeComponents; }

    /// Overprint mode 1 (ISO 32000-1, 8.6.7).
    bool IsNonzeroOverprint() const { return nonzeroOverprint; }

private:
    FlatPaint();

    OrvColor::ColorList<OrvColor::ColorPolicy> color;
    std::shared_ptr<const OrvColor::ColorSpace> nativeSpace;
    std::vector<float> nativeComponents;
    bool nonzeroOverprint = false;
};

class ORV_EXPORT FlatPaint::Factory
{
public:
    /// The list is used unchanged. A document may keep paints of its own; null means none, and today no
    /// document does.
    Factory(OrvColor::ColorList<OrvColor::ColorPolicy> color, const OrvDoc::Document* document);

    // For makers of documents.

    /// A colour as a file has it; the list comes from ColorSpace::ToColorList. Throws std::invalid_argument
    /// if the space is null.
    Factory(std::shared_ptr<const OrvColor::ColorSpace> space, std::vector<float> components, bool overprint,
            bool nonzeroOverprint);

    ~Factory();

    /// The paint; the same one each time.
    std::shared_ptr<const FlatPaint> Get() const;

private:
    std::shared_ptr<const FlatPaint> paint;
};

/// What a factory with these arguments makes.
ORV_EXPORT std::shared_ptr<const FlatPaint> GetFlatPaint(OrvColor::ColorList<OrvColor::ColorPolicy> color,
                                                         const OrvDoc::Document* document);

} // namespace OrvPaint
