#pragma once

#include <string>
#include <string_view>

namespace OrvPdf
{

/// What has to stand behind the bytes of a damaged file so that it can be read by a new cross-reference
/// table: the objects of its object streams as plain objects, the table, and a trailer. Of several objects of
/// one number the last is taken. The trailer names the last catalogue; where the file has none that can be
/// found, the answer is empty. Object streams of an encrypted file stay closed. Linear in the bytes, and in
/// those that come out of the object streams, of which there is a bound.
std::string MakeTable(std::string_view bytes);

} // namespace OrvPdf
