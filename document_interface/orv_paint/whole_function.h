#pragma once

#include <memory>

#include <orv_paint/function.h>
#include <orv_sys/export.h>
#include <orv_sys/pdf_object.h>

namespace OrvPaint
{

// For makers of documents.

/// A function that is kept as the file defines it: a sampled one or a PostScript calculator (ISO
/// 32000-1, 7.10.2 and 7.10.5). Its class is Function::Type::Whole.
class ORV_EXPORT WholeFunction : public Function
{
public:
    /// Takes a function of type 0 or 4: a stream with Domain and Range. Throws std::invalid_argument that
    /// tells what is missing or malformed. The bytes are not looked at.
    static std::shared_ptr<const WholeFunction> Make(const OrvSys::PdfObject& definition);

    ~WholeFunction() override;

    void Print(std::ostream& stream) const override;

    /// Only if the range leaves that component nothing but zero: the samples are not looked at.
    bool IsZero(std::size_t component) const override;

    const OrvSys::PdfObject& GetDefinition() const { return definition; }

private:
    WholeFunction(const OrvSys::PdfObject& givenDefinition, std::vector<std::array<double, 2>> givenDomain,
                  std::vector<std::array<double, 2>> givenRange);

    OrvSys::PdfObject definition;
};

} // namespace OrvPaint
