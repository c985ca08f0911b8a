#include <orv_sys/pdf_object.h>

#include "orv_sys/decimal.h"
#include "orv_sys/digest.h"
#include "orv_sys/pdf_object_state.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace OrvSys
{

namespace
{

constexpr const char* KindNames[] = {"null", "boolean", "integer",    "real",  "string",
                                     "name", "array",   "dictionary", "stream"};

const char* KindName(PdfObject::Kind kind)
{
    return KindNames[static_cast<std::size_t>(kind)];
}

// Numbers share one tag, since an integer equals the real of the same value.
constexpr unsigned char NullTag = 'z';
constexpr unsigned char BooleanTag = 'b';
constexpr unsigned char NumberTag = 'n';
constexpr unsigned char StringTag = 's';
constexpr unsigned char NameTag = 'N';
constexpr unsigned char ArrayTag = 'a';
constexpr unsigned char DictionaryTag = 'd';
constexpr unsigned char StreamTag = 't';

std::uint64_t TaggedDigest(unsigned char tag, std::string_view bytes)
{
    Detail::Digest digest;
    digest.Add(tag);
    digest.Add(bytes);
    return digest.Get();
}

void CheckSize(std::size_t depth, std::size_t nodes, std::size_t bytes)
{
    if (depth > PdfObject::MaxDepth)
        throw std::length_error("A PDF object is nested more than 100 levels deep.");
    if (nodes > PdfObject::MaxNodes)
        throw std::length_error("A PDF object has more than 4000000 parts.");
    if (bytes > PdfObject::MaxBytes)
        throw std::length_error("A PDF object has more than 1 GiB of text.");
}

std::string NumberText(const PdfObject& number)
{
    return number.IsInteger() ? std::to_string(number.GetInteger())
                              : Detail::NormalizeDecimal(number.GetText());
}

} // namespace

PdfObject::PdfObject(std::shared_ptr<const State> givenState) : state(std::move(givenState)) {}

PdfObject PdfObject::Null()
{
    return PdfObject();
}

PdfObject PdfObject::Boolean(bool value)
{
    auto made = std::make_shared<State>();
    made->kind = Kind::Boolean;
    made->boolean = value;
    made->digest = TaggedDigest(BooleanTag, value ? "1" : "0");
    return PdfObject(std::move(made));
}

PdfObject PdfObject::Integer(std::int64_t value)
{
    auto made = std::make_shared<State>();
    made->kind = Kind::Integer;
    made->integer = value;
    made->digest = TaggedDigest(NumberTag, std::to_string(value));
    return PdfObject(std::move(made));
}

PdfObject PdfObject::Real(std::string text)
{
    if (!Detail::IsDecimal(text))
        throw std::invalid_argument("'" + text + "' is not a PDF number.");
    CheckSize(0, 1, text.size());
    auto made = std::make_shared<State>();
    made->kind = Kind::Real;
    made->real = Detail::ParseDecimal(text);
    made->digest = TaggedDigest(NumberTag, Detail::NormalizeDecimal(text));
    made->bytes = text.size();
    made->text = std::move(text);
    return PdfObject(std::move(made));
}

PdfObject PdfObject::Real(double value)
{
    if (!std::isfinite(value))
        throw std::invalid_argument("PDF has no number that is not finite.");
    return Real(Detail::FormatDecimal(value));
}

PdfObject PdfObject::String(std::string bytes)
{
    CheckSize(0, 1, bytes.size());
    auto made = std::make_shared<State>();
    made->kind = Kind::String;
    made->digest = TaggedDigest(StringTag, bytes);
    made->bytes = bytes.size();
    made->text = std::move(bytes);
    return PdfObject(std::move(made));
}

PdfObject PdfObject::Name(std::string name)
{
    CheckSize(0, 1, name.size());
    auto made = std::make_shared<State>();
    made->kind = Kind::Name;
    made->digest = TaggedDigest(NameTag, name);
    made->bytes = name.size();
    made->text = std::move(name);
    return PdfObject(std::move(made));
}

PdfObject PdfObject::Array(Items items)
{
    auto made = std::make_shared<State>();
    made->kind = Kind::Array;
    made->depth = 1;
    Detail::Digest digest;
    digest.Add(ArrayTag);
    for (const PdfObject& item : items) {
        digest.AddNumber(item.GetDigest());
        if (!item.state) {
            ++made->nodes;
            continue;
        }
        made->depth = std::max(made->depth, item.state->depth + 1);
        made->nodes += item.state->nodes;
        made->bytes += item.state->bytes;
        made->containsStream |= item.state->containsStream;
        CheckSize(made->depth, made->nodes, made->bytes);
    }
    CheckSize(made->depth, made->nodes, made->bytes);
    made->digest = digest.Get();
    made->items = std::move(items);
    return PdfObject(std::move(made));
}

PdfObject PdfObject::Dictionary(Entries entries)
{
    auto made = std::make_shared<State>();
    made->kind = Kind::Dictionary;
    made->depth = 1;
    Detail::Digest digest;
    digest.Add(DictionaryTag);
    for (auto entry = entries.begin(); entry != entries.end();) {
        const State* value = entry->second.state.get();
        if (!value) {
            entry = entries.erase(entry);
            continue;
        }
        digest.AddNumber(entry->first.size());
        digest.Add(entry->first);
        digest.AddNumber(value->digest);
        made->depth = std::max(made->depth, value->depth + 1);
        made->nodes += value->nodes;
        made->bytes += value->bytes + entry->first.size();
        made->containsStream |= value->containsStream;
        CheckSize(made->depth, made->nodes, made->bytes);
        ++entry;
    }
    made->digest = digest.Get();
    made->entries = std::move(entries);
    return PdfObject(std::move(made));
}

PdfObject PdfObject::Stream(const PdfObject& dictionary, std::string rawBytes)
{
    if (!dictionary.IsDictionary())
        throw std::invalid_argument(std::string("A stream needs a dictionary, not a ") +
                                    KindName(dictionary.GetKind()) + ".");
    Entries entries = dictionary.GetEntries();
    entries.erase("Length");
    const PdfObject cleaned = Dictionary(std::move(entries));
    auto made = std::make_shared<State>(*cleaned.state);
    made->kind = Kind::Stream;
    made->containsStream = true;
    made->bytes += rawBytes.size();
    CheckSize(made->depth, made->nodes, made->bytes);
    Detail::Digest digest;
    digest.Add(StreamTag);
    digest.AddNumber(made->digest);
    digest.Add(rawBytes);
    made->digest = digest.Get();
    made->text = std::move(rawBytes);
    return PdfObject(std::move(made));
}

PdfObject::Kind PdfObject::GetKind() const
{
    return state ? state->kind : Kind::Null;
}

bool PdfObject::IsName(const std::string& name) const
{
    return IsName() && state->text == name;
}

bool PdfObject::ContainsStream() const
{
    return state && state->containsStream;
}

const PdfObject::State& PdfObject::Require(Kind kind) const
{
    if (GetKind() != kind)
        throw std::logic_error(std::string("A PDF object of kind ") + KindName(GetKind()) + " was read as " +
                               KindName(kind) + ".");
    return *state;
}

bool PdfObject::GetBoolean() const
{
    return Require(Kind::Boolean).boolean;
}

std::int64_t PdfObject::GetInteger() const
{
    return Require(Kind::Integer).integer;
}

double PdfObject::GetNumber() const
{
    return IsInteger() ? static_cast<double>(state->integer) : Require(Kind::Real).real;
}

const std::string& PdfObject::GetText() const
{
    if (IsReal() || IsName())
        return state->text;
    return Require(Kind::String).text;
}

const PdfObject::Items& PdfObject::GetItems() const
{
    return Require(Kind::Array).items;
}

const PdfObject::Entries& PdfObject::GetEntries() const
{
    if (IsStream())
        return state->entries;
    return Require(Kind::Dictionary).entries;
}

PdfObject PdfObject::GetDictionary() const
{
    return IsDictionary() ? *this : Dictionary(Require(Kind::Stream).entries);
}

const std::string& PdfObject::GetRawBytes() const
{
    return Require(Kind::Stream).text;
}

PdfObject PdfObject::Find(const std::string& key) const
{
    if (!IsDictionary() && !IsStream())
        return PdfObject();
    const auto found = state->entries.find(key);
    return found == state->entries.end() ? PdfObject() : found->second;
}

std::uint64_t PdfObject::GetDigest() const
{
    static const std::uint64_t nullDigest = TaggedDigest(NullTag, "");
    return state ? state->digest : nullDigest;
}

std::string PdfObject::GetDigestText() const
{
    return Detail::DigestText(GetDigest());
}

bool operator==(const PdfObject& left, const PdfObject& right)
{
    if (left.state == right.state)
        return true;
    if (!left.state || !right.state || left.state->digest != right.state->digest)
        return false;
    if (left.IsNumber() && right.IsNumber())
        return NumberText(left) == NumberText(right);
    return left.state->kind == right.state->kind && left.state->boolean == right.state->boolean &&
           left.state->text == right.state->text && left.state->items == right.state->items &&
           left.state->entries == right.state->entries;
}

} // namespace OrvSys
