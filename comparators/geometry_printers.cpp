#include "geometry_printers.h"

namespace HarrowSupport::Comparators
{

void PrintValue(std::ostream& stream, const Plexa::WindingRule& rule)
{
    switch (rule) {
    case Plexa::WindingRule::EvenOdd:
        stream << "EvenOdd";
        break;
    case Plexa::WindingRule::NonZero:
        stream << "NonZero";
        break;
    }
}

} // namespace HarrowSupport::Comparators
