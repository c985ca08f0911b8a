#include "pdf/reader/file/source_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <boost/filesystem/operations.hpp>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include "document_library/pdf/reader/late_texts.h"
#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using OrvPdf::SourceFile;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

std::string OnePage()
{
    return PdfFileOfPages({"0 0 m"});
}

/// The file with an open password and an owner's password.
std::string Encrypted(const std::string& plain, const char* user, const char* owner)
{
    QPDF file;
    file.processMemoryFile("plain", plain.data(), plain.size());
    QPDFWriter writer(file);
    writer.setOutputMemory();
    writer.setR6EncryptionParameters(user, owner, true, true, true, true, true, true, qpdf_r3p_full, true);
    writer.write();
    const std::unique_ptr<Buffer> buffer(writer.getBuffer());
    return std::string(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize());
}

/// What opening a file of these bytes throws; empty if it throws nothing.
std::string ReasonOf(const std::string& bytes, const std::string& password = {})
{
    const TemporaryFolder folder;
    OrvDoc::ReadOptions options;
    options.password = password;
    try {
        SourceFile::Open(folder.Write("file.pdf", bytes), options);
    } catch (const std::runtime_error& problem) {
        return problem.what();
    }
    return {};
}

TEST(SourceFile, OpensAFile)
{
    const ReaderTests::OpenedFile file(OnePage());
    EXPECT_TRUE(file.GetCatalogue().isDictionary());
    EXPECT_FALSE(file.Get()->IsEncrypted());
    EXPECT_FALSE(file.Get()->WasRepaired());
}

TEST(SourceFile, TellsFileAndReasonIfItCannotBeOpened)
{
    const TemporaryFolder folder;
    const std::string name = folder.NameOf("missing.pdf");
    EXPECT_THAT([&] { SourceFile::Open(name, {}); },
                testing::ThrowsMessage<std::runtime_error>(
                    AllOf(StartsWith(name + ": "), HasSubstr("cannot be opened: No such file"))));
}

TEST(SourceFile, RefusesAFolder)
{
    const TemporaryFolder folder;
    EXPECT_THAT([&] { SourceFile::Open(folder.GetPath(), {}); },
                testing::ThrowsMessage<std::runtime_error>(HasSubstr("no regular file")));
}

TEST(SourceFile, RefusesAnEmptyFile)
{
    EXPECT_THAT(ReasonOf(""), HasSubstr("the file is empty"));
}

TEST(SourceFile, RefusesWhatHasNoHeader)
{
    EXPECT_THAT(ReasonOf("Dear reader, 1 0 obj"), HasSubstr("no PDF file"));
}

TEST(SourceFile, RefusesWhatHasNeitherHeaderNorPages)
{
    EXPECT_THAT(ReasonOf("trailer << /Root 1 0 R >>"), HasSubstr("no PDF file"));
}

TEST(SourceFile, OpensAFileWithoutAHeaderAndSaysSo)
{
    const std::string bytes = OnePage();
    const ReaderTests::OpenedFile file(bytes.substr(bytes.find("1 0 obj")));
    EXPECT_TRUE(file.GetCatalogue().isDictionary());
    EXPECT_THAT(file.Get()->GetOpeningProblems(), Contains(HasSubstr("header")));
}

TEST(SourceFile, TellsThatAFileIsDamagedBeyondRepair)
{
    EXPECT_THAT(ReasonOf("%PDF-1.7\nnothing that could be an object"), HasSubstr("damaged beyond repair"));
}

TEST(SourceFile, RepairsACrossReferenceTableAndSaysSo)
{
    std::string bytes = OnePage();
    bytes.replace(bytes.find("startxref\n") + 10, 1, "9");
    const ReaderTests::OpenedFile file(bytes);
    EXPECT_TRUE(file.Get()->WasRepaired());
    EXPECT_THAT(file.Get()->GetOpeningProblems(), Contains(HasSubstr("reconstruct")));
}

TEST(SourceFile, OpensAFileWithTheEmptyPassword)
{
    const ReaderTests::OpenedFile file(Encrypted(OnePage(), "", "owner"));
    EXPECT_TRUE(file.Get()->IsEncrypted());
}

TEST(SourceFile, TellsThatAPasswordIsNeeded)
{
    EXPECT_THAT(ReasonOf(Encrypted(OnePage(), "user", "owner")), HasSubstr("needs a password"));
}

TEST(SourceFile, TellsThatAPasswordIsWrong)
{
    EXPECT_THAT(ReasonOf(Encrypted(OnePage(), "user", "owner"), "another"), HasSubstr("password is wrong"));
}

TEST(SourceFile, TakesTheUsersAndTheOwnersPassword)
{
    const std::string bytes = Encrypted(OnePage(), "user", "owner");
    EXPECT_EQ(ReasonOf(bytes, "user"), "");
    EXPECT_EQ(ReasonOf(bytes, "owner"), "");
}

TEST(SourceFile, TakesAPasswordThatAnOlderFileHasInItsOwnEncoding)
{
    const std::string plain = OnePage();
    QPDF file;
    file.processMemoryFile("plain", plain.data(), plain.size());
    QPDFWriter writer(file);
    writer.setOutputMemory();
    writer.setR3EncryptionParametersInsecure("\xe4", "owner", true, true, true, true, true, true,
                                             qpdf_r3p_full);
    writer.write();
    const std::unique_ptr<Buffer> buffer(writer.getBuffer());
    const std::string bytes(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize());
    EXPECT_EQ(ReasonOf(bytes, "\xc3\xa4"), "");
}

