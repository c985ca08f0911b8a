#pragma once

#include <orv_sys/export.h>

namespace OrvDoc
{

class Document;

/// One document of the process for short-lived copies, with one page whose content is empty as long as every
/// user leaves it so. Made at the first call and not locked: its users must not overlap.
ORV_EXPORT Document& GetScratchDocument();

} // namespace OrvDoc
