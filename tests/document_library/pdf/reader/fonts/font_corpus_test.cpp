// The fonts of real files: all of them are read, and what a page shows in an embedded font has an outline.

#include <cmath>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

#include <plexa/compound.h>

#include "pdf/fonts/file_font.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/fonts/font_parts.h"
#include "pdf/reader/fonts/font_reader.h"
#include "support/corpus_folder.h"
#include "support/pdf_files.h"

namespace
{

using namespace OrvPdf;
using HarrowSupport::Testing::CorpusFolder;

/// Strings by the font that they are shown in.
using ShownStrings = std::map<QPDFObjGen, std::vector<std::string>>;

/// Gathers what a content shows.
class ShownStringGatherer : public QPDFObjectHandle::ParserCallbacks
{
public:
    ShownStringGatherer(QPDFObjectHandle givenFonts, ShownStrings& givenShown)
        : fonts(givenFonts), shown(givenShown)
    {}

    void handleObject(QPDFObjectHandle object) override
    {
        if (!object.isOperator()) {
            operands.push_back(object);
            return;
        }
        const std::string name = object.getOperatorValue();
        if (name == "q") {
            stack.push_back(font);
        } else if (name == "Q" && !stack.empty()) {
            font = stack.back();
            stack.pop_back();
        } else if (name == "Tf" && operands.size() == 2 && operands[0].isName()) {
            font = GetEntry(fonts, operands[0].getName().c_str()).getObjGen();
        } else if (!operands.empty() && (name == "Tj" || name == "'" || name == "\"")) {
            Add(operands.back());
        } else if (!operands.empty() && name == "TJ" && operands.back().isArray()) {
            for (QPDFObjectHandle item : operands.back().getArrayAsVector())
                Add(item);
        }
        operands.clear();
    }
    void handleEOF() override {}

private:
    void Add(QPDFObjectHandle object)
    {
        if (object.isString())
            shown[font].push_back(object.getStringValue());
    }

    QPDFObjectHandle fonts;
    ShownStrings& shown;
    QPDFObjGen font;
    std::vector<QPDFObjGen> stack;
    std::vector<QPDFObjectHandle> operands;
};

/// Of a damaged file what can be found.
ShownStrings GatherShownStrings(QPDF& file)
{
    ShownStrings shown;
    const auto gather = [&shown](QPDFPageObjectHelper content) {
        ShownStringGatherer gatherer(GetEntry(content.getAttribute("/Resources", false), "/Font"), shown);
        try {
            content.parseContents(&gatherer);
        } catch (const std::runtime_error&) {
            return;
        }
    };
    try {
        for (QPDFPageObjectHelper page : QPDFPageDocumentHelper(file).getAllPages()) {
            gather(page);
            page.forEachFormXObject(true, [&](QPDFObjectHandle& form, QPDFObjectHandle&, const std::string&) {
                gather(QPDFPageObjectHelper(form));
            });
        }
    } catch (const std::runtime_error&) {
        return shown;
    }
    return shown;
}

/// The files of the corpus that open; the work is done under access to each.
template <typename Work>
void ForEachFile(Work work)
{
    for (const std::string& name : HarrowSupport::Testing::ListPdfFiles(CorpusFolder())) {
        std::shared_ptr<const SourceFile> file;
        try {
            file = SourceFile::Open(boost::filesystem::path(CorpusFolder()) / name, {});
        } catch (const std::runtime_error&) {
            continue;
        }
        SCOPED_TRACE(name);
        const SourceFile::Access access(*file);
        work(file, access.GetQpdf());
    }
}

bool IsFontDictionary(QPDFObjectHandle object)
{
    static const std::set<std::string> kinds = {"Type0", "Type1", "MMType1", "TrueType", "Type3"};
    return object.isDictionary() && kinds.count(GetNameText(GetEntry(object, "/Subtype"))) > 0 &&
           (GetNameText(GetEntry(object, "/Type")) == "Font" || GetEntry(object, "/BaseFont").isName());
}

bool IsEmbedded(QPDFObjectHandle dictionary)
{
    QPDFObjectHandle descendants = GetEntry(dictionary, "/DescendantFonts");
    QPDFObjectHandle glyphs =
        descendants.isArray() && descendants.getArrayNItems() > 0 ? descendants.getArrayItem(0) : dictionary;
    return FindProgramStream(GetEntry(glyphs, "/FontDescriptor")).isStream();
}

/// Whether nothing is to be seen of the character by what it means, or nobody knows what it means.
bool MayBeBlank(const FileFont& font, const OrvFont::Character& character)
{
    const std::u16string text = font.GetText(character);
    return text.find_first_not_of(u"\u0009\u000A\u000D\u0020\u00A0\u00AD\u2002\u2003\u2009\u200B\u3000") ==
           std::u16string::npos;
}

class FontsOfTheCorpus : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!HarrowSupport::Testing::WhyNoCorpus().empty())
            GTEST_SKIP() << HarrowSupport::Testing::WhyNoCorpus();
    }
};

