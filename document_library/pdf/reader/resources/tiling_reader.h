#pragma once

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <orv_color/color_space.h>

#include "pdf/reader/resources/nested_stream.h"

namespace OrvPdf
{

class NestedSource;

/// A tiling pattern of a file (ISO 32000-1, 8.7.3). Its cell is read when somebody paints with it.
class PdfTiling : public TilingDefinition
{
public:
    /// `around` are the resources of the content that names the pattern first. `givenSame` is the pattern
    /// whose cell this one has too; null for its own. Needs an access to the file.
    PdfTiling(DocumentResources& givenDocument, QPDFObjectHandle givenStream, QPDFObjectHandle around,
              std::shared_ptr<PdfTiling> givenSame);

    bool IsUncolored() const override { return isUncolored; }
    std::shared_ptr<const PatternUse> Use(const std::shared_ptr<const OrvPaint::FlatPaint>& color,
                                          std::string& problem) override;

private:
    /// A colour: its space, which the document has once, its components and how it overprints.
    using ColorKey = std::tuple<const OrvColor::ColorSpace*, std::vector<float>, bool, bool>;

    static ColorKey MakeKey(const OrvPaint::FlatPaint* color);
    std::shared_ptr<OrvDoc::Content> GetCell(std::string& problem);
    /// Tells what must not be missing and what has no meaning; the pattern is read nonetheless.
    void TellOddEntries(ErrorList& errors);
    std::shared_ptr<const OrvPaint::PatternPaint>
    MakePaint(const std::shared_ptr<OrvDoc::Content>& content,
              const std::shared_ptr<const OrvPaint::FlatPaint>& color, std::string& problem);

    DocumentResources& document;
    NestedStream stream;
    bool isUncolored = false;
    std::shared_ptr<OrvDoc::Content> cell;
    /// The cell's.
    const NestedSource* cellSource = nullptr;
    std::shared_ptr<const NestedReading> told;
    std::map<ColorKey, std::shared_ptr<const PatternUse>> variants;
    std::shared_ptr<PdfTiling> same;
};

} // namespace OrvPdf
