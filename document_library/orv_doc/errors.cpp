#include <orv_doc/errors.h>

#include <string_view>
#include <unordered_map>
#include <utility>

namespace OrvDoc
{

Errors::Errors() = default;
Errors::~Errors() = default;

void Errors::Add(std::string text, Origin origin)
{
    auto error = std::make_shared<OrvSys::Core::Error>(std::move(text));
    origins_.reserve(errors_.size() + 1);
    errors_.push_back(std::move(error));
    origins_.push_back(origin);
}

void Errors::Replace(Origin origin, std::vector<std::string> texts)
{
    // How often each text is still to be matched by an error of this origin.
    std::unordered_map<std::string_view, std::size_t> wanted;
    for (const std::string& text : texts)
        ++wanted[text];

    std::vector<std::shared_ptr<OrvSys::Core::Error>> errors;
    std::vector<Origin> origins;
    std::unordered_map<std::string_view, std::size_t> kept;
    for (std::size_t index = 0; index < errors_.size(); ++index) {
        if (origins_[index] == origin) {
            const auto found = wanted.find(errors_[index]->GetText());
            if (found == wanted.end() || kept[found->first] == found->second)
                continue;
            ++kept[found->first];
        }
        errors.push_back(errors_[index]);
        origins.push_back(origins_[index]);
    }

    for (const std::string& text : texts) {
        // The first errors of a text are the kept ones, so only those beyond their number are new.
        std::size_t& matched = kept[text];
        if (matched > 0) {
            --matched;
            continue;
        }
        errors.push_back(std::make_shared<OrvSys::Core::Error>(text));
        origins.push_back(origin);
    }
    errors_.swap(errors);
    origins_.swap(origins);
}

} // namespace OrvDoc