TEST_F(FontsOfTheCorpus, AreAllRead)
{
    std::size_t count = 0;
    ForEachFile([&](const std::shared_ptr<const SourceFile>& file, QPDF& qpdf) {
        FontReader reader(file);
        for (QPDFObjectHandle object : qpdf.getAllObjects()) {
            if (!IsFontDictionary(object))
                continue;
            std::vector<std::string> problems;
            const auto font = reader.Read(object, problems);
            ASSERT_TRUE(font) << DescribeObject(object) << ": " << testing::PrintToString(problems);
            const std::string bytes = "some codes \x80\xFF";
            std::vector<OrvFont::Character> characters;
            GetFileFont(*font)->Decode(bytes, characters);
            for (const OrvFont::Character& character : characters) {
                EXPECT_TRUE(std::isfinite(font->GetAdvance(character)));
                EXPECT_TRUE(font->GetOutline(character));
            }
            ++count;
        }
    });
    EXPECT_GT(count, 50U);
}

TEST_F(FontsOfTheCorpus, DrawWhatPagesShow)
{
    std::size_t count = 0;
    ForEachFile([&](const std::shared_ptr<const SourceFile>& file, QPDF& qpdf) {
        FontReader reader(file);
        for (const auto& [number, strings] : GatherShownStrings(qpdf)) {
            QPDFObjectHandle dictionary = qpdf.getObject(number);
            const bool isDrawn = IsFontDictionary(dictionary) && IsEmbedded(dictionary) &&
                                 GetNameText(GetEntry(dictionary, "/Subtype")) != "Type3";
            if (!isDrawn)
                continue;
            std::vector<std::string> problems;
            const auto font = reader.Read(dictionary, problems);
            std::vector<OrvFont::Character> characters;
            for (const std::string& bytes : strings)
                GetFileFont(*font)->Decode(bytes, characters);
            std::set<std::uint32_t> missing;
            for (const OrvFont::Character& character : characters) {
                const bool isBlank = font->GetOutline(character)->GetSubpaths().empty();
                if (isBlank && !MayBeBlank(*GetFileFont(*font), character))
                    missing.insert(character.code);
                ++count;
            }
            EXPECT_THAT(missing, testing::IsEmpty()) << font->GetName();
        }
    });
    EXPECT_GT(count, 10000U);
}

TEST_F(FontsOfTheCorpus, GiveTheirWholeDictionaries)
{
    ForEachFile([&](const std::shared_ptr<const SourceFile>& file, QPDF& qpdf) {
        FontReader reader(file);
        for (QPDFObjectHandle object : qpdf.getAllObjects()) {
            if (!IsFontDictionary(object) || GetNameText(GetEntry(object, "/Subtype")) == "Type3")
                continue;
            std::vector<std::string> problems;
            const auto font = reader.Read(object, problems);
            std::string problem;
            const OrvSys::PdfObject whole = GetFileFont(*font)->GetOrigin().Convert(problem);
            EXPECT_EQ(problem, "");
            EXPECT_TRUE(whole.IsDictionary());
            EXPECT_EQ(GetFileFont(*font)->GetOrigin().GetObjectNumber(*file), object.getObjectID());
        }
    });
}

} // namespace
