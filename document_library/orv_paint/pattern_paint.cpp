#include <orv_paint/pattern_paint.h>

#include <stdexcept>
#include <utility>

#include <orv_doc/content.h>
#include <orv_paint/flat_paint.h>

#include "orv_doc/content_release.h"
#include "orv_paint/colorants.h"

namespace OrvPaint
{

using OrvDoc::Content;

namespace
{

std::shared_ptr<Content> RequireCell(std::shared_ptr<Content> content)
{
    if (!content || (content->GetType() != Content::Type::ColoredPatternContent &&
                     content->GetType() != Content::Type::UncoloredPatternContent))
        throw std::invalid_argument("A pattern needs a content of a pattern's type as its cell.");
    return content;
}

} // namespace

PatternPaint::PatternPaint(Fields givenFields) : Paint(Type::TilingPattern), fields(std::move(givenFields)) {}

PatternPaint::~PatternPaint()
{
    OrvDoc::Detail::ReleaseContent(std::move(fields.content));
}

OrvColor::ColorList<OrvColor::ColorantPolicy> PatternPaint::GetColorants() const
{
    if (!fields.color)
        return {};
    return Detail::GetColorantsOf(*fields.color);
}

PatternPaint::Factory::Factory(std::shared_ptr<Content> content)
{
    SetContent(std::move(content));
}

PatternPaint::Factory::Factory(const PatternPaint& paint) : fields(paint.fields) {}

PatternPaint::Factory::~Factory() = default;

PatternPaint::Factory& PatternPaint::Factory::SetTransformation(
    const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation)
{
    fields.transformation = transformation;
    return *this;
}

PatternPaint::Factory&
PatternPaint::Factory::SetCellClip(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& cellClip)
{
    fields.cellClip = cellClip;
    return *this;
}

PatternPaint::Factory&
PatternPaint::Factory::SetStep(const Plexa::DimensionBase<Plexa::MilliPointCoordinateSystem>& step)
{
    fields.step = step;
    return *this;
}

PatternPaint::Factory& PatternPaint::Factory::SetColor(OrvColor::ColorList<OrvColor::ColorPolicy> color)
{
    fields.color = std::move(color);
    fields.nativeColor = nullptr;
    return *this;
}

PatternPaint::Factory& PatternPaint::Factory::SetColor(const std::shared_ptr<const FlatPaint>& paint)
{
    fields.color = boost::none;
    if (paint)
        fields.color = paint->GetColor();
    fields.nativeColor = paint;
    return *this;
}

PatternPaint::Factory& PatternPaint::Factory::SetTilingType(TilingType tilingType)
{
    fields.tilingType = tilingType;
    return *this;
}

PatternPaint::Factory& PatternPaint::Factory::SetContent(std::shared_ptr<Content> content)
{
    fields.content = RequireCell(std::move(content));
    return *this;
}

std::shared_ptr<const PatternPaint> PatternPaint::Factory::Get() const
{
    const bool isUncolored = fields.content->GetType() == Content::Type::UncoloredPatternContent;
    if (isUncolored && !fields.color)
        throw std::invalid_argument("A pattern with an uncoloured cell needs a colour.");
    if (!isUncolored && fields.color)
        throw std::invalid_argument("A pattern with a coloured cell can't have a colour of its own.");
    return std::shared_ptr<const PatternPaint>(new PatternPaint(fields));
}

} // namespace OrvPaint
