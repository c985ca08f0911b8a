#include "pdf/reader/file/file_reading.h"

#include <memory>
#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qpdf/QPDF.hh>

#include "document_library/pdf/reader/late_texts.h"
#include "pdf/reader/file/source_file.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

namespace OrvPdf
{
namespace
{

using ReaderTests::TakeLateTexts;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class FileReadingTest : public ::testing::Test
{
protected:
    /// A file whose object 3 is damaged, which is seen when somebody looks at it.
    std::shared_ptr<const SourceFile> Open(const std::string& name) const
    {
        return SourceFile::Open(
            folder.Write(name, HarrowSupport::Testing::PdfFile(
                                   {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [] >>", "<< /Type ) >>"})),
            {});
    }

    static void LookAtDamage(const SourceFile& read)
    {
        const SourceFile::Access access(read);
        access.GetQpdf().getObject(3, 0).isDictionary();
    }

    HarrowSupport::Testing::TemporaryFolder folder;
    std::shared_ptr<const SourceFile> file = Open("file.pdf");
};

TEST_F(FileReadingTest, GetsWhatItsThreadTells)
{
    FileReading reading(*file, "page 1");
    file->Tell("a");
    EXPECT_THAT(reading.TakeProblems(), ElementsAre("a"));
    EXPECT_THAT(reading.TakeProblems(), IsEmpty());
    EXPECT_THAT(TakeLateTexts(*file), IsEmpty());
}

TEST_F(FileReadingTest, GetsWhatTheParserFinds)
{
    FileReading reading(*file, "page 1");
    LookAtDamage(*file);
    EXPECT_THAT(reading.TakeProblems(), Contains(HasSubstr("object 3 0")));
    EXPECT_THAT(TakeLateTexts(*file), IsEmpty());
}

TEST_F(FileReadingTest, DoesNotGetWhatWasFoundBeforeAndAfterIt)
{
    LookAtDamage(*file);
    {
        FileReading reading(*file, "page 1");
        EXPECT_THAT(reading.TakeProblems(), IsEmpty());
    }
    file->Tell("after");
    EXPECT_THAT(TakeLateTexts(*file), AllOf(Contains(HasSubstr("object 3 0")), Contains("after")));
}

TEST_F(FileReadingTest, DoesNotGetWhatAnotherThreadFinds)
{
    FileReading reading(*file, "page 1");
    std::thread([this] { file->Tell("of the other thread"); }).join();
    EXPECT_THAT(reading.TakeProblems(), IsEmpty());
    EXPECT_THAT(TakeLateTexts(*file), ElementsAre("of the other thread"));
}

TEST_F(FileReadingTest, DoesNotGetWhatIsFoundInAnotherFile)
{
    const auto other = Open("other.pdf");
    FileReading reading(*file, "page 1");
    other->Tell("of the other file");
    {
        FileReading inner(*other, "page 1");
        file->Tell("of this file");
        EXPECT_THAT(inner.TakeProblems(), IsEmpty());
    }
    EXPECT_THAT(reading.TakeProblems(), ElementsAre("of this file"));
    EXPECT_THAT(TakeLateTexts(*other), ElementsAre("of the other file"));
}

TEST_F(FileReadingTest, LeavesWhatNobodyTookAsLateProblems)
{
    {
        const FileReading reading(*file, "page 1");
        file->Tell("a");
    }
    EXPECT_THAT(TakeLateTexts(*file), ElementsAre("a"));
}

TEST_F(FileReadingTest, NumbersInlineImages)
{
    FileReading reading(*file, "page 3");
    EXPECT_EQ(reading.NameInlineImage(), "inline image 1 of page 3");
    EXPECT_EQ(reading.NameInlineImage(), "inline image 2 of page 3");
}

} // namespace
} // namespace OrvPdf
