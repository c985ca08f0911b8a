#pragma once

#include <string>

namespace HarrowSupport::Testing
{

/// The folder of real files: that of HARROW_CORPUS_DIR in the environment, or else the one that the build was
/// configured with. It need not be there.
std::string CorpusFolder();

/// Whether the folder has a MANIFEST.tsv, which tells that its files were chosen for these tests. Of any
/// other folder it may be true that no page has a picture, or that nothing is modelled.
bool IsChosenCorpus();

/// Why the files of the folder cannot be looked at; empty if they can: there is no folder.
std::string WhyNoCorpus();

/// Why the pages of real files are not rendered here; empty if they are: there is no folder of them or no
/// renderer, or the tests run under the address sanitizer, where renderers are slow and no different.
std::string WhyNotRendered();

} // namespace HarrowSupport::Testing
