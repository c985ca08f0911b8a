#include "pdf/reader/content/halftone_cache.h"

namespace OrvPdf
{

std::shared_ptr<OrvDoc::HalftoneSet> HalftoneCache::Get(const std::string& name,
                                                        const OrvSys::PdfObject& definition)
{
    auto& candidates = halftones[definition.GetDigest()];
    for (const auto& candidate : candidates) {
        if (candidate->GetName() == name && candidate->GetDefinition() == definition) {
            return candidate;
        }
    }
    candidates.push_back(std::make_shared<OrvDoc::HalftoneSet>(name, definition));
    return candidates.back();
}

} // namespace OrvPdf
