#include <orv_doc/pdf_links.h>

#include <orv_doc/document.h>

namespace OrvDoc
{

std::vector<std::string>
ResolveNormalizedPDFLinks(Document& document, const std::map<std::string, boost::filesystem::path>& files)
{
    std::vector<std::string> unresolved;
    for (NormalizedPDFLink& link : document.GetNormalizedPDFLinks()) {
        const auto found = files.find(link.key);
        if (found != files.end() && !found->second.empty())
            link.file = found->second;
        if (link.file.empty())
            unresolved.push_back(link.key);
    }
    if (unresolved.empty())
        document.SetInfoFlag(DocumentInfoFlagKey::NormalizedPDFLinks, false);
    return unresolved;
}

} // namespace OrvDoc
