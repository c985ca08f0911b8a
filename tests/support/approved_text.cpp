#include "approved_text.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace HarrowSupport::Testing
{

namespace
{

bool ApprovalIsAsked()
{
    const char* value = std::getenv("HARROW_APPROVE");
    return value != nullptr && std::string(value) == "1";
}

} // namespace

::testing::AssertionResult IsApproved(const std::string& text, const std::string& file)
{
    const std::string path = std::string(HARROW_SOURCE_FOLDER) + "/" + file;
    if (ApprovalIsAsked()) {
        std::ofstream stream(path, std::ios::binary);
        stream << text << std::flush;
        if (!stream)
            return ::testing::AssertionFailure() << path << " can't be written";
        return ::testing::AssertionSuccess();
    }
    std::ifstream stream(path, std::ios::binary);
    const std::string approved((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    if (stream.is_open() && text == approved)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "the output is not that of " << file << "; if it is right, HARROW_APPROVE=1 writes it there.\n"
           << "--- approved\n"
           << approved << "--- output\n"
           << text << "---";
}

} // namespace HarrowSupport::Testing
