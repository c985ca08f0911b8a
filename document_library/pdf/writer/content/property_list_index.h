#pragma once

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include <orv_doc/marked_content.h>

namespace OrvPdf
{

/// The property lists of one content that stand in its resources, each once, in order of their first use.
class PropertyListIndex
{
public:
    /// The place in the list.
    std::size_t Add(const OrvDoc::MarkedContent& mark);

    /// The list; the index is empty afterwards. Of each the properties and the resource matter, not the tag.
    std::vector<OrvDoc::MarkedContent> TakeAll();

private:
    std::vector<OrvDoc::MarkedContent> lists;
    /// By object number, or else by the digest of the value.
    std::multimap<std::pair<int, std::uint64_t>, std::size_t> places;
};

/// The value of a property list: of one that is named in the resources what stands there.
const OrvSys::PdfObject& GetPropertyList(const OrvDoc::MarkedContent& mark);

} // namespace OrvPdf
