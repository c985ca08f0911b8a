#include "pdf/reader/object_places.h"

#include <algorithm>
#include <map>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFXRefEntry.hh>

#include "pdf/reader/file_scan.h"

namespace OrvPdf
{

namespace
{

constexpr int InFile = 1;

bool StandsAt(QPDFObjGen object, std::string_view text)
{
    SkipBlanks(text);
    if (!text.empty() && text.front() == '%') {
        // Rare enough to be taken on trust.
        return true;
    }
    const auto number = TakeFirstNumber(text);
    const auto generation = TakeFirstNumber(text);
    SkipBlanks(text);
    return number && generation && *number == static_cast<std::size_t>(object.getObj()) &&
           *generation == static_cast<std::size_t>(object.getGen()) && text.substr(0, 3) == "obj";
}

} // namespace

std::vector<ObjectPlace> ListObjectPlaces(QPDF& qpdf, std::string_view bytes)
{
    const std::size_t origin = FindOrigin(bytes);
    std::vector<ObjectPlace> places;
    for (const auto& [object, entry] : qpdf.getXRefTable()) {
        // A place of 0 stands for no object.
        if (entry.getType() == InFile && entry.getOffset() > 0) {
            const std::size_t offset = static_cast<std::size_t>(entry.getOffset());
            const std::size_t left = bytes.size() - origin;
            places.push_back({object, origin + std::min(offset, left), bytes.size()});
        }
    }
    std::stable_sort(places.begin(), places.end(), [](const ObjectPlace& left, const ObjectPlace& right) {
        return left.begin < right.begin;
    });
    for (std::size_t index = 1; index < places.size(); ++index) {
        places[index - 1].end = places[index].begin;
    }
    return places;
}

std::optional<QPDFObjGen> FindMisplacedObject(const std::vector<ObjectPlace>& places, std::string_view bytes)
{
    const auto found = std::find_if(places.begin(), places.end(), [&](const ObjectPlace& place) {
        return !StandsAt(place.object, bytes.substr(place.begin));
    });
    if (found == places.end()) {
        return std::nullopt;
    }
    return found->object;
}

} // namespace OrvPdf
