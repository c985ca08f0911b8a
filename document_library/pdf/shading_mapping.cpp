#include "pdf/shading_mapping.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrvPdf
{

namespace
{

using OrvSys::PdfObject;
using Policy = OrvColor::SeparationMappingPolicy;

PdfObject DefineIndex(std::size_t index)
{
    return PdfObject::Integer(index == Policy::Default() ? -1 : static_cast<std::int64_t>(index));
}

std::size_t ReadIndex(const PdfObject& index)
{
    if (!index.IsInteger() || index.GetInteger() < -1) {
        throw std::invalid_argument(std::string(ShadingKeys::mapping) + ": '" +
                                    index.Serialize().substr(0, 40) + "' is no index");
    }
    return index.GetInteger() == -1 ? Policy::Default() : static_cast<std::size_t>(index.GetInteger());
}

} // namespace

PdfObject DefineMapping(const SeparationMapping& mapping)
{
    PdfObject::Items entries;
    for (const SeparationMapping::Entry& entry : mapping.entries) {
        entries.push_back(PdfObject::String(entry.name));
        entries.push_back(DefineIndex(entry.value));
    }
    return PdfObject::Dictionary({{"Entries", PdfObject::Array(std::move(entries))},
                                  {"ForAll", DefineIndex(mapping.valueForAll)},
                                  {"All", PdfObject::Boolean(mapping.all)}});
}

SeparationMapping ReadMapping(const PdfObject& definition)
{
    const PdfObject entries = definition.Find("Entries");
    const PdfObject all = definition.Find("All");
    if (!entries.IsArray() || entries.GetItems().size() % 2 != 0 || !all.IsBoolean()) {
        throw std::invalid_argument(std::string(ShadingKeys::mapping) + ": it is no mapping");
    }
    SeparationMapping mapping;
    const PdfObject::Items& items = entries.GetItems();
    for (std::size_t item = 0; item < items.size(); item += 2) {
        if (!items[item].IsString()) {
            throw std::invalid_argument(std::string(ShadingKeys::mapping) + ": a separation has no name");
        }
        mapping.Add(items[item].GetText(), ReadIndex(items[item + 1]));
    }
    mapping.valueForAll = ReadIndex(definition.Find("ForAll"));
    mapping.all = all.GetBoolean();
    return mapping;
}

} // namespace OrvPdf
