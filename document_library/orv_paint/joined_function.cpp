#include "orv_paint/joined_function.h"

#include <orv_paint/exponential_function.h>
#include <orv_paint/stitching_function.h>

#include <utility>

namespace OrvPaint::Detail
{

namespace
{

using Functions = std::vector<std::shared_ptr<const Function>>;

template <typename T>
const T& As(const std::shared_ptr<const Function>& function)
{
    return static_cast<const T&>(*function);
}

/// Same class and domain, and either all state a range or none does.
bool HaveCommonFrame(const Functions& functions)
{
    const Function& first = *functions.front();
    for (const auto& function : functions) {
        if (function->GetType() != first.GetType() || function->GetDomain() != first.GetDomain() ||
            function->HasRange() != first.HasRange())
            return false;
    }
    return true;
}

std::vector<std::array<double, 2>> GetJoinedRange(const Functions& functions)
{
    std::vector<std::array<double, 2>> range;
    if (!functions.front()->HasRange())
        return range;
    for (const auto& function : functions)
        range.insert(range.end(), function->GetRange().begin(), function->GetRange().end());
    return range;
}

std::shared_ptr<const Function> JoinExponentials(const Functions& functions)
{
    const auto& first = As<ExponentialFunction>(functions.front());
    std::vector<OrvColor::Component> c0;
    std::vector<OrvColor::Component> c1;
    for (const auto& function : functions) {
        const auto& exponential = As<ExponentialFunction>(function);
        if (exponential.GetN() != first.GetN())
            return nullptr;
        c0.insert(c0.end(), exponential.GetC0().begin(), exponential.GetC0().end());
        c1.insert(c1.end(), exponential.GetC1().begin(), exponential.GetC1().end());
    }
    return ExponentialFunction::Factory(std::move(c0), std::move(c1), first.GetN())
        .SetDomain(first.GetDomain().front())
        .SetRange(GetJoinedRange(functions))
        .Get();
}

std::shared_ptr<const Function> JoinStitchings(const Functions& functions)
{
    const auto& first = As<StitchingFunction>(functions.front());
    for (const auto& function : functions) {
        const auto& stitching = As<StitchingFunction>(function);
        if (stitching.GetBounds() != first.GetBounds() || stitching.GetEncode() != first.GetEncode())
            return nullptr;
    }
    Functions parts;
    for (std::size_t part = 0; part < first.GetFunctions().size(); ++part) {
        Functions sideBySide;
        for (const auto& function : functions)
            sideBySide.push_back(As<StitchingFunction>(function).GetFunctions()[part]);
        parts.push_back(JoinFunctions(sideBySide));
        if (!parts.back())
            return nullptr;
    }
    return StitchingFunction::Factory(std::move(parts), first.GetBounds())
        .SetEncode(first.GetEncode())
        .SetDomain(first.GetDomain().front())
        .SetRange(GetJoinedRange(functions))
        .Get();
}

} // namespace

std::shared_ptr<const Function> JoinFunctions(const Functions& functions)
{
    if (functions.size() == 1)
        return functions.front();
    if (functions.empty() || !HaveCommonFrame(functions))
        return nullptr;
    switch (functions.front()->GetType()) {
    case Function::Type::Exponential:
        return JoinExponentials(functions);
    case Function::Type::Stitching:
        return JoinStitchings(functions);
    case Function::Type::Whole:
        break;
    }
    return nullptr;
}

} // namespace OrvPaint::Detail
