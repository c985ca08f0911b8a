#pragma once

#include <memory>

#include <orv_paint/shading_paint.h>
#include <orv_sys/export.h>
#include <orv_sys/pdf_object.h>

namespace OrvPaint
{

// For makers of documents.

/// A shading that is kept as the file defines it: function-based, or a mesh (ISO 32000-1, 8.7.4.5.2 and
/// 8.7.4.5.5 to 8.7.4.5.8; types 1 and 4 to 7). Its class is Paint::Type::OtherShading.
class ORV_EXPORT WholeShadingPaint : public ShadingPaint
{
public:
    class Factory;

    ~WholeShadingPaint() override;

    /// The shading dictionary or stream, references resolved, without `ColorSpace`, `Background`, `BBox` and
    /// `AntiAlias`, which the paint has in fields of their own.
    const OrvSys::PdfObject& GetDefinition() const { return definition; }

private:
    WholeShadingPaint(Common common, OrvSys::PdfObject givenDefinition);

    OrvSys::PdfObject definition;
};

class ORV_EXPORT WholeShadingPaint::Factory : public ShadingPaint::Factory<WholeShadingPaint>
{
public:
    Factory(OrvColor::ColorList<OrvColor::SeparationMappingPolicy> mapping,
            OrvSys::PdfObject givenDefinition);
    ~Factory();

    std::shared_ptr<const WholeShadingPaint> Get() const;

private:
    OrvSys::PdfObject definition;
};

} // namespace OrvPaint
