#include "support/generated_files.h"

#include <cstdio>
#include <fstream>
#include <random>

#include <boost/filesystem/operations.hpp>

#include <orv_doc/content_object.h>
#include <orv_doc/path.h>
#include <orv_paint/flat_paint.h>
#include <plexa/compound_builder.h>

#include "support/measure.h"

namespace Benchmarks
{

namespace
{

using MilliPointRectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

std::vector<std::shared_ptr<const OrvPaint::Paint>> MakePaints()
{
    std::vector<std::shared_ptr<const OrvPaint::Paint>> paints;
    for (int i = 0; i < 16; ++i) {
        const float tint = static_cast<float>(i) / 16.0F;
        paints.push_back(OrvPaint::FlatPaint::Factory(OrvColor::ColorSpace::DeviceCMYK(),
                                                      {tint, 1.0F - tint, 0.5F, 0.0F}, false, false)
                             .Get());
    }
    return paints;
}

// Objects in a file of text, with the cross-reference table at the end.
class TextFile
{
public:
    explicit TextFile(const boost::filesystem::path& file) : stream(file.string(), std::ios::binary)
    {
        Write("%PDF-1.4\n");
    }

    void Object(const std::string& body)
    {
        offsets.push_back(position);
        Write(std::to_string(offsets.size()) + " 0 obj\n" + body + "\nendobj\n");
    }

    void Finish()
    {
        const std::size_t start = position;
        std::string table = "xref\n0 " + std::to_string(offsets.size() + 1) + "\n0000000000 65535 f \n";
        for (const std::size_t offset : offsets) {
            char line[32];
            std::snprintf(line, sizeof line, "%010zu 00000 n \n", offset);
            table += line;
        }
        Write(table + "trailer\n<< /Size " + std::to_string(offsets.size() + 1) +
              " /Root 1 0 R >>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n");
    }

private:
    void Write(const std::string& text)
    {
        stream << text;
        position += text.size();
    }

    std::ofstream stream;
    std::size_t position = 0;
    std::vector<std::size_t> offsets;
};

std::string DrawingContent()
{
    std::mt19937 random(20011);
    std::string content;
    char line[128];
    const auto coordinate = [&random] { return static_cast<double>(random() % 80000) / 100.0; };
    for (int stroke = 0; stroke < 35000; ++stroke) {
        std::snprintf(line, sizeof line, "%.2f w %.3f %.3f %.3f RG\n",
                      static_cast<double>(random() % 300) / 100.0, static_cast<double>(random() % 10) / 10.0,
                      static_cast<double>(random() % 10) / 10.0, 0.5);
        content += line;
        std::snprintf(line, sizeof line, "%.2f %.2f m\n", coordinate(), coordinate());
        content += line;
        for (int segment = 0; segment < 2; ++segment) {
            std::snprintf(line, sizeof line, "%.2f %.2f l\n", coordinate(), coordinate());
            content += line;
        }
        if (stroke % 3 == 0) {
            std::snprintf(line, sizeof line, "%.2f %.2f %.2f %.2f %.2f %.2f c\n", coordinate(), coordinate(),
                          coordinate(), coordinate(), coordinate(), coordinate());
            content += line;
        }
        content += "S\n";
    }
    return content;
}

} // namespace

TemporaryFolder::TemporaryFolder()
    : path(boost::filesystem::temp_directory_path() / boost::filesystem::unique_path("benchmark-%%%%-%%%%"))
{
    boost::filesystem::create_directory(path);
}

TemporaryFolder::~TemporaryFolder()
{
    boost::system::error_code ignored;
    boost::filesystem::remove_all(path, ignored);
}

std::unique_ptr<OrvDoc::Document> MakeVectorDocument(std::size_t objects)
{
    auto document = OrvDoc::Document::CreateNew();
    OrvDoc::PageContent& content =
        document->AddPage(MilliPointRectangle(0.0, 0.0, 595276.0, 841890.0)).GetContent();
    const auto paints = MakePaints();
    std::mt19937 random(7);
    const auto coordinate = [&random] { return static_cast<double>(random() % 800000); };
    Plexa::CompoundBuilder builder;
    for (std::size_t i = 0; i < objects; ++i) {
        builder.MoveTo({coordinate(), coordinate()});
        builder.LineTo({coordinate(), coordinate()});
        builder.LineTo({coordinate(), coordinate()});
        builder.CurveTo({coordinate(), coordinate()}, {coordinate(), coordinate()},
                        {coordinate(), coordinate()});
        if (i % 2 == 0) {
            builder.Close();
        }
        auto path = std::make_unique<OrvDoc::Path>(builder.Finish(Plexa::WindingRule::NonZero));
        if (i % 2 == 0) {
            path->SetFillPaint(paints[random() % paints.size()]);
        } else {
            path->SetStrokePaint(paints[random() % paints.size()]);
        }
        content.AddOnTop(path.get());
        path.release();
    }
    return document;
}

void WriteDrawing(const boost::filesystem::path& file)
{
    const boost::filesystem::path plain = file.string() + ".plain";
    {
        const std::string content = DrawingContent();
        TextFile pdf(plain);
        pdf.Object("<< /Type /Catalog /Pages 2 0 R >>");
        pdf.Object("<< /Type /Pages /Kids [3 0 R] /Count 1 >>");
        pdf.Object(
            "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 800 800] /Resources << >> /Contents 4 0 R >>");
        pdf.Object("<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content +
                   "\nendstream");
        pdf.Finish();
    }
    RunProgram({"qpdf", "--compress-streams=y", plain.string(), file.string()});
    boost::filesystem::remove(plain);
}

void WriteManyPages(const boost::filesystem::path& file, std::size_t pages)
{
    TextFile pdf(file);
    pdf.Object("<< /Type /Catalog /Pages 2 0 R >>");
    std::string kids;
    for (std::size_t page = 0; page < pages; ++page) {
        kids += std::to_string(3 + 2 * page) + " 0 R ";
    }
    pdf.Object("<< /Type /Pages /Kids [" + kids + "] /Count " + std::to_string(pages) + " >>");
    for (std::size_t page = 0; page < pages; ++page) {
        pdf.Object("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Resources << >> /Contents " +
                   std::to_string(4 + 2 * page) + " 0 R >>");
        const std::string content = "0 g 10 " + std::to_string(page % 700) + " 100 20 re f";
        pdf.Object("<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content +
                   "\nendstream");
    }
    pdf.Finish();
}

std::size_t LoadAllPages(OrvDoc::Document& document)
{
    std::size_t objects = 0;
    const OrvDoc::Document& constDocument = document;
    for (auto page = constDocument.GetPagesBegin(); page != constDocument.GetPagesEnd(); ++page) {
        for (const OrvDoc::ContentObject* object = page->GetContent().GetChildren().first; object;
             object = object->next) {
            ++objects;
        }
    }
    return objects;
}

} // namespace Benchmarks
