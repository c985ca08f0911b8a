#pragma once

#include <string>
#include <vector>

namespace OrvPdf
{

class CMapLibrary;

/// For each CID of one of Adobe's collections the plainest code point that the library's files give it; zero
/// where they give none. Empty for an unknown ordering. Reads some hundred kilobytes.
std::vector<char32_t> MakeCodePointsOfCids(const std::string& ordering, CMapLibrary& library);

} // namespace OrvPdf
