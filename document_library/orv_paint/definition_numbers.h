#pragma once

#include <array>
#include <vector>

#include <orv_color/component.h>
#include <orv_sys/pdf_object.h>

namespace OrvPaint::Detail
{

/// The pairs at `key` of a function's definition; an empty list if there is no such key. Throws
/// std::invalid_argument if the value is anything but an array of an even number of numbers.
std::vector<std::array<double, 2>> PairsAt(const OrvSys::PdfObject& definition, const char* key);

/// The numbers at `key`; throws as PairsAt does.
std::vector<double> NumbersAt(const OrvSys::PdfObject& definition, const char* key);

OrvSys::PdfObject NumberArray(const std::vector<double>& numbers);
OrvSys::PdfObject PairArray(const std::vector<std::array<double, 2>>& pairs);

/// Each as the shortest decimal that reads back as the same float.
OrvSys::PdfObject ComponentArray(const std::vector<OrvColor::Component>& components);

} // namespace OrvPaint::Detail
