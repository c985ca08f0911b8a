#include "limit_files.h"

#include "pdf_text.h"

#include <stdexcept>
#include <vector>

namespace HarrowSupport::Testing::LimitFiles
{

namespace
{

// The first object behind those of a page.
constexpr std::size_t firstObject = 5;

std::string Repeat(std::size_t count, const std::string& text)
{
    std::string result;
    result.reserve(count * text.size());
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

std::string Reference(std::size_t number)
{
    return std::to_string(number) + " 0 R";
}

std::string Page(const std::string& content, const std::string& resources = "",
                 const std::vector<std::string>& objects = {})
{
    return PdfFileOfPages({content}, "", resources, objects);
}

std::string Picture(std::size_t width)
{
    return Page("/Im Do", "/XObject << /Im 5 0 R >>",
                {PdfStream(std::string(width, 'x'),
                           "/Type /XObject /Subtype /Image /ColorSpace /DeviceGray /BitsPerComponent 8 "
                           "/Height 1 /Width " +
                               std::to_string(width))});
}

/// A page that is painted with a colorant whose looks a function tells, which is the object 5.
std::string Tinted(const std::vector<std::string>& functions)
{
    return Page("/Tinted cs 0.5 sc 0 0 m f", "/ColorSpace << /Tinted [/Separation /Ink /DeviceGray 5 0 R] >>",
                functions);
}

std::string CalculatorStream(const std::string& program)
{
    return PdfStream(program, "/FunctionType 4 /Domain [0 1] /Range [0 1]");
}

std::string SampledStream(std::size_t samples, const std::string& data)
{
    return PdfStream(data, "/FunctionType 0 /Domain [0 1] /Range [0 1] /BitsPerSample 8 /Size [" +
                               std::to_string(samples) + "]");
}

} // namespace

std::string NestedProperties(std::size_t levels)
{
    return Page("/Tag << /Key " + Repeat(levels - 1, "[") + Repeat(levels - 1, "]") + " >> BDC 0 0 m f EMC");
}

std::string NestedColorSpace(std::size_t levels)
{
    return Page("/Tinted cs 0.5 sc 0 0 m f",
                "/ColorSpace << /Tinted [/DeviceN [/Ink] /DeviceGray 5 0 R << /Key " +
                    Repeat(levels - 2, "[") + Repeat(levels - 2, "]") + " >>] >>",
                {"<< /FunctionType 2 /Domain [0 1] /N 1 >>"});
}

std::string NestedMarks(std::size_t levels)
{
    return Page(Repeat(levels, "/Tag BMC ") + "0 0 m f " + Repeat(levels, "EMC "));
}

std::string NestedStates(std::size_t levels)
{
    return Page(Repeat(levels, "q ") + "1 g Q 0 0 m f " + Repeat(levels - 1, "Q "));
}

std::string NestedForms(std::size_t levels)
{
    std::vector<std::string> forms;
    for (std::size_t level = 1; level <= levels; ++level) {
        const std::string entries = "/Type /XObject /Subtype /Form /BBox [0 0 9 9]";
        forms.push_back(level == levels
                            ? PdfStream("0 0 m f", entries)
                            : PdfStream("/Next Do", entries + " /Resources << /XObject << /Next " +
                                                        Reference(firstObject + level) + " >> >>"));
    }
    return Page("/Next Do", "/XObject << /Next 5 0 R >>", forms);
}

std::string NestedPageTree(std::size_t levels)
{
    std::vector<std::string> objects{"<< /Type /Catalog /Pages 3 0 R >>",
                                     "<< /Type /Page /MediaBox [0 0 9 9] >>"};
    for (std::size_t level = 1; level <= levels; ++level)
        objects.push_back("<< /Type /Pages /Kids [2 0 R " +
                          (level == levels ? std::string() : Reference(3 + level)) + "] >>");
    return PdfFile(objects);
}

std::string NestedLayers(std::size_t levels)
{
    std::vector<std::string> layers;
    std::string references;
    std::string order;
    for (std::size_t level = 0; level < levels; ++level) {
        layers.push_back("<< /Type /OCG /Name (Layer) >>");
        references += Reference(firstObject + level) + " ";
        order += "[" + Reference(firstObject + level) + " ";
    }
    return PdfFileOfPages({""},
                          "/OCProperties << /OCGs [" + references + "] /D << /Order " + order +
                              Repeat(levels, "]") + " >> >>",
                          "", layers);
}

std::string Pages(std::size_t pages)
{
    return PdfFileOfPages(std::vector<std::string>(pages));
}

std::string Objects(std::size_t objects)
{
    std::vector<std::string> all{"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] >>",
                                 "<< /Type /Page /MediaBox [0 0 9 9] >>"};
    all.resize(objects, "null");
    return PdfFile(all);
}

std::string ContentBytes(std::size_t bytes)
{
    return Page(Repeat(bytes % 8, " ") + Repeat(bytes / 8, " 0 0 m f"));
}

std::string ContentPartsOfBytes(std::size_t bytes)
{
    const std::string part = Repeat(bytes / 2, " ");
    const std::string last = Repeat(bytes - bytes / 2 - 8, " ") + " 0 0 m f";
    return PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] >>",
                    "<< /Type /Page /MediaBox [0 0 9 9] /Contents [4 0 R 5 0 R] >>", PdfStream(part),
                    PdfStream(last)});
}

