#pragma once

#include <array>
#include <vector>

#include <boost/optional.hpp>

#include <orv_sys/pdf_object.h>

namespace OrvColor::Detail
{

using Pairs = std::vector<std::array<double, 2>>;

/// The numbers of an array; nothing if it is no array of numbers alone.
boost::optional<std::vector<double>> ReadNumbers(const OrvSys::PdfObject& array);

/// The same two by two; nothing if their number is odd.
boost::optional<Pairs> ReadPairs(const OrvSys::PdfObject& array);

/// Brings a number to the nearer end of a range that it lies outside of; a NaN to its start.
double ClampTo(double number, const std::array<double, 2>& range);

/// Where `number` of `from` comes to lie in `to`; the start of `to` if `from` is a single point.
double Interpolate(double number, const std::array<double, 2>& from, const std::array<double, 2>& to);

} // namespace OrvColor::Detail
