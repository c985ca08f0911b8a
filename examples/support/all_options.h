#pragma once

#include <harrow_support/comparators.h>

namespace Examples
{

/// Every flag set, and no dumps.
HarrowSupport::Comparators::Options AllOptions();

} // namespace Examples
