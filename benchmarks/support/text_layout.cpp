#include "support/text_layout.h"

#include <utility>

namespace Benchmarks
{

namespace
{

constexpr double textSize = 10.0;
constexpr double headingSize = 14.0;
constexpr double leading = 12.5;
constexpr double left = 90.0;
constexpr double lineWidth = 415.0;
constexpr int paragraphs = 4;
constexpr int linesInAParagraph = 8;

const std::vector<std::string>& Words()
{
    static const std::vector<std::string> words{
        "the",       "of",         "and",        "to",         "in",       "a",          "is",
        "that",      "for",        "it",         "as",         "was",      "with",       "be",
        "by",        "on",         "not",        "he",         "his",      "but",        "at",
        "are",       "this",       "have",       "from",       "which",    "or",         "paper",
        "press",     "ink",        "Water",      "letter",     "Type",     "edge,",      "cover",
        "binding",   "printed",    "sheets",     "AVERAGE",    "colour",   "Today,",     "margin",
        "proof",     "plate.",     "register",   "trapping",   "overlap",  "Yellow",     "magenta,",
        "workflow",  "delivery",   "quality",    "standard",   "measured", "density",    "customers",
        "finishing", "varnish.",   "embossing",  "economic",   "(see",     "below)",     "12.75",
        "1984",      "calculated", "separation", "comparison", "document", "attributes", "transformation"};
    return words;
}

/// Every sixth pair of letters or so is kerned, always in the same way.
int KernOf(char first, char second)
{
    const auto mixed =
        static_cast<unsigned>(static_cast<unsigned char>(first)) * 31U + static_cast<unsigned char>(second);
    return mixed % 6 == 0 ? static_cast<int>(mixed % 70) - 25 : 0;
}

/// Appends a word to a run, split where letters are kerned. Typewriter letters stand in columns.
void AppendWord(TextRun& run, const std::string& word)
{
    for (std::size_t i = 0; i < word.size(); ++i) {
        const bool isNew = run.pieces.empty() || run.pieces.back().adjustment != 0;
        if (isNew)
            run.pieces.push_back({"", 0});
        run.pieces.back().text += word[i];
        if (i + 1 < word.size() && run.style != Typewriter)
            run.pieces.back().adjustment = KernOf(word[i], word[i + 1]);
    }
}

} // namespace

TextLayout::TextLayout(const StyleFonts& fonts, unsigned seed) : advances{}, random(seed)
{
    for (std::size_t style = 0; style < StyleCount; ++style) {
        for (wchar_t letter = 32; letter < 127; ++letter) {
            std::vector<OrvFont::Character> characters;
            if (fonts[style]->Uni16StringToFontCharacters({&letter, 1}, characters))
                advances[style][static_cast<std::size_t>(letter)] =
                    fonts[style]->GetAdvance(characters.front());
        }
    }
    waiting = NextWord();
}

TextLayout::Word TextLayout::NextWord()
{
    static constexpr Style rare[]{Italic, Italic, Bold, Typewriter};
    // The square makes the words at the front of the list frequent, as short ones are.
    const std::size_t count = Words().size();
    const std::size_t chance = random() % (count * count);
    std::size_t index = 0;
    while ((index + 1) * (index + 1) <= chance)
        ++index;
    const Style style = random() % 14 == 0 ? rare[random() % 4] : Roman;
    return {style, Words()[count - 1 - index]};
}

double TextLayout::WidthOf(const TextRun& run) const
{
    double width = 0.0;
    for (const TextPiece& piece : run.pieces) {
        for (const char letter : piece.text)
            width += advances[run.style][static_cast<unsigned char>(letter)];
        width -= piece.adjustment;
    }
    return width;
}

TextLine TextLayout::SetHeading(double y)
{
    TextLine line{headingSize, left, y, {{Heading, 0.0, {}}}};
    for (int word = 0; word < 4; ++word)
        AppendWord(line.runs.front(), (word == 0 ? "" : " ") + NextWord().text);
    return line;
}

TextLine TextLayout::SetLine(double y, bool isLast)
{
    std::vector<Word> words;
    double width = 0.0;
    for (;;) {
        TextRun alone{waiting.style, 0.0, {}};
        AppendWord(alone, waiting.text + " ");
        const double wordWidth = WidthOf(alone) * textSize / 1000.0;
        if (width + wordWidth > lineWidth)
            break;
        width += wordWidth;
        words.push_back(std::exchange(waiting, NextWord()));
    }
    const double stretch = isLast ? 0.0 : (lineWidth - width) / static_cast<double>(words.size());

    TextLine line{textSize, left, y, {}};
    for (const Word& word : words) {
        if (line.runs.empty())
            line.runs.push_back({word.style, 0.0, {}});
        else if (line.runs.back().style != word.style)
            line.runs.push_back(
                {word.style, line.runs.back().x + WidthOf(line.runs.back()) * textSize / 1000.0, {}});
        AppendWord(line.runs.back(), word.text + " ");
        line.runs.back().pieces.back().adjustment = -static_cast<int>(stretch * 1000.0 / textSize);
    }
    return line;
}

std::vector<Paragraph> TextLayout::NextPage()
{
    double y = 770.0;
    std::vector<Paragraph> page{{SetHeading(y)}};
    y -= 1.5 * leading;
    for (int paragraph = 0; paragraph < paragraphs; ++paragraph) {
        page.emplace_back();
        for (int line = 0; line < linesInAParagraph; ++line) {
            page.back().push_back(SetLine(y, line + 1 == linesInAParagraph));
            y -= leading;
        }
        y -= 0.5 * leading;
    }
    return page;
}

} // namespace Benchmarks
