#pragma once

#include "work_counters.h"

#include <locale>
#include <sstream>

namespace HarrowSupport::Comparators
{

/// The stream that a value is written to: in its default state, and in the classic locale whatever the
/// program's global locale is, so that a number reads the same everywhere. One is made for each text.
class TextStream : public std::ostringstream
{
public:
    TextStream()
    {
        imbue(std::locale::classic());
        ++workCounters.textsBuilt;
    }
};

} // namespace HarrowSupport::Comparators
