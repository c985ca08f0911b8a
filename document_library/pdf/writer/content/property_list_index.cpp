#include "pdf/writer/content/property_list_index.h"

namespace OrvPdf
{

const OrvSys::PdfObject& GetPropertyList(const OrvDoc::MarkedContent& mark)
{
    return mark.properties.IsName() ? mark.resource : mark.properties;
}

std::size_t PropertyListIndex::Add(const OrvDoc::MarkedContent& mark)
{
    const OrvSys::PdfObject& value = GetPropertyList(mark);
    const std::pair<int, std::uint64_t> key(mark.resourceObject,
                                            mark.resourceObject != 0 ? 0 : value.GetDigest());
    const auto [begin, end] = places.equal_range(key);
    for (auto place = begin; place != end; ++place) {
        if (mark.resourceObject != 0 || GetPropertyList(lists[place->second]) == value) {
            return place->second;
        }
    }
    places.emplace(key, lists.size());
    lists.push_back(mark);
    return lists.size() - 1;
}

std::vector<OrvDoc::MarkedContent> PropertyListIndex::TakeAll()
{
    places.clear();
    return std::exchange(lists, {});
}

} // namespace OrvPdf
