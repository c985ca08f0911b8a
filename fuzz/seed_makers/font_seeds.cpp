#include "seed_makers/seed_makers.h"
#include "support/made_programs.h"
#include "support/open_type_maker.h"

#include <string>
#include <utility>
#include <vector>

namespace HarrowSupport::Fuzzing
{

namespace
{

using namespace HarrowSupport::Testing;

struct NamedProgram
{
    std::string name;
    std::string bytes;
    /// Of the font descriptor.
    std::string key;
};

MadeFont MakeSampleOpenType(bool isCidKeyed)
{
    MadeFont font;
    font.glyphs = {{0, 500, 0, 0, 500, 700}, {u'A', 600, 10, 20, 510, 520}, {u'B', 300, 100, -200, 150, 800}};
    font.glyphs[1].isHinted = true;
    if (isCidKeyed)
        font.cids = {0, 65, 700};
    return font;
}

/// One of each kind.
std::vector<NamedProgram> MakePrograms()
{
    FontTables tables = MakeSampleTrueTypeTables();
    const std::string bare = JoinTrueType(tables);
    tables["cmap"] = MakeCharacterMaps({{1, 0, {{65, 1}}}, {3, 1, {{66, 2}, {67, 3}}}});
    tables["name"] = MakeNameTable({{1, "Made"}, {2, "Bold"}, {6, "Made-Bold"}});
    FontTables symbols = tables;
    symbols["cmap"] = MakeCharacterMaps({{3, 0, {{0xF041, 1}, {0xF042, 2}}}});
    MadeCompactFont cidKeyed = MakeSampleCompactFont();
    cidKeyed.isCidKeyed = true;
    return {{"true_type", JoinTrueType(tables), "FontFile2"},
            {"true_type_without_map", bare, "FontFile2"},
            {"true_type_of_symbols", JoinTrueType(symbols), "FontFile2"},
            {"compact", MakeCompactFont(MakeSampleCompactFont()), "FontFile3"},
            {"compact_of_cids", MakeCompactFont(cidKeyed), "FontFile3"},
            {"open_type", MakeCompactOpenType(MakeSampleOpenType(false)), "FontFile3"},
            {"open_type_of_cids", MakeCompactOpenType(MakeSampleOpenType(true)), "FontFile3"},
            {"type1", MakeType1(MakeSampleType1()), "FontFile"},
            {"type1_in_segments", MakeSegmentedType1(MakeSampleType1()), "FontFile"}};
}

/// Dictionaries in one line, which name the program.
std::vector<std::pair<std::string, std::string>> MakeDictionaries(const std::string& key)
{
    const std::string program =
        "/FontDescriptor << /Flags 4 /FontBBox [0 -200 1000 800] /" + key + " << /Stream /Rest >> >> ";
    const std::string latin = "/FontDescriptor << /Flags 32 /" + key + " << /Stream /Rest >> >> ";
    const std::string composite = "<< /Type /Font /Subtype /Type0 /BaseFont /ABCDEF+Made-Bold "
                                  "/ToUnicode << /Stream (1 beginbfchar <0041> <0061> endbfchar) >> ";
    return {{"built_in", "<< /Type /Font /Subtype /Type1 /BaseFont /ABCDEF+Made-Bold " + program + ">>"},
            {"named", "<< /Type /Font /Subtype /TrueType /BaseFont /Made,Bold /FirstChar 65 "
                      "/Widths [500 600.5 700] /Encoding << /BaseEncoding /WinAnsiEncoding "
                      "/Differences [66 /square /triangle /g1] >> " +
                          latin + ">>"},
            {"horizontal", composite +
                               "/Encoding /Identity-H /DescendantFonts [<< /Subtype /CIDFontType2 /DW 500 "
                               "/W [1 [600 700.5] 65 70 300] " +
                               program + ">>] >>"},
            {"vertical", composite +
                             "/Encoding /Identity-V /DescendantFonts [<< /Subtype /CIDFontType0 "
                             "/DW2 [800 -900] /W2 [1 [-800 300 700] 65 70 -700 250 800] " +
                             program + ">>] >>"},
            {"mapped", composite +
                           "/Encoding << /CMapName /Own /Stream (begincodespacerange <00> <80> <8140> <9FFC> "
                           "endcodespacerange begincidrange <41> <5A> 1 endcidrange) >> "
                           "/DescendantFonts [<< /Subtype /CIDFontType2 /CIDToGIDMap "
                           "<< /Stream (\\000\\000\\000\\002\\000\\001) >> " +
                           program + ">>] >>"}};
}

} // namespace

void MakeFontSeeds(const SeedFolder& folder)
{
    for (const NamedProgram& program : MakePrograms()) {
        folder.Add(program.name, "p 000000010002004100420043\n" + program.bytes);
        folder.Add(program.name + "_vertical", "v 0001000200030004\n" + program.bytes);
        for (const auto& [name, dictionary] : MakeDictionaries(program.key))
            folder.Add(program.name + "_" + name, "d 0001000241420043\n" + dictionary + "\n" + program.bytes);
    }
}

} // namespace HarrowSupport::Fuzzing
