#pragma once

#include <orv_doc/read_options.h>

namespace OrvDoc
{
class Document;
}

namespace HarrowSupport::Fuzzing
{

/// So small that an input of a few hundred bytes reaches most of the limits, and none takes long.
OrvDoc::ReadOptions SmallLimits();

/// For the file that a document is written to which was read within the small limits. What only the form of
/// the file decides has as much room as usual there, since the writer may need more levels, objects and bytes
/// for the same; what the model says is bounded as before.
OrvDoc::ReadOptions LimitsOfWritten();

/// Ends the program unless the document keeps to the limits that it was read with.
void RequireWithin(const OrvDoc::ReadOptions::Limits& limits, OrvDoc::Document& document);

} // namespace HarrowSupport::Fuzzing
