#pragma once

#include <orv_sys/pdf_object.h>

#include <string>
#include <vector>

namespace HarrowSupport::Fuzzing
{

/// The value of a sampled function (ISO 32000-1, 7.10.2) that is known to have one, without its range: one
/// input after the other, the last one first. `samples` are the decoded bytes.
std::vector<double> InterpolatePlainly(const OrvSys::PdfObject& function, const std::string& samples,
                                       const std::vector<double>& inputs);

} // namespace HarrowSupport::Fuzzing
