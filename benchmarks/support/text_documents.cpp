#include "support/text_documents.h"

#include <fstream>
#include <map>

#include <boost/filesystem/operations.hpp>

#include <orv_doc/resource_manager.h>
#include <orv_doc/shown_text.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>
#include <orv_font/font_manager.h>
#include <orv_paint/flat_paint.h>

#include "support/generated_files.h"
#include "support/measure.h"

namespace Benchmarks
{

namespace
{

using Box = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Matrix = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

constexpr unsigned seed = 3;

/// Builds the texts of one paragraph: a new one begins where font or size change.
class ParagraphBuilder
{
public:
    ParagraphBuilder(OrvDoc::Content& content, const StyleFonts& givenFonts)
        : fonts(givenFonts),
          black(OrvPaint::FlatPaint::Factory(OrvColor::ColorSpace::DeviceGray(), {0.0F}, false, false).Get())
    {
        auto owned = std::make_unique<OrvDoc::TextGroup>();
        group = owned.get();
        content.AddOnTop(owned.release());
    }

    void Add(const TextLine& line)
    {
        for (const TextRun& run : line.runs) {
            const double x = line.x + run.x;
            if (run.style != style || line.size != size) {
                Finish();
                style = run.style;
                size = line.size;
                startX = x;
                startY = line.y;
            } else {
                shown.AddLine(x - startX, line.y - startY);
            }
            for (const TextPiece& piece : run.pieces)
                Show(piece);
        }
    }

    void Finish()
    {
        if (shown.IsEmpty())
            return;
        shown.DropTrailingSteps();
        auto text = std::make_unique<OrvDoc::Text>(fonts[style], size, std::exchange(shown, {}));
        text->SetTextTransformation(Matrix(1.0, 0.0, 0.0, 1.0, startX * 1000.0, startY * 1000.0));
        text->SetFillPaint(black);
        group->AddOnTop(text.release());
    }

private:
    void Show(const TextPiece& piece)
    {
        std::vector<OrvFont::Character> characters;
        const std::wstring wide(piece.text.begin(), piece.text.end());
        fonts[style]->Uni16StringToFontCharacters({wide.data(), wide.size()}, characters);
        for (const OrvFont::Character& character : characters) {
            const char code[]{static_cast<char>(character.code >> 8U), static_cast<char>(character.code)};
            shown.AppendCodes({code, sizeof code});
        }
        if (piece.adjustment != 0)
            shown.AddAdjustment(piece.adjustment);
    }

    const StyleFonts& fonts;
    std::shared_ptr<const OrvPaint::Paint> black;
    OrvDoc::TextGroup* group;
    OrvDoc::ShownText shown;
    Style style = StyleCount;
    double size = 0.0;
    double startX = 0.0;
    double startY = 0.0;
};

void AddLastWords(OrvDoc::Content& content, const StyleFonts& fonts, const std::string& words)
{
    ParagraphBuilder builder(content, fonts);
    for (std::size_t style = 0; style < StyleCount; ++style) {
        builder.Add({10.0,
                     90.0 + 80.0 * static_cast<double>(style),
                     60.0,
                     {{static_cast<Style>(style), 0.0, {{words, 0}}}}});
    }
    builder.Finish();
}

std::string EscapeForPostScript(const std::string& text)
{
    std::string escaped;
    for (const char letter : text) {
        if (letter == '(' || letter == ')' || letter == '\\')
            escaped += '\\';
        escaped += letter;
    }
    return escaped;
}

void WritePostScriptLine(std::ostream& stream, const TextLine& line)
{
    for (const TextRun& run : line.runs) {
        stream << "F" << run.style << (line.size > 10.0 ? "h " : " ") << line.x + run.x << " " << line.y
               << " m\n";
        for (const TextPiece& piece : run.pieces) {
            stream << "(" << EscapeForPostScript(piece.text) << ")s ";
            if (piece.adjustment != 0)
                stream << -piece.adjustment * line.size / 1000.0 << " r ";
        }
        stream << "\n";
    }
}

} // namespace

StyleNames UsualFonts()
{
    return {"Times-Roman", "Times-Italic", "Times-Bold", "Helvetica-Bold", "Courier"};
}

StyleFonts FindFonts(const OrvDoc::Document& document, const StyleNames& names)
{
    StyleFonts fonts;
    for (std::size_t style = 0; style < StyleCount; ++style)
        fonts[style] = document.GetResourceManager().GetFontManager().GetOrCreateFont(
            OrvFont::GetFontIDForFontName(names[style]), OrvFont::WritingMode::Horizontal);
    return fonts;
}

std::unique_ptr<OrvDoc::Document> MakeTextDocument(std::size_t pages, const StyleNames& names,
                                                   const std::string& lastWords)
{
    auto document = OrvDoc::Document::CreateNew();
    const StyleFonts fonts = FindFonts(*document, names);
    TextLayout layout(FindFonts(*document, UsualFonts()), seed);
    for (std::size_t number = 0; number < pages; ++number) {
        OrvDoc::Content& content = document->AddPage(Box(0.0, 0.0, 595276.0, 841890.0)).GetContent();
        for (const Paragraph& paragraph : layout.NextPage()) {
            ParagraphBuilder builder(content, fonts);
            for (const TextLine& line : paragraph)
                builder.Add(line);
            builder.Finish();
        }
        if (number + 1 == pages)
            AddLastWords(content, fonts, lastWords);
    }
    return document;
}

void WriteTextByGhostscript(const boost::filesystem::path& file, std::size_t pages)
{
    const boost::filesystem::path program = file.string() + ".ps";
    {
        std::ofstream stream(program.string());
        stream.imbue(std::locale::classic());
        stream << "%!PS-Adobe-3.0\n/m/moveto load def /s/show load def /r{0 rmoveto}bind def\n";
        const auto document = OrvDoc::Document::CreateNew();
        const StyleNames names = UsualFonts();
        for (std::size_t style = 0; style < StyleCount; ++style) {
            stream << "/F" << style << "{/" << names[style] << " 10 selectfont}bind def /F" << style << "h{/"
                   << names[style] << " 14 selectfont}bind def\n";
        }
        TextLayout layout(FindFonts(*document, names), seed);
        for (std::size_t number = 0; number < pages; ++number) {
            for (const Paragraph& paragraph : layout.NextPage()) {
                for (const TextLine& line : paragraph)
                    WritePostScriptLine(stream, line);
            }
            stream << "showpage\n";
        }
    }
    RunProgram({"gs", "-q", "-dBATCH", "-dNOPAUSE", "-sPAPERSIZE=a4", "-sDEVICE=pdfwrite",
                "-dPDFSETTINGS=/prepress", "-sOutputFile=" + file.string(), program.string()});
    boost::filesystem::remove(program);
}

} // namespace Benchmarks
