// Any number of threads may share a font. Run under the thread sanitizer as well.

#include <orv_font/font.h>
#include <orv_font/font_manager.h>
#include <plexa/compound.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace
{

using OrvFont::Character;
using OrvFont::Font;

/// All that a text of the font would ask for.
std::string Describe(const Font& font)
{
    std::vector<Character> characters;
    font.Uni16StringToFontCharacters(L"The quick brown fox jumps over the lazy dog. 0123456789", characters);
    std::ostringstream text;
    for (const Character& character : characters)
        text << character.glyph << ' ' << font.GetAdvance(character) << ' ' << font.GetOutline(character)
             << '\n';
    return text.str();
}

std::shared_ptr<const Font> GetSerif(OrvFont::FontManager& manager)
{
    return manager.GetOrCreateFont(OrvFont::GetFontIDForFontName("QuorleSerif"),
                                   OrvFont::WritingMode::Horizontal);
}

TEST(SharedFonts, GiveTheSameToAllThreadsThatAskAtOnce)
{
    OrvFont::FontManager manager;
    std::vector<std::string> found(4);
    std::vector<std::thread> threads;
    for (std::string& description : found)
        threads.emplace_back([&description, &manager] { description = Describe(*GetSerif(manager)); });
    for (std::thread& thread : threads)
        thread.join();
    OrvFont::FontManager other;
    const std::string alone = Describe(*GetSerif(other));
    EXPECT_GT(alone.size(), 5000u);
    for (const std::string& description : found)
        EXPECT_EQ(description, alone);
}

TEST(SharedFonts, AreOneForAllThreadsThatAskAtOnce)
{
    OrvFont::FontManager manager;
    std::vector<std::shared_ptr<const Font>> found(4);
    std::vector<std::thread> threads;
    for (std::shared_ptr<const Font>& font : found)
        threads.emplace_back([&font, &manager] { font = GetSerif(manager); });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& font : found)
        EXPECT_EQ(font, found.front());
}

} // namespace
