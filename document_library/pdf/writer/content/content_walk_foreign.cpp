#include "pdf/writer/content/content_walk.h"

#include <orv_doc/page.h>
#include <orv_doc/page_content.h>
#include <orv_sys/pdf_object.h>

#include "pdf/reader/content/foreign_parameters.h"
#include "pdf/reader/document/page_source.h"
#include "pdf/reader/resources/nested_source.h"

namespace OrvPdf
{

const ForeignObjects* FindForeignObjects(const OrvDoc::Content& content)
{
    if (const auto* const ofPage = dynamic_cast<const OrvDoc::PageContent*>(&content)) {
        const auto* const source = dynamic_cast<const PdfPageSource*>(ofPage->GetPage().GetSource());
        return source ? source->GetInterpretation().foreign.get() : nullptr;
    }
    const auto* const source = dynamic_cast<const NestedSource*>(content.GetSource());
    return source ? source->foreign.get() : nullptr;
}

void ContentWalk::LeaveForeignParameters()
{
    LeaveSharedMatrix();
    if (containers.back().foreignParameters) {
        states.Restore();
        containers.back().foreignParameters = nullptr;
    }
}

std::size_t ContentWalk::AddForeignParameters(const OrvSys::PdfObject& parameters)
{
    const auto candidates = foreignIndices.equal_range(parameters.GetDigest());
    for (auto candidate = candidates.first; candidate != candidates.second; ++candidate) {
        if (result.foreignParameters[candidate->second] == parameters) {
            return candidate->second;
        }
    }
    foreignIndices.emplace(parameters.GetDigest(), result.foreignParameters.size());
    result.foreignParameters.push_back(parameters);
    return result.foreignParameters.size() - 1;
}

void ContentWalk::EnterForeignParameters(const OrvDoc::ContentObject& object)
{
    const OrvSys::PdfObject* const wanted = foreignObjects ? foreignObjects->Find(object.GetID()) : nullptr;
    if (AreSameForeignParameters(containers.back().foreignParameters, wanted)) {
        return;
    }
    LeaveForeignParameters();
    if (wanted) {
        states.Save();
        out.append("/fp" + std::to_string(AddForeignParameters(*wanted)) + " gs\n");
        containers.back().foreignParameters = wanted;
    }
}

} // namespace OrvPdf
