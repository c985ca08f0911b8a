#include <orv_doc/write_options.h>

namespace OrvDoc
{

WriteOptions::WriteOptions(Flavour flavour) : flavour_(flavour) {}

} // namespace OrvDoc
