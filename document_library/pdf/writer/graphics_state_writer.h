#pragma once

#include <string>
#include <vector>

#include <orv_doc/stroke_properties.h>

#include "pdf/writer/content_text.h"
#include "pdf/writer/paint_color.h"

namespace OrvPdf
{

/// Parameters of overprint in an `ExtGState` resource (ISO 32000-1, 8.6.7).
struct OverprintState
{
    bool stroke = false;
    bool fill = false;
    bool nonzero = false;
};

inline bool operator==(const OverprintState& left, const OverprintState& right)
{
    return left.stroke == right.stroke && left.fill == right.fill && left.nonzero == right.nonzero;
}

/// What the graphics state is when a content begins.
enum class ContentStart
{
    Page,  ///< The initial one (ISO 32000-1, tables 52 and 53).
    Nested ///< In a form or a pattern: what is in force where it is used. Nothing of it may be relied on.
};

/// Writes changes of the graphics state (ISO 32000-1, 8.4), and knows at each level of `q` what a reader has,
/// so that only what differs is written.
class GraphicsStateWriter
{
public:
    GraphicsStateWriter(std::string& output, ContentStart start);

    /// `q` and `Q`.
    void Save();
    void Restore();
    std::size_t GetDepth() const { return levels.size(); }

    /// The matrix in force, seen from the container that is being written.
    const Matrix& GetMatrix() const { return levels.back().matrix; }
    /// `cm` of a matrix, over the identity.
    void Concatenate(const Matrix& matrix);
    /// The container whose own matrix is in force begins: seen from there it is the identity.
    void SetBase() { levels.back().matrix = Matrix(); }
    /// Goes back from the matrix in force to the identity. False, and nothing is written, if it has no
    /// inverse.
    bool Reset();

    void SetFillColor(const PaintColor& color);
    void SetStrokeColor(const PaintColor& color);
    void SetStrokeProperties(const OrvDoc::StrokeProperties& properties);
    /// What is asked for by no paint stays as it is. Both may be null; of two that depend on the mode both
    /// have the same one.
    void SetOverprint(const PaintSettings* fill, const PaintSettings* stroke);

    /// The states of the resources.
    const std::vector<OverprintState>& GetOverprintStates() const { return overprintStates; }

private:
    struct Level
    {
        Matrix matrix;
        PaintColor fill;
        PaintColor stroke;
        /// Null if they are not known. Otherwise their owner lives as long as the content that is being
        /// written.
        const OrvDoc::StrokeProperties* properties;
        OverprintState overprint;
        bool isOverprintKnown = true;
    };

    void SetColor(PaintColor& current, const PaintColor& color, bool isStroke);
    void AppendDash(const OrvDoc::StrokeProperties& properties);

    std::string& out;
    std::vector<Level> levels;
    std::vector<OverprintState> overprintStates;
};

/// Whether all numbers of the stroke properties are finite.
bool IsFinite(const OrvDoc::StrokeProperties& properties);

} // namespace OrvPdf
