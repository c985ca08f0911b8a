#include "all_options.h"

namespace Examples
{

HarrowSupport::Comparators::Options AllOptions()
{
    HarrowSupport::Comparators::Options options;
    options.looseImageLinks = true;
    options.compareImageData = true;
    options.compareSeparationInfo = true;
    options.softMaskAsChannel = true;
    options.expandIndexedImages = true;
    options.comparePatternContentReuse = true;
    options.dumpLevel = 0;
    return options;
}

} // namespace Examples
