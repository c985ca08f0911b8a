#include "comparators/external_reference_comparison.h"

#include "support/paint_makers.h"
#include "support/recording_reporter.h"
#include "support/temporary_folder.h"

#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include <boost/filesystem/operations.hpp>

#include <gtest/gtest.h>

namespace HarrowSupport::Testing
{

using Comparators::CompareExternalReferences;

namespace
{

using Reference = Comparators::ExternalReference;

Reference PageOfFile(const std::string& file, std::size_t page)
{
    return std::make_pair(boost::filesystem::path(file), page);
}

/// Documents that lie in files, and what they refer to.
class ExternalReferences : public ::testing::Test
{
protected:
    std::unique_ptr<OrvDoc::Document> DocumentAt(const std::string& file)
    {
        const std::string name = folder.NameOf(file);
        boost::filesystem::create_directories(boost::filesystem::path(name).parent_path());
        NewDocument()->Save(name, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
        return OrvDoc::Document::Create(name, OrvDoc::ReadOptions());
    }

    Reference To(const std::string& file, std::size_t page) { return PageOfFile(folder.NameOf(file), page); }

    static void ExpectSame(const OrvDoc::Document& left, const OrvDoc::Document& right,
                           const Reference& toLeft, const Reference& toRight, bool same)
    {
        EXPECT_EQ(CompareExternalReferences(left, right, toLeft, toRight), same);
        EXPECT_EQ(CompareExternalReferences(right, left, toRight, toLeft), same);
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(ExternalReferences, OnOneSideOnlyDiffer)
{
    const auto document = DocumentAt("in/a.pdf");
    ExpectSame(*document, *document, Reference(), Reference(), true);
    ExpectSame(*document, *document, To("in/x.pdf", 0), Reference(), false);
}

TEST_F(ExternalReferences, OfOnePathAndPageAreEqualWhereverTheDocumentsLie)
{
    const auto here = DocumentAt("in/a.pdf");
    const auto there = DocumentAt("out/a.pdf");
    ExpectSame(*here, *there, To("in/x.pdf", 2), To("in/x.pdf", 2), true);
}

TEST_F(ExternalReferences, OfOnePathAndTwoPagesDifferIfTheDocumentsLieApart)
{
    const auto here = DocumentAt("in/a.pdf");
    const auto there = DocumentAt("out/a.pdf");
    ExpectSame(*here, *there, To("in/x.pdf", 2), To("in/x.pdf", 3), false);
}

TEST_F(ExternalReferences, ToTheSamePlaceSeenFromTheDocumentAreEqual)
{
    const auto here = DocumentAt("in/a.pdf");
    const auto there = DocumentAt("out/b.pdf");
    ExpectSame(*here, *there, To("in/parts/x.pdf", 2), To("out/parts/x.pdf", 2), true);
    ExpectSame(*here, *there, To("x.pdf", 2), To("x.pdf", 2), true);
    ExpectSame(*here, *there, To("in/parts/x.pdf", 2), To("out/x.pdf", 2), false);
    ExpectSame(*here, *there, To("in/x.pdf", 2), To("out/y.pdf", 2), false);
}

TEST_F(ExternalReferences, ToTheSamePlaceAreEqualWhateverThePage)
{
    const auto here = DocumentAt("in/a.pdf");
    const auto there = DocumentAt("out/a.pdf");
    ExpectSame(*here, *there, To("in/x.pdf", 2), To("out/x.pdf", 7), true);
    ExpectSame(*here, *here, To("in/x.pdf", 2), To("in/x.pdf", 7), true);
}

TEST_F(ExternalReferences, RelativeOnesAreSeenFromTheDocumentAlready)
{
    const auto here = DocumentAt("in/a.pdf");
    const auto there = DocumentAt("out/a.pdf");
    ExpectSame(*here, *there, PageOfFile("x.pdf", 0), To("out/x.pdf", 0), true);
    ExpectSame(*here, *there, PageOfFile("x.pdf", 0), PageOfFile("./x.pdf", 0), true);
    ExpectSame(*here, *there, PageOfFile("x.pdf", 0), PageOfFile("../x.pdf", 0), false);
}

TEST_F(ExternalReferences, OfNoUsableNameDiffer)
{
    const auto document = DocumentAt("in/a.pdf");
    ExpectSame(*document, *document, PageOfFile("", 0), PageOfFile("", 1), false);
    ExpectSame(*document, *document, PageOfFile("", 0), PageOfFile("", 0), true);
    // A document that lies nowhere has no place to see files from.
    const auto nowhere = NewDocument();
    ExpectSame(*document, *nowhere, To("in/x.pdf", 0), To("in/x.pdf", 1), false);
}

TEST_F(ExternalReferences, OfFormsAreSeenFromTheDocumentsOfTheirContents)
{
    const auto here = DocumentAt("in/a.pdf");
    const auto there = DocumentAt("out/a.pdf");
    Fill(ContentOf(*here), Filled(AForm(*here).SetExternalReference(To("in/x.pdf", 1)).Get()),
         Filled(AForm(*here).SetExternalReference(To("in/x.pdf", 1)).Get()));
    Fill(ContentOf(*there), Filled(AForm(*there).SetExternalReference(To("out/x.pdf", 2)).Get()),
         Filled(AForm(*there).SetExternalReference(To("out/y.pdf", 1)).Get()));
    ExpectReports(*here, *there,
                  {Difference("FormExternalReference", "Page 1 @ " + folder.NameOf("in/x.pdf"),
                              "Page 1 @ " + folder.NameOf("out/y.pdf"))});
}

} // namespace HarrowSupport::Testing
