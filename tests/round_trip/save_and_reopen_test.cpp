#include <harrow_support/round_trip.h>

#include <cstdlib>
#include <memory>
#include <string>

#include <boost/any.hpp>
#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/properties.h>

#include "own_temporary_directory.h"
#include "round_trip/remove_file.h"
#include "support/document_makers.h"
#include "support/recording_reporter.h"
#include "support/temporary_folder.h"

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::IsEmpty;
using ::testing::MatchesRegex;

const OrvDoc::WriteOptions writeOptions(OrvDoc::WriteOptions::Flavour::Full);

class SaveAndReopenTest : public OwnTemporaryDirectory
{};

TEST_F(SaveAndReopenTest, GivesTheSameDocumentBack)
{
    const auto make = [] {
        auto document = NewDocument(2);
        Fill(ContentOf(*document), Filled(Flat(Tints({{"Spot", 0.5f}}))), NamedGroup("g"));
        return document;
    };
    auto document = make();
    SaveAndReopen(document, "same", writeOptions, OrvDoc::ReadOptions());
    ExpectReports(*make(), *document, {});
}

TEST_F(SaveAndReopenTest, PutsTheNameIntoTheFileName)
{
    auto document = NewDocument(1);
    SaveAndReopen(document, "some name", writeOptions, OrvDoc::ReadOptions());
    EXPECT_THAT(OnlyFileName(), MatchesRegex("Harrow-some name(-[0-9a-f]{4}){4}\\.pdf"));
}

TEST_F(SaveAndReopenTest, TakesAnEmptyName)
{
    auto document = NewDocument(1);
    SaveAndReopen(document, "", writeOptions, OrvDoc::ReadOptions());
    EXPECT_THAT(OnlyFileName(), MatchesRegex("Harrow-(-[0-9a-f]{4}){4}\\.pdf"));
}

TEST_F(SaveAndReopenTest, MakesARandomDigitOfEachPercentSignInTheName)
{
    auto document = NewDocument(1);
    SaveAndReopen(document, "50%", writeOptions, OrvDoc::ReadOptions());
    EXPECT_THAT(OnlyFileName(), MatchesRegex("Harrow-50[0-9a-f](-[0-9a-f]{4}){4}\\.pdf"));
}

TEST_F(SaveAndReopenTest, TakesANameThatEndsBeforeItsMemory)
{
    auto document = NewDocument(1);
    SaveAndReopen(document, boost::string_view("part of more", 4), writeOptions, OrvDoc::ReadOptions());
    EXPECT_THAT(OnlyFileName(), MatchesRegex("Harrow-part(-[0-9a-f]{4}){4}\\.pdf"));
}

TEST_F(SaveAndReopenTest, FollowsASeparatorIntoAFolder)
{
    boost::filesystem::create_directory(folder.GetPath() / "Harrow-sub");
    auto document = NewDocument(1);
    SaveAndReopen(document, "sub/file", writeOptions, OrvDoc::ReadOptions());
    EXPECT_EQ(document->GetFilePath().parent_path().filename(), "Harrow-sub");
}

TEST_F(SaveAndReopenTest, KeepsTheDocumentIfItsFolderIsMissing)
{
    auto document = NewDocument(1);
    const OrvDoc::Document* const given = document.get();
    EXPECT_THROW(SaveAndReopen(document, "missing/file", writeOptions, OrvDoc::ReadOptions()),
                 std::runtime_error);
    EXPECT_EQ(document.get(), given);
    EXPECT_THAT(FileNames(), IsEmpty());
}

TEST_F(SaveAndReopenTest, KeepsTheDocumentIfThereIsNoTemporaryDirectory)
{
    ::setenv("TMPDIR", folder.NameOf("missing").c_str(), 1);
    auto document = NewDocument(1);
    const OrvDoc::Document* const given = document.get();
    EXPECT_THROW(SaveAndReopen(document, "a", writeOptions, OrvDoc::ReadOptions()),
                 boost::filesystem::filesystem_error);
    EXPECT_EQ(document.get(), given);
}

TEST_F(SaveAndReopenTest, LeavesNoDocumentButTheFileIfReadingFails)
{
    OrvDoc::ReadOptions tooStrict;
    tooStrict.limits.indirectObjects = 0;
    auto document = NewDocument(1);
    EXPECT_THROW(SaveAndReopen(document, "unread", writeOptions, tooStrict), std::runtime_error);
    EXPECT_EQ(document, nullptr);
    EXPECT_THAT(OnlyFileName(), MatchesRegex("Harrow-unread.*"));
}

TEST_F(SaveAndReopenTest, GivesTheFileToTheDocument)
{
    auto document = NewDocument(1);
    SaveAndReopen(document, "owned", writeOptions, OrvDoc::ReadOptions());
    const boost::any* const value = document->GetProperties().Find("Harrow.RoundTripTester.RemoveTempFile");
    ASSERT_NE(value, nullptr);
    const auto* const owner = boost::any_cast<std::shared_ptr<RemoveFile>>(value);
    ASSERT_NE(owner, nullptr);
    EXPECT_EQ(owner->use_count(), 1);
    EXPECT_EQ((*owner)->path, document->GetFilePath());
}

TEST_F(SaveAndReopenTest, DeletesTheFileWithTheDocument)
{
    auto document = NewDocument(1);
    SaveAndReopen(document, "gone", writeOptions, OrvDoc::ReadOptions());
    EXPECT_EQ(FileNames().size(), 1u);
    document.reset();
    EXPECT_THAT(FileNames(), IsEmpty());
}

TEST_F(SaveAndReopenTest, KeepsTheFileForACopyOfTheProperty)
{
    auto document = NewDocument(1);
    SaveAndReopen(document, "copy", writeOptions, OrvDoc::ReadOptions());
    boost::any copy = *document->GetProperties().Find(RemoveFileKey);
    document.reset();
    EXPECT_EQ(FileNames().size(), 1u);
    copy = boost::any();
    EXPECT_THAT(FileNames(), IsEmpty());
}

TEST_F(SaveAndReopenTest, DoesNotMindThatTheFileIsGone)
{
    auto document = NewDocument(1);
    SaveAndReopen(document, "early", writeOptions, OrvDoc::ReadOptions());
    boost::filesystem::remove(document->GetFilePath());
    EXPECT_NO_THROW(document.reset());
}

TEST_F(SaveAndReopenTest, LeavesOnlyTheNewestFileOfSeveralTrips)
{
    auto document = NewDocument(1);
    SaveAndReopen(document, "first", writeOptions, OrvDoc::ReadOptions());
    SaveAndReopen(document, "second", writeOptions, OrvDoc::ReadOptions());
    EXPECT_THAT(OnlyFileName(), MatchesRegex("Harrow-second.*"));
}

TEST(RemoveFile, DoesNotMindWhatItCannotDelete)
{
    const TemporaryFolder folder;
    folder.Write("file", "");
    {
        const RemoveFile full{boost::filesystem::path(folder.GetPath())};
    }
    EXPECT_TRUE(boost::filesystem::exists(folder.GetPath()));
}

} // namespace
} // namespace HarrowSupport::Testing
