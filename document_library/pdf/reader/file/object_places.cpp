#include "pdf/reader/file/object_places.h"

#include <algorithm>
#include <map>
#include <set>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFXRefEntry.hh>

#include "pdf/reader/file/file_scan.h"

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

bool KeepsObjects(const std::vector<ObjectPlace>& before, const std::vector<ObjectPlace>& after,
                  std::string_view bytes)
{
    std::set<QPDFObjGen> kept;
    for (const ObjectPlace& place : after) {
        kept.insert(place.object);
    }
    return std::all_of(before.begin(), before.end(), [&](const ObjectPlace& place) {
        return kept.count(place.object) > 0 || !StandsAt(place.object, bytes.substr(place.begin));
    });
}

} // namespace OrvPdf
