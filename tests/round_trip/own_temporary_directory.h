#pragma once

#include "support/temporary_folder.h"

#include <boost/filesystem/operations.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// Gives each test a temporary directory of its own, so that it sees which files are left there.
class OwnTemporaryDirectory : public ::testing::Test
{
protected:
    OwnTemporaryDirectory()
    {
        const char* const given = std::getenv("TMPDIR");
        before = given ? given : "";
        ::setenv("TMPDIR", folder.GetPath().c_str(), 1);
    }

    ~OwnTemporaryDirectory() override
    {
        if (before.empty()) {
            ::unsetenv("TMPDIR");
        } else {
            ::setenv("TMPDIR", before.c_str(), 1);
        }
    }

    std::vector<std::string> FileNames() const
    {
        std::vector<std::string> names;
        for (const auto& entry : boost::filesystem::directory_iterator(folder.GetPath())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    std::string OnlyFileName() const
    {
        const std::vector<std::string> names = FileNames();
        return names.size() == 1 ? names[0] : "not exactly one file";
    }

    TemporaryFolder folder;

private:
    std::string before;
};

} // namespace HarrowSupport::Testing
