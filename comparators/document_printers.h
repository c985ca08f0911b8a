#pragma once

#include <orv_doc/content.h>
#include <orv_doc/transfer_function_set.h>

#include <boost/filesystem/path.hpp>
#include <boost/optional.hpp>
#include <boost/variant.hpp>

#include <cstddef>
#include <memory>
#include <ostream>
#include <utility>

namespace OrvPaint
{
class Function;
}

/// Text of what belongs to contents and paints and has no stream operator in the document library.
namespace HarrowSupport::Comparators
{

/// The role in words, such as "PageContent"; nothing for a value that is none of the five.
void PrintValue(std::ostream& stream, const OrvDoc::Content::Type& type);

/// "TransferFunctionSet(none)", or `TransferFunctionSet(Default:<function>, <name>:<function>)`.
void PrintValue(std::ostream& stream, const boost::optional<OrvDoc::TransferFunctionSet>& transferFunctions);

/// "NoExternalReference", or `Page <number> @ <path>` with the path as UTF-8.
void PrintValue(std::ostream& stream,
                const boost::optional<std::pair<boost::filesystem::path, std::size_t>>& reference);

/// The flag as "1" or "0", the function as its address.
void PrintValue(std::ostream& stream,
                const boost::variant<bool, std::shared_ptr<const OrvPaint::Function>>& transferFunction);

} // namespace HarrowSupport::Comparators
