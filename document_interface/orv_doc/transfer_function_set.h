#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <orv_sys/export.h>

namespace OrvPaint
{
class Function;
}

namespace OrvDoc
{

/// Transfer functions of a content (ISO 32000-1, 10.4): one for all separations that have none of their own,
/// and those of named separations. A value; copies share the functions.
class ORV_EXPORT TransferFunctionSet
{
public:
    using NamedFunction = std::pair<std::string, std::shared_ptr<const OrvPaint::Function>>;

    /// Null stands for the identity.
    const std::shared_ptr<const OrvPaint::Function>& GetDefaultTransferFunction() const
    {
        return defaultFunction;
    }
    const std::vector<NamedFunction>& GetNamedTransferFunctions() const { return namedFunctions; }

    /// Functions are the same if they compute the same; the order of the names counts.
    bool operator==(const TransferFunctionSet& other) const;
    bool operator!=(const TransferFunctionSet& other) const { return !(*this == other); }

    // For makers of documents.

    TransferFunctionSet(std::shared_ptr<const OrvPaint::Function> defaultFunction,
                        std::vector<NamedFunction> namedFunctions);

private:
    std::shared_ptr<const OrvPaint::Function> defaultFunction;
    std::vector<NamedFunction> namedFunctions;
};

} // namespace OrvDoc
