#include <orv_paint/function.h>

#include <orv_paint/exponential_function.h>
#include <orv_paint/stitching_function.h>
#include <orv_paint/whole_function.h>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrvPaint
{

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();

bool SameParts(const StitchingFunction& left, const StitchingFunction& right)
{
    const auto& leftParts = left.GetFunctions();
    const auto& rightParts = right.GetFunctions();
    return std::equal(leftParts.begin(), leftParts.end(), rightParts.begin(), rightParts.end(),
                      [](const auto& leftPart, const auto& rightPart) { return *leftPart == *rightPart; });
}

bool SameNumbers(const StitchingFunction& left, const StitchingFunction& right)
{
    return left.GetBounds() == right.GetBounds() && left.GetEncode() == right.GetEncode();
}

bool SameNumbers(const ExponentialFunction& left, const ExponentialFunction& right)
{
    return left.GetC0() == right.GetC0() && left.GetC1() == right.GetC1() && left.GetN() == right.GetN();
}

template <typename T>
const T& As(const Function& function)
{
    return static_cast<const T&>(function);
}

} // namespace

Function::Function(Type givenType, std::vector<std::array<double, 2>> givenDomain,
                   std::vector<std::array<double, 2>> statedRange, std::size_t outputCount,
                   std::size_t givenDepth)
    : type(givenType),
      domain(std::move(givenDomain)),
      range(std::move(statedRange)),
      hasRange(!range.empty()),
      depth(givenDepth)
{
    if (depth > MaxDepth)
        throw std::length_error("Functions are nested more than " + std::to_string(MaxDepth) +
                                " levels deep.");
    if (!hasRange)
        range.assign(outputCount, {-Infinity, Infinity});
    else if (range.size() != outputCount)
        throw std::invalid_argument("A function of " + std::to_string(outputCount) +
                                    " outputs has a range of " + std::to_string(range.size()) + ".");
}

Function::~Function() = default;

bool operator==(const Function& left, const Function& right)
{
    if (&left == &right)
        return true;
    if (left.GetType() != right.GetType() || left.GetDomain() != right.GetDomain() ||
        left.GetRange() != right.GetRange())
        return false;
    switch (left.GetType()) {
    case Function::Type::Whole:
        return As<WholeFunction>(left).GetDefinition() == As<WholeFunction>(right).GetDefinition();
    case Function::Type::Stitching:
        return SameNumbers(As<StitchingFunction>(left), As<StitchingFunction>(right)) &&
               SameParts(As<StitchingFunction>(left), As<StitchingFunction>(right));
    case Function::Type::Exponential:
        return SameNumbers(As<ExponentialFunction>(left), As<ExponentialFunction>(right));
    }
    return false;
}

std::ostream& operator<<(std::ostream& stream, const Function& function)
{
    function.Print(stream);
    return stream;
}

} // namespace OrvPaint
