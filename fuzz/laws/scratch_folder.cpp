#include "laws/scratch_folder.h"

namespace HarrowSupport::Fuzzing
{

const Testing::TemporaryFolder& ScratchFolder()
{
    static const Testing::TemporaryFolder folder;
    return folder;
}

} // namespace HarrowSupport::Fuzzing
