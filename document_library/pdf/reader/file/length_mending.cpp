#include "pdf/reader/file/length_mending.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "pdf/reader/file/file_scan.h"

namespace OrvPdf
{

namespace
{

constexpr std::string_view LengthKey = "/Length";
constexpr std::string_view StreamKeyword = "stream";
constexpr std::string_view EndKeyword = "endstream";
constexpr std::string_view ObjectEnd = "endobj";

// Objects that are looked at: about half a second.
constexpr std::uint64_t MostSteps = 50'000'000;

/// A stream as it stands in the file; offsets in the bytes.
struct FoundStream
{
    /// The value of `Length`, a number or a reference.
    std::size_t lengthBegin = 0;
    std::size_t lengthEnd = 0;
    std::size_t dataBegin = 0;
};

struct LengthChange
{
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string text;
};

/// Objects that lengths refer to. They are sorted by number when the first is asked for: few files have any.
class NumberObjects
{
public:
    NumberObjects(const std::vector<ObjectPlace>& givenPlaces, std::string_view givenBytes)
        : places(givenPlaces), bytes(givenBytes)
    {}

    /// Whether the object is in the file's bytes; one of an object stream is not.
    bool Has(std::size_t number) { return GetTexts().count(static_cast<int>(number)) > 0; }

    /// Nothing if the object is no number.
    std::optional<std::size_t> Read(std::size_t number)
    {
        std::string_view text = GetTexts().at(static_cast<int>(number));
        TakeFirstNumber(text);
        TakeFirstNumber(text);
        SkipBlanks(text);
        text.remove_prefix(std::min<std::size_t>(text.size(), std::string_view("obj").size()));
        return TakeFirstNumber(text);
    }

private:
    const std::unordered_map<int, std::string_view>& GetTexts()
    {
        if (texts.empty()) {
            for (const ObjectPlace& place : places) {
                texts[place.object.getObj()] = bytes.substr(place.begin, place.end - place.begin);
            }
        }
        return texts;
    }

    const std::vector<ObjectPlace>& places;
    std::string_view bytes;
    std::unordered_map<int, std::string_view> texts;
};

/// The keyword behind the dictionary that the object begins with.
std::size_t FindStreamKeyword(std::string_view object)
{
    for (std::size_t place = object.find(StreamKeyword); place != std::string_view::npos;
         place = object.find(StreamKeyword, place + 1)) {
        const std::size_t before = object.substr(0, place).find_last_not_of(Blanks);
        const char after =
            place + StreamKeyword.size() < object.size() ? object[place + StreamKeyword.size()] : ' ';
        if (before != std::string_view::npos && object[before] == '>' && (after == '\r' || after == '\n')) {
            return place;
        }
    }
    return std::string_view::npos;
}

std::size_t SkipLineEnd(std::string_view text, std::size_t place)
{
    if (text.substr(place, 2) == "\r\n") {
        return place + 2;
    }
    return place + 1;
}

/// Nothing for what is no stream, and where the dictionary has no such entry or several.
std::optional<FoundStream> FindStream(const ObjectPlace& place, std::string_view bytes)
{
    const std::string_view object = bytes.substr(place.begin, place.end - place.begin);
    const std::size_t keyword = FindStreamKeyword(object);
    if (keyword == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view dictionary = object.substr(0, keyword);
    std::string_view value = FindLastEntry(dictionary, LengthKey);
    if (value.empty()) {
        return std::nullopt;
    }
    const auto from = static_cast<std::size_t>(value.data() - dictionary.data());
    if (!FindLastEntry(dictionary.substr(0, from - LengthKey.size()), LengthKey).empty()) {
        return std::nullopt;
    }
    SkipBlanks(value);
    FoundStream stream;
    stream.lengthBegin = static_cast<std::size_t>(value.data() - bytes.data());
    const std::size_t valueEnd = std::min(value.find_first_of("/>"), value.size());
    const std::size_t last = value.substr(0, valueEnd).find_last_not_of(Blanks);
    if (last == std::string_view::npos) {
        return std::nullopt;
    }
    stream.lengthEnd = stream.lengthBegin + last + 1;
    stream.dataBegin = place.begin + SkipLineEnd(object, keyword + StreamKeyword.size());
    return stream;
}

/// Whether the data ends where the value says, as far as that can be told.
bool MayBeRight(const FoundStream& stream, const ObjectPlace& place, std::string_view bytes,
                NumberObjects& numbers)
{
    std::string_view value = bytes.substr(stream.lengthBegin, stream.lengthEnd - stream.lengthBegin);
    std::optional<std::size_t> length = TakeFirstNumber(value);
    if (length && !value.empty() && value.back() == 'R') {
        if (!numbers.Has(*length)) {
            return true;
        }
        length = numbers.Read(*length);
    }
    if (!length || *length > place.end - stream.dataBegin) {
        return false;
    }
    std::string_view rest = bytes.substr(stream.dataBegin + *length, place.end - stream.dataBegin - *length);
    SkipBlanks(rest);
    return rest.substr(0, EndKeyword.size()) == EndKeyword;
}

/// Nothing if the data has no end.
std::optional<std::size_t> MeasureData(const FoundStream& stream, const ObjectPlace& place,
                                       std::string_view bytes)
{
    std::string_view data = bytes.substr(stream.dataBegin, place.end - stream.dataBegin);
    std::size_t end = data.find(EndKeyword);
    if (end == std::string_view::npos) {
        end = data.find(ObjectEnd);
    }
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    data = data.substr(0, end);
    // The end of the line before the keyword is no data (7.3.8.1).
    if (!data.empty() && data.back() == '\n') {
        data.remove_suffix(1);
    }
    if (!data.empty() && data.back() == '\r') {
        data.remove_suffix(1);
    }
    return data.size();
}

std::vector<LengthChange> ListChanges(const std::vector<ObjectPlace>& places, std::string_view bytes)
{
    NumberObjects numbers(places, bytes);
    std::vector<LengthChange> changes;
    for (const ObjectPlace& place : places) {
        const auto stream = FindStream(place, bytes);
        if (!stream || MayBeRight(*stream, place, bytes, numbers)) {
            continue;
        }
        const auto length = MeasureData(*stream, place, bytes);
        const std::string text = length ? std::to_string(*length) : std::string();
        if (!text.empty() && text.size() <= stream->lengthEnd - stream->lengthBegin) {
            changes.push_back({stream->lengthBegin, stream->lengthEnd, text});
        }
    }
    return changes;
}

} // namespace

std::size_t MendLengths(const std::vector<ObjectPlace>& places, char* bytes, std::size_t size)
{
    if (std::uint64_t{places.size()} * places.size() < MostSteps) {
        return 0;
    }
    const std::vector<LengthChange> changes = ListChanges(places, {bytes, size});
    if (std::uint64_t{changes.size()} * places.size() < MostSteps) {
        return 0;
    }
    for (const LengthChange& change : changes) {
        std::fill(bytes + change.begin, bytes + change.end, ' ');
        std::copy(change.text.begin(), change.text.end(), bytes + change.begin);
    }
    return changes.size();
}

} // namespace OrvPdf
