#pragma once

#include <gtest/gtest.h>

#include <string>

namespace HarrowSupport::Testing
{

/// Succeeds if the text is exactly that of a file of approved output. The file is named from the root of the
/// sources, for instance "tests/examples/approved/leaflet.txt".
///
/// With HARROW_APPROVE=1 in the environment the file is written instead, to be looked at before it is
/// committed.
::testing::AssertionResult IsApproved(const std::string& text, const std::string& file);

} // namespace HarrowSupport::Testing
