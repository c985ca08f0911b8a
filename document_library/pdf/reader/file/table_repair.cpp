#include "pdf/reader/file/table_repair.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "pdf/reader/file/file_scan.h"
#include "pdf/reader/file/flate_data.h"

namespace OrvPdf
{

namespace
{

// Catalogues are small, unless they hold destinations or forms directly.
constexpr std::size_t LargestCatalogue = 1 << 20;
// What all object streams may come to. Those of a book of ten thousand pages have a tenth of it.
constexpr std::size_t LargestExpansion = std::size_t{128} << 20;
// Longer numbers stand for no object; the limit of objects in a file has seven digits.
constexpr std::size_t NumberDigits = 8;
constexpr std::size_t GenerationDigits = 5;
constexpr std::size_t LargestNumber = 99999999;

struct Reference
{
    std::uint32_t number = 0;
    std::uint32_t generation = 0;
};

struct FoundObject
{
    std::uint32_t generation = 0;
    std::size_t offset = 0;
};

using FoundObjects = std::map<std::uint32_t, FoundObject>;

/// Takes the last number off the text, and the blanks behind it; empty if it does not end in one.
std::string_view TakeLastNumber(std::string_view& text)
{
    const std::size_t end = text.find_last_not_of(Blanks) + 1;
    const std::size_t begin = text.substr(0, end).find_last_not_of(Digits) + 1;
    const std::string_view number = text.substr(begin, end - begin);
    text = text.substr(0, begin);
    return number;
}

/// The object whose keyword stands at that place, and where its number begins.
std::optional<std::pair<Reference, std::size_t>> ReadObjectHead(std::string_view bytes, std::size_t keyword)
{
    if (keyword >= 3 && bytes.substr(keyword - 3, 3) == "end") {
        return std::nullopt;
    }
    std::string_view before = bytes.substr(0, keyword);
    const std::string_view generation = TakeLastNumber(before);
    const std::string_view number = TakeLastNumber(before);
    if (generation.empty() || number.empty() || generation.size() > GenerationDigits ||
        number.size() > NumberDigits) {
        return std::nullopt;
    }
    const Reference reference = {static_cast<std::uint32_t>(std::stoul(std::string(number))),
                                 static_cast<std::uint32_t>(std::stoul(std::string(generation)))};
    return std::pair(reference, before.size());
}

std::optional<std::size_t> FindNumber(std::string_view dictionary, std::string_view key)
{
    std::string_view value = FindLastEntry(dictionary, key);
    return TakeFirstNumber(value);
}

/// Looks through the bytes of a file for its objects.
class ObjectSearch
{
public:
    ObjectSearch(std::string_view givenBytes, bool givenIsEncrypted)
        : bytes(givenBytes), isEncrypted(givenIsEncrypted)
    {}

    void Run()
    {
        for (std::size_t place = bytes.find("obj"); place != std::string_view::npos;
             place = bytes.find("obj", place + 3)) {
            if (const auto head = ReadObjectHead(bytes, place)) {
                found[head->first.number] = {head->first.generation, head->second};
                if (!isEncrypted) {
                    Expand(place + 3);
                }
            }
        }
    }

    const FoundObjects& GetFound() const { return found; }
    const std::string& GetExpanded() const { return expanded; }

private:
    /// Writes the objects of an object stream behind the file; nothing if the object, which begins at that
    /// place, is something else.
    void Expand(std::size_t place)
    {
        const std::string_view object = bytes.substr(place);
        const std::size_t begin = object.substr(0, LargestEntry).find("stream");
        if (begin == std::string_view::npos) {
            return;
        }
        const std::string_view dictionary = object.substr(0, begin);
        if (dictionary.find("/ObjStm") == std::string_view::npos) {
            return;
        }
        const auto count = FindNumber(dictionary, "/N");
        const auto first = FindNumber(dictionary, "/First");
        const std::size_t dataBegin = place + begin + std::string_view("stream").size();
        const std::string_view all = bytes.substr(dataBegin);
        std::string_view data = all.substr(0, FindDataEnd(dataBegin) - dataBegin);
        data.remove_prefix(std::min(data.find_first_not_of("\r\n"), data.size()));
        if (dictionary.find("/FlateDecode") != std::string_view::npos) {
            const DecodingResult inflated = Inflate(data, left);
            left -= inflated.bytes.View().size();
            AppendObjects(inflated.bytes.View(), count.value_or(0), first.value_or(0));
        } else if (dictionary.find("/Filter") == std::string_view::npos) {
            AppendObjects(data, count.value_or(0), first.value_or(0));
        }
    }

    /// The place of the next end of a stream, or the end of the file. The bytes are looked through once,
    /// since the places that are asked for ascend.
    std::size_t FindDataEnd(std::size_t place)
    {
        if (place > dataEnd) {
            dataEnd = std::min(bytes.find("endstream", place), bytes.size());
        }
        return dataEnd;
    }