TEST(SourceFile, OpensTheSameFileAgainWithTheSamePassword)
{
    OrvDoc::ReadOptions options;
    options.password = "user";
    const ReaderTests::OpenedFile file(Encrypted(OnePage(), "user", "owner"), options);
    const std::unique_ptr<QPDF> again = file.Get()->OpenAgain();
    EXPECT_EQ(again->getRoot().getObjGen(), file.GetCatalogue().getObjGen());
}

TEST(SourceFile, IsNotChangedByWhatHappensToItsSecondOpening)
{
    const ReaderTests::OpenedFile file(OnePage());
    file.Get()->OpenAgain()->getRoot().replaceKey("/Lang", QPDFObjectHandle::newString("en"));
    EXPECT_FALSE(file.GetCatalogue().hasKey("/Lang"));
}

TEST(SourceFile, NeedsTheFileNoMoreOnceItIsOpen)
{
    std::shared_ptr<const SourceFile> file;
    {
        const TemporaryFolder folder;
        file = SourceFile::Open(folder.Write("file.pdf", OnePage()), {});
    }
    const SourceFile::Access access(*file);
    EXPECT_TRUE(access.GetQpdf().getRoot().getKey("/Pages").isDictionary());
}

TEST(SourceFile, SurvivesAChainOfReferencesThatIsDeeperThanTheStack)
{
    // The length of each stream is a reference to the next one.
    const int count = 6000;
    std::vector<std::string> objects = {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [] >>"};
    for (int number = 3; number < count; ++number)
        objects.push_back("<< /Length " + std::to_string(number + 1) + " 0 R >>\nstream\nx\nendstream");
    objects.push_back("1");
    const ReaderTests::OpenedFile file(PdfFile(objects));
    file.GetObject(3).isStream();
    EXPECT_THAT(ReaderTests::TakeLateTexts(*file.Get()), Contains(HasSubstr("nested too deeply")));
}

TEST(SourceFile, MendsTheLengthsOfVeryManyStreamsAtOnce)
{
    // For each of them, the PDF library looks at all objects.
    const int count = 20000;
    std::vector<std::string> objects = {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [] >>"};
    for (int number = 3; number <= count; ++number)
        objects.push_back("<< /Length " + std::to_string(number + 1) + " 0 R >>\nstream\nabc\nendstream");
    const ReaderTests::OpenedFile file(PdfFile(objects));
    EXPECT_EQ(file.GetObject(3).getDict().getKey("/Length").getIntValue(), 3);
    EXPECT_EQ(file.GetObject(count - 1).getRawStreamData()->getSize(), 3u);
    EXPECT_THAT(ReaderTests::TakeLateTexts(*file.Get()), testing::IsEmpty());
    // The last one refers to no object at all.
    EXPECT_THAT(
        file.Get()->GetOpeningProblems(),
        testing::ElementsAre("the lengths of 19997 streams are wrong; their data was taken to the next "
                             "endstream"));
}

TEST(SourceFile, ReadsAllByTheTableThatIsMadeAnewForOneWrongEntry)
{
    std::string bytes = PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [] >>",
                                 "(old)\nendobj\n3 0 obj\n(new)", "(elsewhere)"});
    const std::string place = std::to_string(bytes.find("4 0 obj"));
    bytes.replace(bytes.rfind(place + " 00000 n"), place.size(), std::string(place.size(), '1'));
    const ReaderTests::OpenedFile file(bytes);
    EXPECT_EQ(file.GetObject(3).getStringValue(), "new");
    EXPECT_EQ(file.GetObject(4).getStringValue(), "elsewhere");
    EXPECT_THAT(file.Get()->GetOpeningProblems(),
                Contains(HasSubstr("Attempting to reconstruct cross-reference table")));
    EXPECT_TRUE(file.Get()->WasRepaired());
}

TEST(SourceFile, KeepsATableWithAWrongEntryIfANewOneWouldHaveFewerObjects)
{
    // The search for objects looks at the beginnings of lines.
    std::string bytes =
        PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [] >>", "(hidden)", "(lost)"});
    bytes.replace(bytes.find("\n3 0 obj"), 1, " ");
    const std::string place = std::to_string(bytes.find("4 0 obj"));
    bytes.replace(bytes.rfind(place + " 00000 n"), place.size(), std::string(place.size(), '1'));
    const ReaderTests::OpenedFile file(bytes);
    EXPECT_EQ(file.GetObject(3).getStringValue(), "hidden");
}

TEST(SourceFile, RefusesMoreObjectsThanTheLimit)
{
    // A catalogue, a node, a page and its content.
    OrvDoc::ReadOptions options;
    options.limits.indirectObjects = 3;
    EXPECT_THAT([&] { ReaderTests::OpenedFile file(OnePage(), options); },
                testing::ThrowsMessage<std::runtime_error>(
                    HasSubstr("limit indirectObjects: 3 reached, the file has 4 objects")));
    options.limits.indirectObjects = 4;
    EXPECT_EQ(ReaderTests::OpenedFile(OnePage(), options).GetQpdf().getXRefTable().size(), 4u);
}

TEST(SourceFile, CountsDecodedBytesAgainstTheLimitOfTheDocument)
{
    OrvDoc::ReadOptions options;
    options.limits.documentBytes = 10;
    const ReaderTests::OpenedFile file(OnePage(), options);
    EXPECT_EQ(file.Get()->GetDecodedBytesLeft(), 10u);
    file.Get()->CountDecodedBytes(4);
    EXPECT_EQ(file.Get()->GetDecodedBytesLeft(), 6u);
    file.Get()->CountDecodedBytes(7);
    EXPECT_EQ(file.Get()->GetDecodedBytesLeft(), 0u);
}

} // namespace
