// Any bytes are answered: by a document, perhaps with errors, or by an exception with a text.

#include <harrow_support/round_trip.h>

#include <orv_doc/content.h>
#include <orv_doc/errors.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "support/file_bytes.h"
#include "support/pdf_text.h"
#include "support/random_documents.h"
#include "support/recording_reporter.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

// Changes some bytes, or takes a piece out, doubles it or cuts the end off.
std::string Damage(std::string bytes, std::mt19937& random)
{
    const auto place = [&] { return random() % bytes.size(); };
    switch (random() % 4) {
    case 0:
        bytes.resize(place());
        break;
    case 1:
        bytes.erase(place(), random() % 200);
        break;
    case 2: {
        const std::string piece = bytes.substr(place(), random() % 300);
        bytes.insert(place(), piece);
        break;
    }
    default:
        for (int i = 0; i < 12; ++i) {
            bytes[place()] = static_cast<char>(random());
        }
    }
    return bytes;
}

// Reads all of a file and saves it again. Returns what was answered: "read" or the text of the exception.
std::string Answer(const boost::filesystem::path& file, const boost::filesystem::path& target)
{
    try {
        const auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
        for (auto page = document->GetPagesBegin(); page != document->GetPagesEnd(); ++page) {
            page->GetContent();
        }
        document->Save(target, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
        return "read";
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

TEST(HostileFiles, DamagedBytesGiveADocumentOrARuntimeErrorThatNamesTheFile)
{
    const TemporaryFolder folder;
    const auto leaflet = boost::filesystem::path(HARROW_SOURCE_FOLDER) / "examples/data/leaflet-v1.pdf";
    const std::string sound = FileBytes(leaflet.string());
    ASSERT_FALSE(sound.empty());
    std::size_t read = 0;
    for (std::uint32_t seed = FirstSeed(); seed < FirstSeed() + 60; ++seed) {
        SCOPED_TRACE("HARROW_SEED=" + std::to_string(seed));
        std::mt19937 random(seed);
        const std::string file = folder.Write("damaged.pdf", Damage(sound, random));
        const std::string answer = Answer(file, folder.NameOf("saved.pdf"));
        if (answer == "read") {
            ++read;
        } else {
            EXPECT_NE(answer.find("damaged.pdf"), std::string::npos) << answer;
        }
    }
    EXPECT_GT(read, 0U) << "no damaged file was read, so that nothing beyond opening was tried";
}

TEST(HostileFiles, RandomBytesAreNoPdfFileAndTheExceptionSaysWhichFile)
{
    const TemporaryFolder folder;
    for (std::uint32_t seed = FirstSeed(); seed < FirstSeed() + 40; ++seed) {
        std::mt19937 random(seed);
        std::string bytes(random() % 2000, ' ');
        for (char& byte : bytes) {
            byte = static_cast<char>(random());
        }
        const std::string file = folder.Write("noise.pdf", bytes);
        const std::string answer = Answer(file, folder.NameOf("saved.pdf"));
        EXPECT_NE(answer.find("noise.pdf"), std::string::npos) << "HARROW_SEED=" << seed << ": " << answer;
    }
}

// Painted out, the innermost form would be there 2^40 times: whoever walks the uses instead of the forms does
// not come back.
TEST(HostileFiles, AnExpandingTreeOfFormsMakesTheRoundTripsOfItsForms)
{
    constexpr int forms = 40;
    constexpr int firstObject = 5;
    std::vector<std::string> objects;
    for (int form = 0; form < forms; ++form) {
        const std::string entries = "/Type /XObject /Subtype /Form /BBox [0 0 100 100]";
        const std::string next = std::to_string(firstObject + form + 1) + " 0 R";
        const bool isLast = form + 1 == forms;
        objects.push_back(
            PdfStream(isLast ? "0 0 5 5 re f" : "/Next Do 1 0 0 1 3 0 cm /Next Do",
                      isLast ? entries : entries + " /Resources << /XObject << /Next " + next + " >> >>"));
    }
    const TemporaryFolder folder;
    const auto file =
        folder.Write("tree.pdf", PdfFileOfPages({"0 g /Next Do"}, "", "/XObject << /Next 5 0 R >>", objects));
    auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
    EXPECT_TRUE(document->GetPagesBegin()->GetContent().GetActiveErrors().GetAllErrors().empty());
    EXPECT_TRUE(TestRoundTripStructure(*document, AllOptions()).differences.empty());
    EXPECT_TRUE(TestRoundTripStructure(document, AllOptions()).differences.empty());
}

} // namespace
} // namespace HarrowSupport::Testing
