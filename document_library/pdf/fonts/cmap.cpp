#include "pdf/fonts/cmap.h"

#include "pdf/fonts/cmap_library.h"
#include "pdf/fonts/range_cmap.h"

#include <utility>

namespace OrvPdf
{

namespace
{

std::shared_ptr<const CMap> MakeIdentity(const std::string& name, int writingMode)
{
    const std::string file = "/CMapName /" + name + " def /WMode " + std::to_string(writingMode) +
                             " def /Registry (Adobe) def /Ordering (Identity) def "
                             "begincodespacerange <0000> <FFFF> endcodespacerange "
                             "begincidrange <0000> <FFFF> 0 endcidrange";
    std::string problem;
    return ParseCMap(file, nullptr, {}, problem);
}

} // namespace

std::shared_ptr<const CMap> CMap::GetIdentity(OrvFont::WritingMode mode)
{
    static const auto horizontal = MakeIdentity("Identity-H", 0);
    static const auto vertical = MakeIdentity("Identity-V", 1);
    return mode == OrvFont::WritingMode::Vertical ? vertical : horizontal;
}

std::shared_ptr<const CMap> CMap::FindPredefined(const std::string& name)
{
    if (name == "Identity-H")
        return GetIdentity(OrvFont::WritingMode::Horizontal);
    if (name == "Identity-V")
        return GetIdentity(OrvFont::WritingMode::Vertical);
    return CMapLibrary::GetDefault().Find(name);
}

std::shared_ptr<const CMap> CMap::Parse(std::string_view bytes, std::shared_ptr<const CMap> parent,
                                        std::string& problem)
{
    return ParseCMap(bytes, std::move(parent), &CMap::FindPredefined, problem);
}

} // namespace OrvPdf
