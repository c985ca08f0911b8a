#include "corpus_folder.h"

#include "support/page_images.h"

#include <boost/filesystem/operations.hpp>

#include <cstdlib>

namespace HarrowSupport::Testing
{

std::string CorpusFolder()
{
    const char* folder = std::getenv("HARROW_CORPUS_DIR");
    return folder != nullptr ? folder : HARROW_CORPUS_FOLDER;
}

bool IsChosenCorpus()
{
    return boost::filesystem::exists(CorpusFolder() + "/MANIFEST.tsv");
}

std::string WhyNoCorpus()
{
    if (boost::filesystem::is_directory(CorpusFolder()))
        return {};
    return "there is no folder " + CorpusFolder() + "; HARROW_CORPUS_DIR names another folder of PDF files";
}

std::string WhyNotRendered()
{
#if defined(__SANITIZE_ADDRESS__)
    return "the renderers are the same under a sanitizer, and slow";
#else
    if (!WhyNoCorpus().empty())
        return WhyNoCorpus();
    return CanRenderPages() ? "" : "install poppler-utils to run this test";
#endif
}

} // namespace HarrowSupport::Testing
