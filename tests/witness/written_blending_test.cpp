// What a renderer shows of blend modes and alphas after they have been through the model.

#include <orv_blend/blend_mode.h>
#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/page.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "support/child_process.h"
#include "support/file_bytes.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace HarrowSupport::Testing
{
namespace
{

constexpr unsigned modeCount = 16;

// A row of squares over two colours, one for each mode, opaque and half transparent, and lines in between.
std::string BlendedFile()
{
    std::ostringstream states;
    std::ostringstream content;
    content
        << "0.2 0.6 0.9 rg 0 0 400 100 re f 0.9 0.5 0.1 rg 0 0 400 50 re f 0.7 0.3 0.4 rg 0.1 0.8 0.2 RG\n";
    for (unsigned mode = 0; mode < modeCount; ++mode) {
        states << "/M" << mode << " << /BM /" << static_cast<OrvBlend::BlendMode>(mode) << " >> /A" << mode
               << " << /BM [/Unheard /" << static_cast<OrvBlend::BlendMode>(mode) << "] /ca 0."
               << 1 + mode % 9 << " /CA 0.5 /AIS " << (mode % 2 == 0 ? "true" : "false") << " >> ";
        const unsigned x = 5 + 24 * mode;
        content << "q /M" << mode << " gs 2 w " << x << " 10 20 30 re B Q q 1 0 0 1 " << x << " 55 cm /A"
                << mode << " gs 4 w 0 0 20 30 re B 0 0 m 20 30 l S Q 0 0 m " << x << " 50 l S\n";
    }
    return PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
                    "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 400 100] /Contents 4 0 R /Resources << "
                    "/ExtGState << " +
                        states.str() + ">> >> >>",
                    PdfStream(content.str())});
}

std::string Picture(const TemporaryFolder& folder, const std::string& file)
{
    const std::string picture = folder.NameOf("picture");
    const ProcessResult run = RunProcess({"pdftoppm", "-r", "144", "-singlefile", file, picture});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    return FileBytes(picture + ".ppm");
}

TEST(WrittenBlending, LooksTheSameToPdftoppm)
{
    if (RunProcess({"pdftoppm", "-v"}).exitCode == 127) {
        GTEST_SKIP() << "install poppler-utils to run this test";
    }
    const TemporaryFolder folder;
    const std::string before = folder.Write("before.pdf", BlendedFile());
    const std::string after = folder.NameOf("after.pdf");
    const auto document = OrvDoc::Document::Create(before, OrvDoc::ReadOptions());
    document->Save(after, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    // A content that could not be read in full would be kept as it is, and look the same in any case.
    EXPECT_THAT(document->GetPagesBegin()->GetContent().GetActiveErrors().GetAllErrors(),
                ::testing::IsEmpty());
    EXPECT_TRUE(Picture(folder, before) == Picture(folder, after)) << "the pictures differ";
}

} // namespace
} // namespace HarrowSupport::Testing
