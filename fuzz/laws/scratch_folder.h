#pragma once

#include "support/temporary_folder.h"

namespace HarrowSupport::Fuzzing
{

/// The folder for the files of this process, which is made at the first call and goes with the process unless
/// that is ended by a finding. Quick where `TMPDIR` names a folder in memory.
const Testing::TemporaryFolder& ScratchFolder();

} // namespace HarrowSupport::Fuzzing
