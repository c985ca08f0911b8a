#pragma once

#include <vector>

#include <boost/optional.hpp>

#include <orv_sys/pdf_object.h>

namespace OrvColor::Detail
{

/// The value of a function of type 0, 2, 3 or 4 (ISO 32000-1, 7.10) as a file defines it, with domain and
/// range applied. Sampled functions are interpolated linearly. Nothing for a malformed function, a wrong
/// number of inputs, filters that aren't known here, or more than 8 inputs or 64 outputs of samples.
boost::optional<std::vector<double>> EvaluateFunction(const OrvSys::PdfObject& function,
                                                      std::vector<double> inputs);

} // namespace OrvColor::Detail
