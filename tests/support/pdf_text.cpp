#include "pdf_text.h"

#include <cstddef>

namespace HarrowSupport::Testing
{

namespace
{

std::string TenDigits(std::size_t number)
{
    const std::string digits = std::to_string(number);
    return std::string(10 - digits.size(), '0') + digits;
}

std::string Reference(std::size_t number)
{
    return std::to_string(number) + " 0 R";
}

} // namespace

std::string PdfFile(const std::vector<std::string>& objects)
{
    std::string file = "%PDF-1.7\n";
    std::string table = "0000000000 65535 f \n";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        table += TenDigits(file.size()) + " 00000 n \n";
        file += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::size_t tableOffset = file.size();
    const std::string size = std::to_string(objects.size() + 1);
    return file + "xref\n0 " + size + "\n" + table + "trailer\n<< /Size " + size +
           " /Root 1 0 R >>\nstartxref\n" + std::to_string(tableOffset) + "\n%%EOF\n";
}

std::string PdfStream(const std::string& data, const std::string& dictionaryEntries)
{
    return "<< /Length " + std::to_string(data.size()) + " " + dictionaryEntries + " >>\nstream\n" + data +
           "\nendstream";
}

std::string PdfFileOfPages(const std::vector<std::string>& contents, const std::string& catalogEntries,
                           const std::string& resourceEntries,
                           const std::vector<std::string>& additionalObjects)
{
    std::string kids;
    std::vector<std::string> pages;
    for (std::size_t i = 0; i < contents.size(); ++i) {
        const std::size_t pageNumber = 3 + 2 * i;
        kids += Reference(pageNumber) + " ";
        pages.push_back("<< /Type /Page /Parent 2 0 R /Contents " + Reference(pageNumber + 1) + " >>");
        pages.push_back(PdfStream(contents[i]));
    }
    std::vector<std::string> objects{
        "<< /Type /Catalog /Pages 2 0 R " + catalogEntries + " >>",
        "<< /Type /Pages /Kids [ " + kids + "] /Count " + std::to_string(contents.size()) +
            " /MediaBox [0 0 100 100] /Resources << " + resourceEntries + " >> >>"};
    objects.insert(objects.end(), pages.begin(), pages.end());
    objects.insert(objects.end(), additionalObjects.begin(), additionalObjects.end());
    return PdfFile(objects);
}

} // namespace HarrowSupport::Testing