std::string ContentBytesBeyondTheFile(std::size_t bytes)
{
    constexpr std::size_t length = 4000; // Of the file.
    constexpr std::size_t parts = 100;
    const std::string part(length * 50 / parts, ' ');
    const std::string last = Repeat(bytes % 8, " ") + Repeat(bytes / 8, " 0 0 m f");
    const auto make = [&](std::size_t padding) {
        return PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] >>",
                        "<< /Type /Page /MediaBox [0 0 9 9] /Contents 6 0 R >>", PdfStream(part),
                        PdfStream(last), "[" + Repeat(parts, "4 0 R ") + "5 0 R]",
                        "(" + Repeat(padding, "x") + ")"});
    };
    std::string file = make(0);
    file = make(length - file.size());
    if (file.size() != length)
        throw std::logic_error("The file has not the length that it should have.");
    return file;
}

std::string PictureOfBytes(std::size_t bytes)
{
    return Picture(bytes);
}

std::string FunctionOfBytes(std::size_t bytes)
{
    return Page(
        "/Shade sh",
        "/Shading << /Shade << /ShadingType 2 /ColorSpace /DeviceGray /Coords [0 0 9 9] /Function 5 0 R "
        ">> >>",
        {SampledStream(2, std::string(bytes, 'x'))});
}

std::string Paths(std::size_t paths)
{
    return Page(Repeat(paths, "0 0 m f "));
}

std::string OverlappingGroups(std::size_t copies)
{
    return Page(Repeat(copies, "/Tag BMC ") + "q 0 0 m W n 0 0 m f " + Repeat(copies, "EMC 0 0 m f ") + "Q");
}

std::string OverlappingMatrices(std::size_t corrections)
{
    const std::string group = "/OrvGroup << /Matrix [1 0 0 1 1 0] >> BDC 1 0 0 1 1 0 cm ";
    return Page(group + Repeat(corrections, "q ") + "EMC " + Repeat(corrections, "Q ") + group +
                "0 0 m f EMC");
}

std::string Operands(std::size_t operands)
{
    std::string names;
    for (std::size_t index = 0; index < operands; ++index)
        names += "/Ink" + std::to_string(index);
    return Page("/Inks cs " + Repeat(operands, "0.5 ") + "scn 0 0 m f",
                "/ColorSpace << /Inks [/DeviceN [" + names + "] /DeviceGray 5 0 R] >>",
                {PdfStream("{ " + Repeat(operands, "pop ") + "0 }",
                           "/FunctionType 4 /Range [0 1] /Domain [" + Repeat(operands, "0 1 ") + "]")});
}

std::string OperandElements(std::size_t elements)
{
    return DashOfElements(elements);
}

std::string NameOfBytes(std::size_t bytes)
{
    return Page("/OrvObject << /Name (" + Repeat(bytes, "x") + ") >> BDC 0 0 m f EMC");
}

std::string PathOfSegments(std::size_t segments)
{
    return Page("0 0 m " + Repeat(segments - 1, "1 1 l ") + "f");
}

std::string DashOfElements(std::size_t elements)
{
    return Page("[" + Repeat(elements, "1 ") + "] 0 d 0 0 m S");
}

std::string PictureOfSamples(std::size_t samples)
{
    return Picture(samples);
}

std::string Colorants(std::size_t colorants)
{
    return Operands(colorants);
}

std::string SampledFunction(std::size_t samples)
{
    return Tinted({SampledStream(samples, std::string(samples, 'x'))});
}

std::string NestedFunctions(std::size_t levels)
{
    std::vector<std::string> functions;
    for (std::size_t level = 1; level < levels; ++level)
        functions.push_back("<< /FunctionType 3 /Domain [0 1] /Bounds [] /Encode [0 1] /Functions [" +
                            Reference(firstObject + level) + "] >>");
    functions.push_back("<< /FunctionType 2 /Domain [0 1] /N 1 >>");
    return Tinted(functions);
}

std::string NestedBraces(std::size_t levels)
{
    return Tinted({CalculatorStream("{" + Repeat(levels - 1, "true {") + Repeat(levels - 1, "} if ") + "}")});
}

std::string CalculatorOfTokens(std::size_t tokens)
{
    return Tinted({CalculatorStream("{% A comment { has no token\n" + Repeat(tokens - 2, "abs ") + "}")});
}

std::string UnknownOperators(std::size_t operators)
{
    std::string content;
    for (std::size_t index = 0; index < operators; ++index)
        content += "x" + std::to_string(index) + " ";
    return Page(content);
}

} // namespace HarrowSupport::Testing::LimitFiles