    void AppendObjects(std::string_view data, std::size_t count, std::size_t first)
    {
        if (first > data.size()) {
            return;
        }
        std::string_view heads = data.substr(0, first);
        std::vector<std::pair<std::size_t, std::uint32_t>> places;
        while (places.size() < count) {
            const auto number = TakeFirstNumber(heads);
            const auto offset = TakeFirstNumber(heads);
            if (!number || !offset || *number > LargestNumber || *offset > data.size() - first) {
                break;
            }
            places.emplace_back(first + *offset, static_cast<std::uint32_t>(*number));
        }
        std::sort(places.begin(), places.end());
        for (std::size_t index = 0; index < places.size(); ++index) {
            const std::size_t begin = places[index].first;
            const std::size_t end = index + 1 < places.size() ? places[index + 1].first : data.size();
            if (expanded.size() + (end - begin) > LargestExpansion) {
                return;
            }
            expanded.push_back('\n');
            found[places[index].second] = {0, bytes.size() + expanded.size()};
            expanded.append(std::to_string(places[index].second)).append(" 0 obj\n");
            expanded.append(data.substr(begin, end - begin)).append("\nendobj\n");
        }
    }

    std::string_view bytes;
    bool isEncrypted;
    FoundObjects found;
    std::string expanded;
    std::size_t dataEnd = 0;
    /// How many more bytes may come out of object streams.
    std::size_t left = LargestExpansion;
};

/// The reference to the object that is open at the end of the text; empty if none is.
std::string FindOpenObject(std::string_view text, const FoundObjects& objects)
{
    const std::size_t keyword = text.rfind("obj");
    const auto head = keyword == std::string_view::npos ? std::nullopt : ReadObjectHead(text, keyword);
    const auto found = head ? objects.find(head->first.number) : objects.end();
    if (found == objects.end() || found->second.generation != head->first.generation) {
        return {};
    }
    return std::to_string(head->first.number) + " " + std::to_string(head->first.generation) + " R";
}

std::string FindCatalogue(std::string_view bytes, const FoundObjects& objects)
{
    constexpr std::string_view mark = "/Catalog";
    // Each try looks at a part of the file, and a hostile one can have the mark everywhere.
    int tries = 100;
    for (std::size_t place = bytes.rfind(mark); place != std::string_view::npos && place > 0 && tries > 0;
         place = bytes.rfind(mark, place - 1), --tries) {
        const std::size_t begin = place - std::min(place, LargestCatalogue);
        std::string reference = FindOpenObject(bytes.substr(begin, place - begin), objects);
        if (!reference.empty()) {
            return reference;
        }
    }
    return {};
}

/// The trailer's entries that a file needs to be decrypted; empty if its encryption dictionary is lost.
std::string FindEncryption(std::string_view bytes, const FoundObjects& objects)
{
    std::string_view value = FindLastEntry(bytes, "/Encrypt");
    const auto number = TakeFirstNumber(value);
    const auto generation = TakeFirstNumber(value);
    const auto object =
        number && generation ? objects.find(static_cast<std::uint32_t>(*number)) : objects.end();
    if (object == objects.end()) {
        return {};
    }
    std::string_view text = bytes.substr(object->second.offset, LargestEntry);
    text.remove_prefix(std::min(text.find("obj") + 3, text.size()));
    SkipBlanks(text);
    if (text.substr(0, 2) != "<<") {
        return {};
    }
    const std::string_view identifier = FindLastEntry(bytes, "/ID");
    const std::size_t identifierEnd = identifier.find(']');
    std::string entries = " /Encrypt " + std::to_string(*number) + " " + std::to_string(*generation) + " R";
    if (identifierEnd != std::string_view::npos) {
        entries.append(" /ID").append(identifier.substr(0, identifierEnd + 1));
    }
    return entries;
}

void AppendRow(std::string& table, std::size_t offset, std::uint32_t generation)
{
    char row[64];
    const int length = std::snprintf(row, sizeof row, "%010zu %05u n \n", offset, generation);
    table.append(row, static_cast<std::size_t>(length));
}

void AppendTable(std::string& text, const FoundObjects& objects, std::size_t origin)
{
    text.append("xref\n0 1\n0000000000 65535 f \n");
    for (auto first = objects.begin(); first != objects.end();) {
        auto end = first;
        std::uint32_t count = 0;
        while (end != objects.end() && end->first == first->first + count) {
            ++end;
            ++count;
        }
        text.append(std::to_string(first->first)).append(" ").append(std::to_string(count)).append("\n");
        for (; first != end; ++first) {
            AppendRow(text, first->second.offset - origin, first->second.generation);
        }
    }
}

} // namespace

std::string MakeTable(std::string_view bytes)
{
    const std::size_t origin = FindOrigin(bytes);
    // What stands before the header has no offset.
    ObjectSearch search(bytes, !FindLastEntry(bytes, "/Encrypt").empty());
    search.Run();
    FoundObjects objects = search.GetFound();
    for (auto object = objects.begin(); object != objects.end();) {
        object =
            object->first == 0 || object->second.offset < origin ? objects.erase(object) : std::next(object);
    }
    std::string text = search.GetExpanded();
    std::string catalogue = FindCatalogue(text, objects);
    if (catalogue.empty()) {
        catalogue = FindCatalogue(bytes, objects);
    }
    if (catalogue.empty()) {
        return {};
    }
    const std::string encryption = FindEncryption(bytes, objects);
    text.push_back('\n');
    const std::size_t place = bytes.size() + text.size() - origin;
    AppendTable(text, objects, origin);
    text.append("trailer\n<< /Size ").append(std::to_string(objects.rbegin()->first + 1));
    text.append(" /Root ").append(catalogue).append(encryption).append(" >>\nstartxref\n");
    return text.append(std::to_string(place)).append("\n%%EOF\n");
}

} // namespace OrvPdf
