#include "pdf/reader/resources/definition_limits.h"

#include <algorithm>
#include <cstdint>

#include <orv_color/color_space.h>

#include "pdf/content_characters.h"
#include "pdf/limit_text.h"
#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

namespace
{

using Limits = OrvDoc::ReadOptions::Limits;

// Divides, so that nothing overflows.
bool HasTooManySamples(QPDFObjectHandle function, std::uint64_t limit)
{
    QPDFObjectHandle sizes = GetEntry(function, "/Size");
    QPDFObjectHandle range = GetEntry(function, "/Range");
    if (!sizes.isArray() || !range.isArray())
        return false;
    std::uint64_t samples = std::max(range.getArrayNItems() / 2, 1);
    for (int index = 0; index < sizes.getArrayNItems() && samples <= limit; ++index) {
        QPDFObjectHandle size = sizes.getArrayItem(index);
        if (!size.isInteger() || size.getIntValue() < 1)
            return false;
        if (size.getUIntValue() > limit / samples)
            return true;
        samples *= size.getUIntValue();
    }
    return samples > limit;
}

std::string FindFunctionLimit(QPDFObjectHandle function, std::size_t functionsAround, const Limits& limits)
{
    if (functionsAround >= limits.functionNesting)
        return LimitText("functionNesting", limits.functionNesting);
    const bool isSampled = GetEntry(function, "/FunctionType").getIntValue() == 0;
    if (isSampled && HasTooManySamples(function, limits.functionSamples))
        return LimitText("functionSamples", limits.functionSamples);
    return {};
}

std::string FindColorantLimit(QPDFObjectHandle array, const Limits& limits)
{
    const int count = array.getArrayNItems();
    if (count < 2 || !array.getArrayItem(0).isNameAndEquals("/DeviceN"))
        return {};
    QPDFObjectHandle names = array.getArrayItem(1);
    const std::uint64_t most = std::min<std::uint64_t>(limits.colorants, OrvColor::ColorSpace::MaxColorants);
    const bool isBeyond = names.isArray() && static_cast<std::uint64_t>(names.getArrayNItems()) > most;
    return isBeyond ? LimitText("colorants", most) : std::string();
}

} // namespace

bool IsFunction(QPDFObjectHandle object)
{
    return (object.isDictionary() || object.isStream()) && GetEntry(object, "/FunctionType").isInteger();
}

std::string FindDefinitionLimit(QPDFObjectHandle object, std::size_t functionsAround, const Limits& limits)
{
    if (object.isArray())
        return FindColorantLimit(object, limits);
    return IsFunction(object) ? FindFunctionLimit(object, functionsAround, limits) : std::string();
}

std::string FindCalculatorLimit(std::string_view program, const Limits& limits)
{
    std::uint64_t tokens = 0;
    std::uint64_t depth = 0;
    bool isComment = false;
    bool isToken = false; // Whether the byte before belongs to a token that this one may go on.
    for (const char character : program) {
        isComment = isComment ? character != '\r' && character != '\n' : character == '%';
        const bool isBrace = !isComment && (character == '{' || character == '}');
        const bool isPart = !isComment && !isBrace && !IsWhite(character);
        tokens += isBrace || (isPart && !isToken) ? 1 : 0;
        isToken = isPart;
        if (isBrace && character == '{')
            ++depth;
        else if (isBrace && depth > 0)
            --depth;
        if (depth > limits.functionNesting)
            return LimitText("functionNesting", limits.functionNesting);
        if (tokens > limits.calculatorTokens)
            return LimitText("calculatorTokens", limits.calculatorTokens);
    }
    return {};
}

} // namespace OrvPdf
