#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <orv_font/font.h>
#include <plexa/compound.h>

#include "document_library/pdf/reader/late_texts.h"
#include "document_library/pdf/reader/opened_file.h"
#include "pdf/fonts/file_font.h"
#include "pdf/reader/fonts/font_reader.h"
#include "support/pdf_text.h"

/// Small files with fonts, and what is read of them.
namespace ReaderTests
{

/// A file whose objects from number 3 on are the given ones, and its fonts.
class FontFile
{
public:
    explicit FontFile(const std::vector<std::string>& objects) : file(MakeBytes(objects)), reader(file.Get())
    {}

    /// The font in an object. What is wrong with it comes to `problems`, which is emptied before.
    std::shared_ptr<const OrvFont::Font> Read(int number = 3)
    {
        problems.clear();
        return reader.Read(file.GetObject(number), problems);
    }

    std::shared_ptr<const OrvFont::Font> ReadHandle(QPDFObjectHandle dictionary)
    {
        problems.clear();
        return reader.Read(dictionary, problems);
    }

    /// What using the fonts found wrong since the last call.
    std::vector<std::string> TakeLateTexts() { return ReaderTests::TakeLateTexts(*file.Get()); }

    const OpenedFile& GetFile() const { return file; }
    std::uint64_t GetDecodedBytes() const
    {
        return file.Get()->GetOptions().limits.documentBytes - file.Get()->GetDecodedBytesLeft();
    }

    std::vector<std::string> problems;

private:
    static std::string MakeBytes(const std::vector<std::string>& objects)
    {
        std::vector<std::string> all = {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [] >>"};
        all.insert(all.end(), objects.begin(), objects.end());
        return HarrowSupport::Testing::PdfFile(all);
    }

    OpenedFile file;
    OrvPdf::FontReader reader;
};

inline std::vector<OrvFont::Character> Decode(const OrvFont::Font& font, std::string_view bytes)
{
    std::vector<OrvFont::Character> characters;
    OrvPdf::GetFileFont(font)->Decode(bytes, characters);
    return characters;
}

/// Of the first character that the bytes show.
inline double AdvanceOf(const OrvFont::Font& font, std::string_view bytes)
{
    return font.GetAdvance(Decode(font, bytes).at(0));
}

/// The outline of the first character that the bytes show, as text; empty for an empty one.
inline std::string OutlineOf(const OrvFont::Font& font, std::string_view bytes)
{
    const auto outline = font.GetOutline(Decode(font, bytes).at(0));
    if (outline->GetSubpaths().empty())
        return {};
    std::ostringstream text;
    text << outline;
    return text.str();
}

} // namespace ReaderTests
