#pragma once

#include <string>
#include <vector>

#include <orv_doc/stroke_properties.h>

#include "pdf/matrix_numbers.h"
#include "pdf/writer/content/ext_g_state.h"
#include "pdf/writer/content/paint_color.h"
#include "pdf/writer/content/text_parameters.h"

namespace OrvPdf
{

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
    void SetBase();
    /// From the container that is being written to the coordinates of the content.
    const Matrix& GetBase() const { return levels.back().base; }
    /// Goes back from the matrix in force to the identity. False, and nothing is written, if it has no
    /// inverse.
    bool Reset();

    void SetFillColor(const PaintColor& color);
    void SetStrokeColor(const PaintColor& color);
    void SetStrokeProperties(const OrvDoc::StrokeProperties& properties);
    /// The colours and stroke properties that a page begins with.
    void SetInitialFillColor() { SetFillColor(PaintColor()); }
    void SetInitialStrokeColor() { SetStrokeColor(PaintColor()); }
    void SetInitialStrokeProperties();
    const TextParameters& GetText() const { return levels.back().text; }
    /// For what is written next.
    void SetText(const TextParameters& wanted);
    /// What somebody else has written.
    void NoteText(const TextParameters& written) { levels.back().text = written; }
    /// The parameters of text that a page begins with, but for the font, which none is.
    void SetInitialText() { SetText(TextParameters()); }
    /// What an object needs. The overprint that is asked for by no paint stays as it is. Both may be null; of
    /// two that depend on the mode both have the same one. `halftones` is null where they may stay as they
    /// are.
    ExtGState FindParameters(const PaintSettings* fill, const PaintSettings* stroke,
                             const OrvBlend::Transparency& blending,
                             const std::shared_ptr<OrvDoc::HalftoneSet>* halftones) const;
    /// What a form needs around it: the halftones of the device, and no overprint in mode 0 if
    /// `isOverprintInitial`; otherwise the overprint stays as it is.
    ExtGState FindFormParameters(const OrvBlend::Transparency& blending, bool isOverprintInitial) const;
    /// Whether these have to be set. What is not known has to be where something is painted.
    bool NeedsParameters(const ExtGState& wanted, bool isPainted) const;
    /// Sets them if they have to be. A soft mask is to be set under the matrix of the container.
    void SetParameters(const ExtGState& wanted, bool isPainted);

    /// The states of the resources.
    const std::vector<ExtGState>& GetExtGStates() const { return states.GetAll(); }

private:
    struct Level
    {
        Matrix matrix;
        /// That of the container, which leads to the coordinates of the content.
        Matrix base;
        PaintColor fill;
        PaintColor stroke;
        /// Null if they are not known. Otherwise their owner lives as long as the content that is being
        /// written.
        const OrvDoc::StrokeProperties* properties;
        TextParameters text;
        ExtGState parameters;
        bool areParametersKnown = true;
    };

    void SetColor(PaintColor& current, const PaintColor& color, bool isStroke);
    void AppendDash(const OrvDoc::StrokeProperties& properties);

    std::string& out;
    std::vector<Level> levels;
    ExtGStateIndex states;
};

/// Whether all numbers of the stroke properties are finite.
bool IsFinite(const OrvDoc::StrokeProperties& properties);

} // namespace OrvPdf
