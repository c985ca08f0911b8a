#include <orv_paint/form_paint.h>

#include <ostream>
#include <stdexcept>

#include <orv_doc/content.h>

#include "orv_doc/content_release.h"

namespace OrvPaint
{

using OrvDoc::Content;

namespace
{

std::shared_ptr<Content> RequireForm(std::shared_ptr<Content> content)
{
    if (!content || content->GetType() != Content::Type::FormContent)
        throw std::invalid_argument("A form needs a content of a form's type.");
    return content;
}

} // namespace

FormPaint::FormPaint(Fields givenFields) : Paint(Type::Form), fields(std::move(givenFields)) {}

FormPaint::~FormPaint()
{
    OrvDoc::Detail::ReleaseContent(std::move(fields.content));
}

OrvColor::ColorList<OrvColor::ColorantPolicy> FormPaint::GetColorants() const
{
    return {};
}

FormPaint::Factory::Factory(std::shared_ptr<Content> content)
{
    SetContent(std::move(content));
}

FormPaint::Factory::Factory(const FormPaint& paint) : fields(paint.fields) {}

FormPaint::Factory::~Factory() = default;

FormPaint::Factory& FormPaint::Factory::SetFormTransformation(
    const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation)
{
    fields.transformation = transformation;
    return *this;
}

FormPaint::Factory&
FormPaint::Factory::SetFormBBox(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& box)
{
    fields.boundingBox = box;
    return *this;
}

FormPaint::Factory& FormPaint::Factory::SetExternalReference(
    boost::optional<std::pair<boost::filesystem::path, std::size_t>> reference)
{
    fields.externalReference = std::move(reference);
    return *this;
}

FormPaint::Factory& FormPaint::Factory::SetScope(boost::optional<Scope> scope)
{
    fields.scope = scope;
    return *this;
}

FormPaint::Factory& FormPaint::Factory::SetUniqueID(boost::optional<std::string> uniqueID)
{
    fields.uniqueID = std::move(uniqueID);
    return *this;
}

FormPaint::Factory& FormPaint::Factory::SetContent(std::shared_ptr<Content> content)
{
    fields.content = RequireForm(std::move(content));
    return *this;
}

std::shared_ptr<const FormPaint> FormPaint::Factory::Get() const
{
    return std::shared_ptr<const FormPaint>(new FormPaint(fields));
}

std::ostream& operator<<(std::ostream& stream, FormPaint::Scope scope)
{
    switch (scope) {
    case FormPaint::Scope::Unknown:
        return stream << "Unknown";
    case FormPaint::Scope::SingleUse:
        return stream << "SingleUse";
    case FormPaint::Scope::Record:
        return stream << "Record";
    case FormPaint::Scope::File:
        return stream << "File";
    case FormPaint::Scope::Stream:
        return stream << "Stream";
    case FormPaint::Scope::Global:
        return stream << "Global";
    }
    return stream;
}

} // namespace OrvPaint
