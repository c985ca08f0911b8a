#include "pdf/reader/content/foreign_parameters.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace OrvPdf
{

namespace
{

using OrvSys::PdfObject;

/// The other key that sets the same parameter; null if there is none.
const char* FindTwin(const std::string& key)
{
    constexpr const char* twins[][2] = {{"BG", "BG2"}, {"BG2", "BG"}, {"UCR", "UCR2"}, {"UCR2", "UCR"}};
    for (const auto& twin : twins) {
        if (key == twin[0]) {
            return twin[1];
        }
    }
    return nullptr;
}

/// Whether a parameter has that value already.
bool Agrees(const ForeignParameters& parameters, const std::string& key, const PdfObject& value)
{
    if (!parameters) {
        return value.IsNull();
    }
    const char* const twin = FindTwin(key);
    return parameters->Find(key) == value && !(twin && !parameters->Find(twin).IsNull());
}

} // namespace

void ForeignObjects::Add(std::uint64_t id, const ForeignParameters& parameters)
{
    if (parameters) {
        parametersOfIds[id] = parameters;
    }
}

void ForeignObjects::Add(const ForeignObjects& others)
{
    parametersOfIds.insert(others.parametersOfIds.begin(), others.parametersOfIds.end());
}

const PdfObject* ForeignObjects::Find(std::uint64_t id) const
{
    const auto found = parametersOfIds.find(id);
    return found == parametersOfIds.end() ? nullptr : found->second.get();
}

bool AreSameForeignParameters(const PdfObject* left, const PdfObject* right)
{
    return left == right || (left && right && *left == *right);
}

bool ForeignParameterCache::Change(ForeignParameters& parameters, const PdfObject::Entries& changes)
{
    if (std::all_of(changes.begin(), changes.end(),
                    [&](const auto& change) { return Agrees(parameters, change.first, change.second); })) {
        return true;
    }
    PdfObject::Entries entries = parameters ? parameters->GetEntries() : PdfObject::Entries();
    if (entries.size() + changes.size() > maximumParameters) {
        return false;
    }
    for (const auto& [key, value] : changes) {
        if (const char* const twin = FindTwin(key)) {
            entries.erase(twin);
        }
        entries[key] = value;
    }
    try {
        PdfObject changed = PdfObject::Dictionary(std::move(entries));
        ForeignParameters shared = changed.GetEntries().empty() ? nullptr : Share(changed);
        if (!shared && !changed.GetEntries().empty()) {
            return false;
        }
        parameters = std::move(shared);
        return true;
    } catch (const std::length_error&) {
        return false;
    }
}

/// Null if there are too many.
ForeignParameters ForeignParameterCache::Share(PdfObject parameters)
{
    auto& candidates = known[parameters.GetDigest()];
    for (const ForeignParameters& candidate : candidates) {
        if (*candidate == parameters) {
            return candidate;
        }
    }
    if (knownCount >= maximumSets) {
        return nullptr;
    }
    ++knownCount;
    candidates.push_back(std::make_shared<const PdfObject>(std::move(parameters)));
    return candidates.back();
}

} // namespace OrvPdf
