#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <orv_doc/group.h>
#include <orv_doc/layer.h>

#include "pdf/reader/content/group_recipe.h"

namespace OrvBlend
{
class SoftMask;
}

namespace OrvPaint
{
class FlatPaint;
class FormPaint;
class PatternPaint;
} // namespace OrvPaint

namespace OrvPdf
{

class ForeignObjects;
struct GraphicsState;

/// What reading a content met that lies inside of others: a form, the cell of a pattern, a soft mask.
/// Immutable. The contents inside of it are referred to, since any number of contents may share one.
struct NestedReading
{
    /// "form 12 0".
    std::string place;
    std::vector<std::string> errors;
    std::vector<std::shared_ptr<const NestedReading>> inside;
};

/// A form as it is painted under one graphics state.
struct FormUse
{
    std::shared_ptr<const OrvPaint::FormPaint> paint;
    /// Whether the form is a transparency group (ISO 32000-1, 11.6.6), and its flags.
    bool isGroup = false;
    bool isIsolated = false;
    bool isKnockout = false;
    /// The parameters of the graphics state around the form that its content depends on: bits of `Inherited`.
    std::uint32_t usedParameters = 0;
    /// Whether its content has something that the model has no place for and that depends on them: whoever
    /// paints it must be kept as well to keep that.
    bool isLossy = false;
    /// Null if there is nothing to tell.
    std::shared_ptr<const NestedReading> reading;
};

/// A group that was written as a form.
struct GroupUse
{
    /// Null for none. Its transparency has the flags of the form's group.
    std::unique_ptr<OrvDoc::Group> group;
    /// Of the objects in it; null for none.
    std::shared_ptr<const ForeignObjects> foreign;
    /// As for a form.
    std::uint32_t usedParameters = 0;
    std::shared_ptr<const NestedReading> reading;
};

/// A form XObject of a file.
class FormDefinition
{
public:
    virtual ~FormDefinition() = default;

    /// The form under that state; the same one for all states that agree in what its content depends on.
    /// Null, with the reason in `problem`, if it can't be painted: it is inside of itself, or too deep inside
    /// of others.
    /// `matrix` leads from where the form is painted to the coordinates of the content there.
    virtual std::shared_ptr<const FormUse> Use(const GraphicsState& state, const Matrix& matrix,
                                               std::string& problem) = 0;

    /// The group that the writer wrote as a form for its transparency; none for other forms, and when it was
    /// taken before. To be asked first. `base` leads from the container around to the coordinates of the
    /// content.
    virtual GroupUse TakeGroup(const GraphicsState& state, const Matrix& base) = 0;

    /// The layer of its `OC`; null for none.
    virtual std::shared_ptr<const OrvDoc::Layer::Membership> GetLayer() const = 0;
};

/// A tiling pattern as it is painted in one colour.
struct PatternUse
{
    std::shared_ptr<const OrvPaint::PatternPaint> paint;
    /// Null if there is nothing to tell.
    std::shared_ptr<const NestedReading> reading;
};

/// A tiling pattern of a file.
class TilingDefinition
{
public:
    virtual ~TilingDefinition() = default;

    /// Whether the pattern has the colour that it is painted in.
    virtual bool IsUncolored() const = 0;

    /// The pattern; that of an uncoloured one in this colour, which is null for coloured ones. The same one
    /// for equal colours. Null, with the reason in `problem`, if it can't be painted.
    virtual std::shared_ptr<const PatternUse> Use(const std::shared_ptr<const OrvPaint::FlatPaint>& color,
                                                  std::string& problem) = 0;
};

/// A soft mask as it is in force under one matrix.
struct MaskUse
{
    std::shared_ptr<const OrvBlend::SoftMask> mask;
    /// Null if there is nothing to tell.
    std::shared_ptr<const NestedReading> reading;
};

/// A soft mask dictionary of a file.
class MaskDefinition
{
public:
    virtual ~MaskDefinition() = default;

    /// The mask that is set under a matrix, which leads to the content's coordinates. The same one for one
    /// matrix. Null, with the reason in `problem`, if it can't be read.
    virtual std::shared_ptr<const MaskUse> Use(const Matrix& matrix, std::string& problem) = 0;
};

} // namespace OrvPdf
