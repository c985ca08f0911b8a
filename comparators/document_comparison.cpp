// Order of steps: output intent, separation info if asked for, layers, number of pages; then each pair of
// pages, boxes first and content after, with the reports of the boxes held back until the content is done.
// Pages are not searched for their best partner: with different counts none is compared.

#include "document_comparison.h"

#include "compare_or_report.h"
#include "comparison_context.h"
#include "content_comparison.h"
#include "coordinate_equality.h"
#include "layer_comparison.h"

#include <orv_color/output_intent.h>
#include <orv_doc/document.h>
#include <orv_doc/page.h>
#include <orv_doc/page_box.h>
#include <orv_doc/separation.h>

#include <cstdint>

namespace HarrowSupport::Comparators
{

namespace
{

using Box = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

struct LabelledBox
{
    OrvDoc::PageBox box;
    const char* label;
};

constexpr LabelledBox pageBoxes[] = {
    {OrvDoc::PageBox::Media, "PageMediaBox"}, {OrvDoc::PageBox::Crop, "PageCropBox"},
    {OrvDoc::PageBox::Bleed, "PageBleedBox"}, {OrvDoc::PageBox::Trim, "PageTrimBox"},
    {OrvDoc::PageBox::Art, "PageArtBox"},
};

/// Returns whether the page counts are equal.
bool ComparePageCounts(ComparisonContext& context, const OrvDoc::Document& left,
                       const OrvDoc::Document& right)
{
    return CompareOrReport(context.reporter, "PageCount", left.GetNumberOfPages(), right.GetNumberOfPages());
}

} // namespace

void CompareDocuments(ComparisonContext& context, const OrvDoc::Document& left, const OrvDoc::Document& right)
{
    CompareOrReport(context.reporter, "OutputIntent", left.GetOutputIntent(), right.GetOutputIntent());
    if (context.options.compareSeparationInfo) {
        CompareOrReport(context.reporter, "SeparationInfo", left.GetSeparationInfo(),
                        right.GetSeparationInfo());
    }
    CompareLayers(context, left.GetLayers(), right.GetLayers());
    if (!ComparePageCounts(context, left, right))
        return;

    auto rightPage = right.GetPagesBegin();
    for (auto leftPage = left.GetPagesBegin(); leftPage != left.GetPagesEnd(); ++leftPage, ++rightPage) {
        DifferenceScope<OrvDoc::Page> scope(*leftPage, *rightPage);
        ComparePageBoxes(context, scope, *leftPage, *rightPage);
        const bool completed = CompareContents(context, leftPage->GetContent(), rightPage->GetContent());
        scope.Flush(context.reporter);
        if (!completed)
            return;
    }
}

void ComparePageBoxes(ComparisonContext&, DifferenceScope<OrvDoc::Page>& scope, const OrvDoc::Page& left,
                      const OrvDoc::Page& right)
{
    for (const LabelledBox& entry : pageBoxes) {
        const Box& leftBox = left.GetPageBox(entry.box);
        const Box& rightBox = right.GetPageBox(entry.box);
        if (!AllEdgesMatch(leftBox, rightBox))
            scope.AddValues(entry.label, leftBox, rightBox);
    }
}

} // namespace HarrowSupport::Comparators
