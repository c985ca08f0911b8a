#pragma once

#include <cstddef>
#include <string>

#include <boost/optional.hpp>

#include <orv_sys/pdf_object.h>

namespace OrvSys::Detail
{

/// Most bytes that a small stream (a function, a profile, a colour table) may decode to.
constexpr std::size_t MaxSmallStreamBytes = std::size_t{64} << 20;

/// The decoded bytes of a stream without filters or with FlateDecode alone and no predictor. Nothing for an
/// object of another kind, for other filters, for damaged bytes and for more than `maxBytes` of
/// output.
boost::optional<std::string> DecodeSmallStream(const PdfObject& stream,
                                               std::size_t maxBytes = MaxSmallStreamBytes);

} // namespace OrvSys::Detail
