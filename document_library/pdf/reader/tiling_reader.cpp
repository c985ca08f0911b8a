#include "pdf/reader/tiling_reader.h"

#include <stdexcept>
#include <utility>

#include <orv_paint/flat_paint.h>
#include <orv_paint/pattern_paint.h>

#include "pdf/number_text.h"
#include "pdf/reader/document_resources.h"
#include "pdf/reader/geometry_reader.h"
#include "pdf/reader/nested_source.h"
#include "pdf/reader/qpdf_text.h"

namespace OrvPdf
{

namespace
{

using OrvDoc::Content;
using OrvPaint::FlatPaint;
using OrvPaint::PatternPaint;

bool AreEqual(const std::shared_ptr<const FlatPaint>& left, const std::shared_ptr<const FlatPaint>& right)
{
    if (left == right)
        return true;
    return left && right && left->GetNativeSpace() == right->GetNativeSpace() &&
           left->GetNativeComponents() == right->GetNativeComponents() &&
           left->IsNonzeroOverprint() == right->IsNonzeroOverprint() && left->GetColor() == right->GetColor();
}

double ReadStep(QPDFObjectHandle step)
{
    std::string text;
    double value = 0.0;
    // A length in points, as milli-points.
    return GetNumberText(step, text) && ParseNumber(text, 3, value) ? value : 0.0;
}

PatternPaint::TilingType ReadTilingType(QPDFObjectHandle type)
{
    const auto number = type.isInteger() ? type.getIntValue() : 1;
    return number == 2 || number == 3 ? static_cast<PatternPaint::TilingType>(number)
                                      : PatternPaint::TilingType::ConstantSpacing;
}

} // namespace

PdfTiling::PdfTiling(DocumentResources& givenDocument, QPDFObjectHandle givenStream, QPDFObjectHandle around,
                     std::shared_ptr<PdfTiling> givenSame)
    : document(givenDocument),
      stream(givenDocument, givenStream, "pattern", around),
      same(std::move(givenSame))
{
    QPDFObjectHandle paintType = GetEntry(givenStream, "/PaintType");
    isUncolored = paintType.isInteger() && paintType.getIntValue() == 2;
    if (same && same->isUncolored != isUncolored)
        same = nullptr;
}

std::shared_ptr<const PatternUse> PdfTiling::Use(const std::shared_ptr<const FlatPaint>& color,
                                                 std::string& problem)
{
    const std::lock_guard<std::recursive_mutex> lock(document.GetNestedContents().mutex);
    for (const Variant& variant : variants) {
        if (AreEqual(variant.color, color))
            return variant.use;
    }
    const std::shared_ptr<Content> content = same ? same->GetCell(problem) : GetCell(problem);
    if (!content)
        return nullptr;
    auto use = std::make_shared<PatternUse>();
    use->paint = MakePaint(content, color, problem);
    use->reading = same ? same->told : told;
    if (!use->paint)
        return nullptr;
    variants.push_back({color, use});
    return use;
}

std::shared_ptr<Content> PdfTiling::GetCell(std::string& problem)
{
    if (cell || !stream.MayRead(problem))
        return cell;
    // A cell begins in the state of the content that the pattern belongs to, which begins in that of a page.
    NestedStream::Reading reading = stream.Read(
        isUncolored ? Content::Type::UncoloredPatternContent : Content::Type::ColoredPatternContent, nullptr);
    auto source = std::make_unique<NestedSource>();
    source->object = stream.GetStream().getObjectID();
    source->hasUnmodelled = reading.interpretation.hasUnmodelled;
    source->baseRevision = reading.content->GetRevision();
    reading.content->SetSource(std::move(source));
    told = stream.Tell(reading);
    cell = reading.content;
    return cell;
}

std::shared_ptr<const PatternPaint> PdfTiling::MakePaint(const std::shared_ptr<Content>& content,
                                                         const std::shared_ptr<const FlatPaint>& color,
                                                         std::string& problem)
{
    const SourceFile::Access access(document.GetFile());
    QPDFObjectHandle handle = stream.GetStream();
    std::vector<std::string> problems;
    PatternPaint::Factory factory(content);
    factory.SetTransformation(ReadMatrix(GetEntry(handle, "/Matrix"), "Matrix", problems))
        .SetCellClip(ReadRectangle(GetEntry(handle, "/BBox"), "BBox", problems))
        .SetStep({ReadStep(GetEntry(handle, "/XStep")), ReadStep(GetEntry(handle, "/YStep"))})
        .SetTilingType(ReadTilingType(GetEntry(handle, "/TilingType")))
        .SetColor(color);
    if (!problems.empty()) {
        problem = problems.front();
        return nullptr;
    }
    try {
        return factory.Get();
    } catch (const std::invalid_argument& failure) {
        problem = failure.what();
        return nullptr;
    }
}

} // namespace OrvPdf
