#include "pdf/reader/resources/tiling_reader.h"

#include <stdexcept>
#include <utility>

#include <orv_paint/flat_paint.h>
#include <orv_paint/pattern_paint.h>

#include "pdf/number_text.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/resources/document_resources.h"
#include "pdf/reader/resources/geometry_reader.h"
#include "pdf/reader/resources/nested_source.h"

namespace OrvPdf
{

namespace
{

using OrvDoc::Content;
using OrvPaint::FlatPaint;
using OrvPaint::PatternPaint;

double ReadStep(QPDFObjectHandle step)
{
    std::string text;
    double value = 0.0;
    // A length in points, as milli-points.
    return GetNumberText(step, text) && ParseNumber(text, 3, value) ? value : 0.0;
}

bool IsIntegerIn(QPDFObjectHandle object, long long first, long long last)
{
    return object.isInteger() && object.getIntValue() >= first && object.getIntValue() <= last;
}

PatternPaint::TilingType ReadTilingType(QPDFObjectHandle type)
{
    return IsIntegerIn(type, 1, 3) ? static_cast<PatternPaint::TilingType>(type.getIntValue())
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
    const ColorKey key = MakeKey(color.get());
    const auto known = variants.find(key);
    if (known != variants.end())
        return known->second;
    const std::shared_ptr<Content> content = same ? same->GetCell(problem) : GetCell(problem);
    if (!content)
        return nullptr;
    auto use = std::make_shared<PatternUse>();
    use->paint = MakePaint(content, color, problem);
    use->reading = same ? same->told : told;
    if (!use->paint)
        return nullptr;
    (same ? same->cellSource : cellSource)->AddPattern(use->paint, stream.GetStream().getObjectID());
    variants.emplace(key, use);
    return use;
}

PdfTiling::ColorKey PdfTiling::MakeKey(const FlatPaint* color)
{
    return color ? ColorKey(color->GetNativeSpace().get(), color->GetNativeComponents(),
                            color->GetColor().overprint, color->IsNonzeroOverprint())
                 : ColorKey();
}

std::shared_ptr<Content> PdfTiling::GetCell(std::string& problem)
{
    if (cell || !stream.MayRead(problem))
        return cell;
    // A cell begins in the state of the content that the pattern belongs to, which begins in that of a page.
    NestedStream::Reading reading = stream.Read(
        isUncolored ? Content::Type::UncoloredPatternContent : Content::Type::ColoredPatternContent, nullptr);
    TellOddEntries(reading.errors);
    auto source = stream.MakeSource(reading);
    cellSource = source.get();
    reading.content->SetSource(std::move(source));
    told = stream.Tell(reading);
    cell = reading.content;
    return cell;
}

void PdfTiling::TellOddEntries(ErrorList& errors)
{
    const SourceFile::Access access(document.GetFile());
    QPDFObjectHandle handle = stream.GetStream();
    if (!IsIntegerIn(GetEntry(handle, "/PaintType"), 1, 2))
        errors.Add("PaintType is neither 1 nor 2; the pattern counts as coloured");
    if (!IsIntegerIn(GetEntry(handle, "/TilingType"), 1, 3))
        errors.Add("TilingType is not from 1 to 3; it counts as 1");
    std::vector<std::string> matrixProblems;
    ReadMatrix(GetEntry(handle, "/Matrix"), "Matrix", matrixProblems);
    for (const std::string& problem : matrixProblems)
        errors.Add(problem + "; it counts as missing");
    if (GetEntry(handle, "/BBox").isNull())
        errors.Add("BBox is missing");
    for (const char* const key : {"/XStep", "/YStep"}) {
        if (ReadStep(GetEntry(handle, key)) == 0.0)
            errors.Add(std::string(key + 1) + " is no number other than zero");
    }
}

std::shared_ptr<const PatternPaint> PdfTiling::MakePaint(const std::shared_ptr<Content>& content,
                                                         const std::shared_ptr<const FlatPaint>& color,
                                                         std::string& problem)
{
    const SourceFile::Access access(document.GetFile());
    QPDFObjectHandle handle = stream.GetStream();
    std::vector<std::string> problems;
    std::vector<std::string> toldAlready;
    PatternPaint::Factory factory(content);
    factory.SetTransformation(ReadMatrix(GetEntry(handle, "/Matrix"), "Matrix", toldAlready))
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
