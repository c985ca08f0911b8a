#pragma once

#include <memory>
#include <vector>

#include <orv_paint/function.h>
#include <orv_sys/export.h>
#include <orv_sys/pdf_object.h>

namespace OrvPaint
{

// For makers of documents.

/// A function that is kept as the file defines it: a sampled one, a PostScript calculator (ISO 32000-1,
/// 7.10.2 and 7.10.5), or an array of functions, one for each output, as shadings have them (8.7.4.5). Its
/// class is Function::Type::Whole.
class ORV_EXPORT WholeFunction : public Function
{
public:
    /// Takes a function of type 0 or 4: a stream with Domain and Range. The bytes are not looked at. Or takes
    /// an array of functions with one output each that cannot be joined into one; MakeFunctionOfShading joins
    /// the others. The domain of an array is where all of its functions are defined. Throws
    /// std::invalid_argument that tells what is missing or malformed.
    static std::shared_ptr<const WholeFunction> Make(const OrvSys::PdfObject& definition);

    ~WholeFunction() override;

    void Print(std::ostream& stream) const override;

    /// Only if the range leaves that component nothing but zero: the samples are not looked at. Of an array,
    /// what the component's function says.
    bool IsZero(std::size_t component) const override;

    const OrvSys::PdfObject& GetDefinition() const { return definition; }

private:
    using Parts = std::vector<std::shared_ptr<const Function>>;

    static std::shared_ptr<const WholeFunction> MakeOfArray(const OrvSys::PdfObject& definition);
    static std::size_t GetDepthOf(const Parts& parts);

    WholeFunction(const OrvSys::PdfObject& givenDefinition, std::vector<std::array<double, 2>> givenDomain,
                  std::vector<std::array<double, 2>> givenRange, Parts givenParts);

    OrvSys::PdfObject definition;
    /// The functions of an array; empty otherwise.
    Parts parts;
};

} // namespace OrvPaint
