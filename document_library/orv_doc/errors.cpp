#include <orv_doc/errors.h>

#include <string_view>
#include <unordered_map>
#include <utility>

#include "orv_doc/late_errors.h"

namespace OrvDoc
{

Errors::Errors() = default;
Errors::~Errors() = default;

const std::vector<std::shared_ptr<OrvSys::Core::Error>>& Errors::GetAllErrors() const
{
    TakeLate();
    return GetInForce();
}

void Errors::TakeFrom(std::shared_ptr<Detail::LateErrors> late)
{
    late_ = std::move(late);
}

void Errors::TakeLate() const
{
    if (!late_ || !late_->IsAnyWaiting())
        return;
    late_->TakeOver([this](const std::vector<std::string>& texts) {
        auto list = std::make_unique<List>(GetInForce());
        list->reserve(list->size() + texts.size());
        for (const std::string& text : texts)
            list->push_back(std::make_shared<OrvSys::Core::Error>(text));
        origins_.reserve(list->size());
        others_.push_back(std::move(list));
        origins_.resize(others_.back()->size(), Origin::Reading);
        inForce_.store(others_.back().get(), std::memory_order_release);
    });
}

void Errors::Add(std::string text, Origin origin)
{
    TakeLate();
    List& errors = GetInForce();
    auto error = std::make_shared<OrvSys::Core::Error>(std::move(text));
    origins_.reserve(errors.size() + 1);
    errors.push_back(std::move(error));
    origins_.push_back(origin);
}

void Errors::Replace(Origin origin, std::vector<std::string> texts)
{
    TakeLate();
    List& inForce = GetInForce();
    // How often each text is still to be matched by an error of this origin.
    std::unordered_map<std::string_view, std::size_t> wanted;
    for (const std::string& text : texts)
        ++wanted[text];

    List errors;
    std::vector<Origin> origins;
    std::unordered_map<std::string_view, std::size_t> kept;
    for (std::size_t index = 0; index < inForce.size(); ++index) {
        if (origins_[index] == origin) {
            const auto found = wanted.find(inForce[index]->GetText());
            if (found == wanted.end() || kept[found->first] == found->second)
                continue;
            ++kept[found->first];
        }
        errors.push_back(inForce[index]);
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
    inForce.swap(errors);
    origins_.swap(origins);
}

} // namespace OrvDoc
