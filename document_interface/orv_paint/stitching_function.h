#pragma once

#include <array>
#include <memory>
#include <vector>

#include <orv_paint/function.h>
#include <orv_sys/export.h>

namespace OrvPaint
{

/// Several functions of one input, side by side on its domain (ISO 32000-1, 7.10.4).
class ORV_EXPORT StitchingFunction : public Function
{
public:
    class Factory;

    ~StitchingFunction() override;

    void Print(std::ostream& stream) const override;

    /// Every part is zero in that component and the range leaves zero as it is, or leaves nothing else.
    bool IsZero(std::size_t component) const override;

    /// The parts, in order; at least one.
    const std::vector<std::shared_ptr<const Function>>& GetFunctions() const { return functions; }

    /// As given to the factory: the bounds between the parts, or these with the ends of the domain around
    /// them.
    const std::vector<double>& GetBounds() const { return bounds; }

    /// For each part, where its share of the domain begins and ends on its own domain.
    const std::vector<std::array<double, 2>>& GetEncode() const { return encode; }

    // For makers of documents.

    /// The bounds between the parts alone, one fewer than parts: what a file has under Bounds.
    std::vector<double> GetInnerBounds() const;

    /// Whether GetBounds includes the ends of the domain.
    bool HasOuterBounds() const { return bounds.size() > functions.size(); }

private:
    explicit StitchingFunction(const Factory& factory);

    std::vector<std::shared_ptr<const Function>> functions;
    std::vector<double> bounds;
    std::vector<std::array<double, 2>> encode;
};

class ORV_EXPORT StitchingFunction::Factory
{
public:
    /// For k functions either k - 1 bounds, which lie between the parts, or k + 1, of which the first and the
    /// last are the ends of the domain.
    Factory(std::vector<std::shared_ptr<const Function>> givenFunctions, std::vector<double> givenBounds);

    /// One pair for each function. Without it each part is encoded to (0, 1).
    Factory& SetEncode(std::vector<std::array<double, 2>> newEncode);

    /// Throws std::invalid_argument if there is no function, one is null or has not exactly one input, the
    /// functions differ in their number of outputs, or bounds, encode or a stated range have a wrong length;
    /// std::length_error if the parts are nested too deeply.
    std::shared_ptr<const StitchingFunction> Get() const;

    // For makers of documents.

    /// Only for k - 1 bounds, where the domain is 0 to 1 without it; with k + 1 the bounds decide.
    Factory& SetDomain(const std::array<double, 2>& newDomain);

    /// One pair for each output; an empty list takes the range away.
    Factory& SetRange(std::vector<std::array<double, 2>> newRange);

private:
    friend class StitchingFunction;

    std::array<double, 2> GetEffectiveDomain() const;
    std::size_t GetPartsDepth() const;

    std::vector<std::shared_ptr<const Function>> functions;
    std::vector<double> bounds;
    std::vector<std::array<double, 2>> encode;
    std::array<double, 2> domain = {0.0, 1.0};
    std::vector<std::array<double, 2>> range;
};

} // namespace OrvPaint
