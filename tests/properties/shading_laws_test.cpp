// Every shading comes back from a file exactly as it was, which the comparison with its tolerances doesn't
// tell.

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/page.h>
#include <orv_doc/path.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include <plexa/geometry.h>

#include "support/document_makers.h"
#include "support/error_texts.h"
#include "support/random_documents.h"
#include "support/random_shadings.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

constexpr std::uint32_t shadings = 1000;

std::vector<std::string> DescribeFills(const OrvDoc::Content& content)
{
    std::vector<std::string> texts;
    for (const OrvDoc::ContentObject* object = content.GetChildren().first; object; object = object->next) {
        const auto* const path = dynamic_cast<const OrvDoc::Path*>(object);
        const auto* const shading =
            path ? dynamic_cast<const OrvPaint::ShadingPaint*>(path->GetFillPaint().get()) : nullptr;
        texts.push_back(shading ? DescribeShading(*shading) : "no shading");
    }
    return texts;
}

TEST(ShadingLaws, AShadingComesBackFromAFileExactlyAsItWas)
{
    const TemporaryFolder folder;
    const auto document = NewDocument(1);
    OrvDoc::Content& content = ContentOf(*document);
    for (std::uint32_t seed = FirstSeed(); seed < FirstSeed() + shadings; ++seed) {
        std::mt19937 random(seed);
        auto path = std::make_unique<OrvDoc::Path>(Plexa::GetRectangleCompound({0.0, 0.0, 1000.0, 1000.0}));
        path->SetFillPaint(RandomShading(random));
        Place(content, std::move(path));
    }
    document->Save(folder.NameOf("shadings.pdf"), OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    EXPECT_THAT(TextsOf(content.GetActiveErrors()), ::testing::IsEmpty());

    const auto reopened = OrvDoc::Document::Create(folder.NameOf("shadings.pdf"), OrvDoc::ReadOptions());
    EXPECT_THAT(TextsOf(ContentOf(*reopened).GetActiveErrors()), ::testing::IsEmpty());
    const auto before = DescribeFills(std::as_const(content));
    const auto after = DescribeFills(std::as_const(ContentOf(*reopened)));
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t index = 0; index < before.size(); ++index) {
        ASSERT_EQ(before[index], after[index]) << "HARROW_SEED=" << FirstSeed() + index;
    }
}

} // namespace
} // namespace HarrowSupport::Testing
