#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include <orv_sys/export.h>

namespace OrvDoc
{

class LayerProperties;

/// When something is visible, told by the states of layers: a membership dictionary (ISO 32000-1, 8.11.2.2).
/// A value; copies share the layers.
class ORV_EXPORT LogicalLayerExpression
{
public:
    enum class Operation : std::uint32_t
    {
        Layer, ///< Visible if the one layer is on.
        And,   ///< A visibility expression: all operands hold.
        Or,    ///< A visibility expression: any operand holds.
        Not,   ///< A visibility expression: its one operand doesn't hold.
        AllOn, ///< A visibility policy over layers, and so the three below.
        AnyOn,
        AnyOff,
        AllOff,
    };

    /// Holds nothing: no operand restricts visibility.
    LogicalLayerExpression() = default;

    // For makers of documents.

    /// Throws `std::invalid_argument` for a null pointer.
    explicit LogicalLayerExpression(std::shared_ptr<LayerProperties> layer);
    /// Throws `std::invalid_argument` for the operation `Layer`, for a `Not` without exactly one operand, for
    /// a policy over operands that are no layers, and past 100 levels, which no file of a person needs.
    LogicalLayerExpression(Operation operation, std::vector<LogicalLayerExpression> operands);

    Operation GetOperation() const { return operation; }
    /// The layer of a `Layer` operation; null for all others.
    const std::shared_ptr<LayerProperties>& GetLayer() const { return layer; }
    const std::vector<LogicalLayerExpression>& GetOperands() const { return operands; }
    /// Levels of operations, 1 for a single layer.
    std::size_t GetDepth() const { return depth; }

    /// Same operations over the same layers of one document.
    ORV_EXPORT friend bool operator==(const LogicalLayerExpression& left,
                                      const LogicalLayerExpression& right);
    /// Such as `And("Cutting", Not("Varnish"))`; of one layer its name in quotes.
    ORV_EXPORT friend std::ostream& operator<<(std::ostream& stream,
                                               const LogicalLayerExpression& expression);

private:
    Operation operation = Operation::AnyOn;
    std::shared_ptr<LayerProperties> layer;
    std::vector<LogicalLayerExpression> operands;
    std::size_t depth = 1;
};

} // namespace OrvDoc
