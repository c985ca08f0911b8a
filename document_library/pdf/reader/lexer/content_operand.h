#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "pdf/decimal_scan.h"

namespace OrvPdf
{

enum class OperandKind : std::uint8_t
{
    Null,
    Boolean,
    Number,
    Name,
    String,
    Array,
    Dictionary
};

class OperandRange;

/// One operand of an operation of a content stream (ISO 32000-1, 7.3 and 7.8.2). A small value without memory
/// of its own: it points into the content and the lexer, and is good until the lexer's next operation. Arrays
/// and dictionaries stand in front of their elements in one flat row.
class Operand
{
public:
    Operand() = default;

    OperandKind Kind() const { return kind; }
    bool IsNumber() const { return kind == OperandKind::Number; }
    bool IsName() const { return kind == OperandKind::Name; }
    bool IsString() const { return kind == OperandKind::String; }
    bool IsContainer() const { return kind >= OperandKind::Array; }

    /// The number, rounded once; 0 for what is no number. Numbers are converted when asked, at the cost of
    /// one multiplication or division unless the text has more than about 15 digits.
    double AsNumber() const { return Scaled(0); }

    /// A length in points as milli-points: the number with its decimal exponent raised by three.
    double AsMilliPoints() const { return Scaled(3); }

    /// A hundredth of the number, rounded once: 95 per cent is exactly the double next to 0.95.
    double AsHundredths() const { return Scaled(-2); }

    /// The number rounded to float directly, not by way of double.
    float AsFloat() const
    {
        return flags & isExact ? DecimalToFloat(mantissa, exponent, (flags & isNegative) != 0)
                               : LongDecimalToFloat(Text(), exponent);
    }

    /// A number without a point.
    bool IsInteger() const { return (flags & isWhole) != 0; }

    bool AsBoolean() const { return (flags & isTrue) != 0; }

    /// The decoded bytes of a string; a name without its solidus, decoded; the source text of a number
    /// (without an exponent, see DamageKind::MalformedNumber). Empty for the other kinds.
    std::string_view Text() const { return {text, IsContainer() ? 0 : length}; }

    /// True for a string that was written in hexadecimal.
    bool IsHexString() const { return (flags & isHex) != 0; }

    /// The elements of an array; of a dictionary, keys and values in turn. Empty for the other kinds.
    OperandRange Elements() const;

    /// The number of operands that follow in the row and belong to this one, at all levels.
    std::uint32_t Extent() const { return IsContainer() ? static_cast<std::uint32_t>(exponent) : 0; }

    static Operand Null();
    static Operand Boolean(bool value);
    static Operand Number(std::string_view text, const DecimalScan& scan, std::int32_t extraExponent);
    static Operand Name(std::string_view decoded);
    static Operand String(std::string_view decoded, bool isHex);
    static Operand Container(OperandKind kind);

    /// Completes a container when its elements are known.
    void SetElements(std::size_t count, std::size_t extent);

private:
    static constexpr std::uint8_t isExact = 1;
    static constexpr std::uint8_t isNegative = 2;
    static constexpr std::uint8_t isWhole = 4;
    static constexpr std::uint8_t isTrue = 8;
    static constexpr std::uint8_t isHex = 16;

    double Scaled(int shift) const
    {
        return flags & isExact
                   ? DecimalToDouble(mantissa, std::int64_t{exponent} + shift, (flags & isNegative) != 0)
                   : LongDecimalToDouble(Text(), std::int64_t{exponent} + shift);
    }

    const char* text = "";
    std::size_t length = 0; // bytes of the text; of a container the number of its elements
    std::uint64_t mantissa = 0;
    std::int32_t exponent = 0; // of a container its extent
    OperandKind kind = OperandKind::Null;
    std::uint8_t flags = isExact;
};

/// Operands side by side: those of an operation, or the elements of a container. Iteration steps over what is
/// inside of them.
class OperandRange
{
public:
    class Iterator
    {
    public:
        explicit Iterator(const Operand* operand) : at(operand) {}
        const Operand& operator*() const { return *at; }
        const Operand* operator->() const { return at; }
        Iterator& operator++()
        {
            at += 1 + at->Extent();
            return *this;
        }
        bool operator==(Iterator other) const { return at == other.at; }
        bool operator!=(Iterator other) const { return at != other.at; }

    private:
        const Operand* at;
    };

    OperandRange() = default;
    OperandRange(const Operand* first, std::size_t extent, std::size_t count)
        : firstOperand(first), flatCount(extent), operandCount(count)
    {}

    Iterator begin() const { return Iterator(firstOperand); }
    Iterator end() const { return Iterator(firstOperand + flatCount); }

    std::size_t size() const { return operandCount; }
    bool empty() const { return operandCount == 0; }

    /// Constant time where no operand of the range is a container with elements, else linear in `index`.
    const Operand& operator[](std::size_t index) const
    {
        if (flatCount == operandCount) {
            return firstOperand[index];
        }
        Iterator at = begin();
        while (index-- > 0) {
            ++at;
        }
        return *at;
    }

    /// The last `count` operands, which must be there. Linear in the others if containers are among the
    /// operands.
    OperandRange Last(std::size_t count) const
    {
        const std::size_t others = operandCount - count;
        if (flatCount == operandCount) {
            return {firstOperand + others, count, count};
        }
        const Operand* first = firstOperand;
        for (std::size_t i = 0; i < others; ++i) {
            first += 1 + first->Extent();
        }
        return {first, flatCount - static_cast<std::size_t>(first - firstOperand), count};
    }

    /// Takes the range as keys and values in turn: the value behind the first name `key`, null if there is
    /// none. An element that stands where a key should and is no name is skipped.
    const Operand* FindValue(std::string_view key) const;

    /// As FindValue, for a key with an abbreviation (ISO 32000-1, Table 93).
    const Operand* FindValue(std::string_view key, std::string_view abbreviation) const;

private:
    const Operand* firstOperand = nullptr;
    std::size_t flatCount = 0;
    std::size_t operandCount = 0;
};

inline OperandRange Operand::Elements() const
{
    return IsContainer() ? OperandRange(this + 1, Extent(), length) : OperandRange();
}

inline Operand Operand::Number(std::string_view text, const DecimalScan& scan, std::int32_t extraExponent)
{
    Operand operand;
    operand.text = text.data();
    operand.length = text.size();
    operand.mantissa = scan.mantissa;
    operand.exponent = scan.exponent + extraExponent;
    operand.kind = OperandKind::Number;
    operand.flags =
        static_cast<std::uint8_t>((scan.isExact ? isExact : 0) | (scan.isNegative ? isNegative : 0) |
                                  (scan.isInteger && extraExponent == 0 ? isWhole : 0));
    return operand;
}

} // namespace OrvPdf
