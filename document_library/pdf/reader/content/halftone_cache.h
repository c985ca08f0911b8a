#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <orv_doc/halftone_set.h>

namespace OrvPdf
{

/// The halftones of a content, equal ones once.
class HalftoneCache
{
public:
    std::shared_ptr<OrvDoc::HalftoneSet> Get(const std::string& name, const OrvSys::PdfObject& definition);

private:
    std::unordered_map<std::uint64_t, std::vector<std::shared_ptr<OrvDoc::HalftoneSet>>> halftones;
};

} // namespace OrvPdf
