#include <orv_doc/read_options.h>

namespace OrvDoc
{

ReadOptions::ReadOptions() = default;
ReadOptions::~ReadOptions() = default;
ReadOptions::ReadOptions(const ReadOptions&) = default;
ReadOptions& ReadOptions::operator=(const ReadOptions&) = default;

} // namespace OrvDoc
