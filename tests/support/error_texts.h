#pragma once

#include <memory>
#include <string>
#include <vector>

#include <orv_doc/errors.h>
#include <orv_sys/error.h>

namespace HarrowSupport::Testing
{

/// The texts of errors, in their order.
inline std::vector<std::string> TextsOf(const std::vector<std::shared_ptr<OrvSys::Core::Error>>& errors)
{
    std::vector<std::string> texts;
    for (const auto& error : errors)
        texts.push_back(error->GetText());
    return texts;
}

/// Those of the active errors of a document or a content.
inline std::vector<std::string> TextsOf(const OrvDoc::Errors& errors)
{
    return TextsOf(errors.GetAllErrors());
}

} // namespace HarrowSupport::Testing
