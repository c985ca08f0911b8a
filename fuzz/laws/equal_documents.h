#pragma once

#include <string>
#include <vector>

namespace OrvDoc
{
class Document;
}

namespace HarrowSupport::Fuzzing
{

/// Ends the program unless a comparison with every option reports nothing but what it reports on purpose even
/// for equal sides: the transfer functions of soft masks, which are told by identity, and images in
/// uncoloured patterns. `tolerated` are labels of further reports that may come.
void RequireEqual(const OrvDoc::Document& left, const OrvDoc::Document& right, const char* law,
                  const std::vector<std::string>& tolerated = {});

} // namespace HarrowSupport::Fuzzing
