#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <orv_sys/export.h>

namespace OrvDoc
{

// For makers of documents.

/// What a run of text-showing operators shows and where: the codes as the font reads them, and between them
/// the steps that move what follows (ISO 32000-1, 9.4). It says the same as a transformation for each
/// character, in a fraction of the memory, and keeps the numbers as they were given.
///
/// Coordinates are those of the text: points, before its text transformation. A line starts at their origin;
/// each character stands behind the one before it.
class ORV_EXPORT ShownText
{
public:
    enum class Kind : std::uint8_t
    {
        Adjustment, ///< 1 value: back by so many thousandths of the size (`TJ`).
        Move,  ///< 2: a new line, so far from the start of the current one, in the axes of the line (`Td`).
        Line,  ///< 2: a new line that starts there.
        Turn,  ///< 6: a new line under this matrix, whose last two values are where it starts.
        Scale, ///< 1: from here on horizontal lengths are multiplied with it; 1 at first (`Tz`).
        Rise,  ///< 1: from here on characters stand so far above the line; 0 at first (`Ts`).
    };

    struct Step
    {
        /// How many bytes of the codes stand before it.
        std::uint32_t position;
        Kind kind;
    };

    static constexpr std::size_t CountValues(Kind kind)
    {
        return kind == Kind::Turn ? 6 : kind == Kind::Move || kind == Kind::Line ? 2 : 1;
    }

    /// The bytes of the strings.
    const std::string& GetCodes() const { return codes; }
    const std::vector<Step>& GetSteps() const { return steps; }
    /// Those of all steps, in order.
    const std::vector<double>& GetValues() const { return values; }
    bool IsEmpty() const { return codes.empty(); }

    void AppendCodes(std::string_view bytes) { codes.append(bytes); }
    void AddAdjustment(double thousandths) { Add(Kind::Adjustment, {thousandths}); }
    void AddMove(double x, double y) { Add(Kind::Move, {x, y}); }
    void AddLine(double x, double y) { Add(Kind::Line, {x, y}); }
    void AddTurn(double a, double b, double c, double d, double x, double y)
    {
        Add(Kind::Turn, {a, b, c, d, x, y});
    }
    void AddScale(double factor) { Add(Kind::Scale, {factor}); }
    void AddRise(double points) { Add(Kind::Rise, {points}); }
    /// Drops the steps behind the last code, which move nothing.
    void DropTrailingSteps();

    /// Whether all values are finite.
    bool IsFinite() const;

    friend bool operator==(const ShownText& left, const ShownText& right);
    friend bool operator!=(const ShownText& left, const ShownText& right) { return !(left == right); }

private:
    void Add(Kind kind, std::initializer_list<double> added);

    std::string codes;
    std::vector<Step> steps;
    std::vector<double> values;
};

ORV_EXPORT bool operator==(const ShownText& left, const ShownText& right);

} // namespace OrvDoc
