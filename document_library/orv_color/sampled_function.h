#pragma once

#include <array>
#include <vector>

#include <boost/optional.hpp>

#include <orv_sys/pdf_object.h>

namespace OrvColor::Detail
{

/// The value of a sampled function (ISO 32000-1, 7.10.2) before its range is applied. The inputs lie in
/// `domain` already. Nothing if it is malformed.
boost::optional<std::vector<double>> EvaluateSamples(const OrvSys::PdfObject& function,
                                                     const std::vector<double>& inputs,
                                                     const std::vector<std::array<double, 2>>& domain,
                                                     const std::vector<std::array<double, 2>>& range);

} // namespace OrvColor::Detail
