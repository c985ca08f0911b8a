#pragma once

#include <array>
#include <memory>
#include <vector>

#include <orv_color/component.h>
#include <orv_paint/function.h>
#include <orv_sys/export.h>

namespace OrvPaint
{

/// C0 + x^N * (C1 - C0), component by component (ISO 32000-1, 7.10.3).
class ORV_EXPORT ExponentialFunction : public Function
{
public:
    class Factory;

    ~ExponentialFunction() override;

    void Print(std::ostream& stream) const override;

    /// Both ends are zero in that component and the range leaves zero as it is, or leaves nothing else.
    bool IsZero(std::size_t component) const override;

    /// Output at 0 and at 1, one element for each component.
    const std::vector<OrvColor::Component>& GetC0() const { return c0; }
    const std::vector<OrvColor::Component>& GetC1() const { return c1; }

    double GetN() const { return exponent; }

private:
    explicit ExponentialFunction(const Factory& factory);

    std::vector<OrvColor::Component> c0;
    std::vector<OrvColor::Component> c1;
    double exponent;
};

class ORV_EXPORT ExponentialFunction::Factory
{
public:
    Factory(std::vector<OrvColor::Component> givenC0, std::vector<OrvColor::Component> givenC1,
            double givenExponent);

    /// Without it the domain is 0 to 1.
    Factory& SetDomain(const std::array<double, 2>& newDomain);

    /// Throws std::invalid_argument if C0 and C1, or a stated range, differ in length.
    std::shared_ptr<const ExponentialFunction> Get() const;

    // For makers of documents.

    /// One pair for each component; an empty list takes the range away.
    Factory& SetRange(std::vector<std::array<double, 2>> newRange);

private:
    friend class ExponentialFunction;

    std::vector<OrvColor::Component> c0;
    std::vector<OrvColor::Component> c1;
    double exponent;
    std::array<double, 2> domain = {0.0, 1.0};
    std::vector<std::array<double, 2>> range;
};

/// The exponent N of the function from 0 to 1 that reaches one half at `midpoint`: midpoint^N = 1/2. A
/// midpoint of 0.5 gives exactly 1. Midpoints below 2^-20 or above 1 - 2^-20 count as these, as there is no
/// exponent beyond them that a file could carry; a NaN gives a NaN.
ORV_EXPORT double MidpointToExponent(double midpoint);

} // namespace OrvPaint
