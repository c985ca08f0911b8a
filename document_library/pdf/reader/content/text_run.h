#pragma once

#include <memory>

#include <boost/optional.hpp>

#include <orv_doc/shown_text.h>
#include <orv_doc/text.h>

#include "pdf/reader/content/graphics_state.h"
#include "pdf/text_line.h"

namespace OrvPdf
{

/// What is shown one behind the other in one font, size, spacing and paint: what becomes one text. Begins
/// where the text matrix is when the first character is shown.
class TextRun
{
public:
    /// `textMatrix` is the one in force (ISO 32000-1, 9.4.2). `offset`, in points, leads there from the start
    /// of the line.
    TextRun(const TextSetting& givenSetting, const TextMatrix& textMatrix, double offsetX, double offsetY);

    /// The text's own matrix and a further one of the object, if their product is the matrix that the run
    /// began with.
    void SplitMatrix(const TextMatrix& own, const TextMatrix& ofObject);

    /// Whether what is shown in that setting can be part of the run.
    bool Has(const TextSetting& other) const;

    /// What moved the line since the latest character. The matrices are those of the line.
    void Move(double x, double y);
    /// False, and nothing is done, if the line can't be told from the run's matrix.
    bool GoTo(const TextMatrix& line);
    /// The same to a line that is known exactly, if that leads to the matrix.
    bool GoTo(const TextMatrix& line, const TextLine& exact);

    /// Takes scale and rise of the setting for what is shown now.
    void Prepare(const TextSetting& now);
    void Show(std::string_view codes) { shown.AppendCodes(codes); }
    void Adjust(double thousandths) { shown.AddAdjustment(thousandths); }

    const TextMatrix& GetTextMatrix() const { return matrix; }
    const TextSetting& GetSetting() const { return setting; }
    /// Where the run's current line begins, from the start of the line of the text object, in points.
    double GetOffsetX() const { return firstOffsetX; }
    double GetOffsetY() const { return firstOffsetY; }

    /// Without paints.
    std::unique_ptr<OrvDoc::Text> MakeText() const;

    // What the text is painted with, set by whoever opens the run.
    Matrix transformation;
    std::shared_ptr<const OrvPaint::Paint> fill;
    std::shared_ptr<const OrvPaint::Paint> stroke;
    std::shared_ptr<const OrvDoc::StrokeProperties> strokeProperties;
    std::shared_ptr<OrvDoc::HalftoneSet> halftones;
    std::shared_ptr<const OrvDoc::TransferFunctionSet> transferFunctions;
    ForeignParameters foreign;
    BlendSetting blending;

private:
    TextSetting setting;
    TextMatrix matrix;
    TextMatrix ownMatrix;
    TextMatrix objectMatrix;
    /// The current line; its axes are those of the latest turn.
    TextMatrix line;
    double firstOffsetX;
    double firstOffsetY;
    double scale = 1.0;
    double rise = 0.0;
    OrvDoc::ShownText shown;
};

} // namespace OrvPdf
