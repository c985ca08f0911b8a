#include <orv_paint/exponential_function.h>

#include "orv_paint/function_text.h"
#include "orv_paint/zero_component.h"

#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrvPaint
{

ExponentialFunction::ExponentialFunction(const Factory& factory)
    : Function(Type::Exponential, {factory.domain}, factory.range, factory.c0.size(), 0),
      c0(factory.c0),
      c1(factory.c1),
      exponent(factory.exponent)
{}

ExponentialFunction::~ExponentialFunction() = default;

void ExponentialFunction::Print(std::ostream& stream) const
{
    stream << "Exponential(";
    Detail::PrintFrame(stream, *this);
    stream << ", C0 " << c0 << ", C1 " << c1 << ", N " << exponent << ')';
}

bool ExponentialFunction::IsZero(std::size_t component) const
{
    return component >= c0.size() ||
           Detail::IsZeroInRange(*this, component, c0[component] == 0.0f && c1[component] == 0.0f);
}

ExponentialFunction::Factory::Factory(std::vector<OrvColor::Component> givenC0,
                                      std::vector<OrvColor::Component> givenC1, double givenExponent)
    : c0(std::move(givenC0)), c1(std::move(givenC1)), exponent(givenExponent)
{}

ExponentialFunction::Factory& ExponentialFunction::Factory::SetDomain(const std::array<double, 2>& newDomain)
{
    domain = newDomain;
    return *this;
}

ExponentialFunction::Factory&
ExponentialFunction::Factory::SetRange(std::vector<std::array<double, 2>> newRange)
{
    range = std::move(newRange);
    return *this;
}

std::shared_ptr<const ExponentialFunction> ExponentialFunction::Factory::Get() const
{
    if (c0.size() != c1.size())
        throw std::invalid_argument("An exponential function has " + std::to_string(c0.size()) +
                                    " components at its start and " + std::to_string(c1.size()) +
                                    " at its end.");
    return std::shared_ptr<const ExponentialFunction>(new ExponentialFunction(*this));
}

double MidpointToExponent(double midpoint)
{
    constexpr double Lowest = 1.0 / (1 << 20);
    constexpr double Highest = 1.0 - Lowest;
    if (midpoint < Lowest)
        midpoint = Lowest;
    if (midpoint > Highest)
        midpoint = Highest;
    return std::log(0.5) / std::log(midpoint);
}

} // namespace OrvPaint
