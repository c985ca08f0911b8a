#include "orv_doc/packed_characters.h"

#include <gtest/gtest.h>

namespace
{

using OrvDoc::TextCharacter;
using OrvDoc::Detail::PackedCharacters;

/// Fails unless all of them come back, and in the way that is expected.
void ExpectKept(const std::vector<TextCharacter>& characters, bool isWhole)
{
    const PackedCharacters packed(characters);
    ASSERT_EQ(packed.GetCount(), characters.size());
    for (std::size_t index = 0; index < characters.size(); ++index)
        EXPECT_EQ(packed.Get(index), characters[index]) << index;
    EXPECT_EQ(packed.GetWhole() != nullptr, isWhole);
    if (isWhole) {
        EXPECT_EQ(*packed.GetWhole(), characters);
    }
}

TEST(PackedCharacters, KeepCodesAndGlyphsOfSixteenBits)
{
    ExpectKept({{{0, 65535, 2}, 0, 0}, {{65535, 0, 2}, 0, 0}}, false);
    ExpectKept({{{32, 3, 1}, 0, 0}}, false);
    ExpectKept({}, false);
}

TEST(PackedCharacters, KeepWhatNeedsMoreAsItIs)
{
    const TextCharacter plain{{65, 36, 1}, 0, 0};
    for (const TextCharacter& other : {TextCharacter{{65536, 36, 1}, 0, 0},
                                       TextCharacter{{65, 65536, 1}, 0, 0}, TextCharacter{{65, 36, 2}, 0, 0},
                                       TextCharacter{{65, 36, 1}, 1, 0}, TextCharacter{{65, 36, 1}, 0, 1}})
        ExpectKept({plain, other}, true);
}

} // namespace
