#include <harrow_support/comparators.h>

#include "compare_or_report.h"
#include "comparison_context.h"
#include "content_comparison.h"
#include "document_comparison.h"

#include <orv_doc/content.h>
#include <orv_doc/content_object.h>
#include <orv_doc/separation.h>

namespace HarrowSupport::Comparators
{

Reporter::Reporter() = default;

Reporter::Reporter(const Reporter&) {}

Reporter& Reporter::operator=(const Reporter&)
{
    return *this;
}

Reporter::~Reporter() = default;

void Compare(Reporter& reporter, const std::vector<OrvDoc::Separation::Entry>& left,
             const std::vector<OrvDoc::Separation::Entry>& right, const Options& options)
{
    ComparisonContext context(reporter, options);
    CompareOrReport(context.reporter, "SeparationInfo", left, right);
}

void Compare(Reporter& reporter, const OrvDoc::Content& left, const OrvDoc::Content& right,
             const Options& options)
{
    ComparisonContext context(reporter, options);
    CompareContents(context, left, right);
}

void Compare(Reporter& reporter, const OrvDoc::ContentObject& left, const OrvDoc::ContentObject& right,
             const Options& options)
{
    ComparisonContext context(reporter, options);
    DifferenceScope<OrvDoc::ContentObject> scope(left, right);
    CompareObjects(context, scope);
    scope.Flush(context.reporter);
}

void Compare(Reporter& reporter, const OrvDoc::Document& left, const OrvDoc::Document& right,
             const Options& options)
{
    ComparisonContext context(reporter, options);
    CompareDocuments(context, left, right);
}

} // namespace HarrowSupport::Comparators
