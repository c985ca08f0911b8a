#pragma once

#include <cstdint>
#include <string>

namespace OrvPdf
{

/// What is told of each limit of `OrvDoc::ReadOptions::Limits` that a file goes beyond: "limit NAME: VALUE
/// reached", and behind a comma what follows from it, if anything is given. NAME is the field's name. All
/// such texts are made here, so that a program which reads many files can count them by the name.
std::string LimitText(const char* name, std::uint64_t value, const std::string& consequence = {});

} // namespace OrvPdf
