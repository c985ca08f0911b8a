#include "external_reference_comparison.h"

#include <orv_doc/document.h>
#include <vantry/uri.h>
#include <vantry/uri_exception.h>

#include <string>

namespace HarrowSupport::Comparators
{

namespace
{

std::string PlaceSeenFrom(const OrvDoc::Document& document, const boost::filesystem::path& reference)
{
    const boost::network::uri::uri base = Vantry::ToURI(document.GetFilePath());
    return Vantry::MakeRelativeURI(Vantry::ToURI(reference), base).string();
}

} // namespace

bool CompareExternalReferences(const OrvDoc::Document& leftDocument, const OrvDoc::Document& rightDocument,
                               const ExternalReference& left, const ExternalReference& right)
{
    if (!left || !right)
        return left.has_value() == right.has_value();
    if (left->first.compare(right->first) == 0 && left->second == right->second)
        return true;
    try {
        return PlaceSeenFrom(leftDocument, left->first) == PlaceSeenFrom(rightDocument, right->first);
    } catch (const Vantry::URIException&) {
        return false;
    }
}

} // namespace HarrowSupport::Comparators
