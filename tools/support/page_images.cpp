// pdftoppm names a picture by the number of its page, with as many leading zeros as the last page asks for,
// so the numbers are read from the names and pages that are missing do not shift the others.

#include "page_images.h"

#include "file_bytes.h"
#include "temporary_folder.h"

#include <boost/filesystem/operations.hpp>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace HarrowSupport::Testing
{

namespace
{

constexpr std::size_t channels = 3;

/// What stands behind a key in each line of pdfinfo's output that has it.
std::vector<std::string> FindValues(const std::string& output, const std::string& key)
{
    std::vector<std::string> values;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t place = line.find(key);
        if (place != std::string::npos)
            values.push_back(line.substr(place + key.size()));
    }
    return values;
}

/// The options of pdfinfo and pdftoppm for a range.
std::vector<std::string> OptionsFor(const PageRange& range)
{
    return {"-f", std::to_string(range.first), "-l", std::to_string(range.last)};
}

/// The longest side of the pages in points; zero if pdfinfo tells none.
double LongestSide(const std::string& file, const ProcessLimits& limits, const PageRange& range)
{
    std::vector<std::string> command{"pdfinfo", "-box", file};
    const std::vector<std::string> options = OptionsFor(range);
    command.insert(command.begin() + 1, options.begin(), options.end());
    const ProcessResult information = RunProcess(command, limits);
    double longest = 0.0;
    for (const std::string& box : FindValues(information.output, " MediaBox:")) {
        std::istringstream numbers(box);
        double left = 0.0;
        double bottom = 0.0;
        double right = 0.0;
        double top = 0.0;
        if (numbers >> left >> bottom >> right >> top)
            longest = std::max({longest, std::abs(right - left), std::abs(top - bottom)});
    }
    return longest;
}

/// The next number of a picture's head.
std::size_t ReadNumber(const std::string& bytes, std::size_t& place)
{
    const auto isDigit = [&] {
        return place < bytes.size() && std::isdigit(static_cast<unsigned char>(bytes[place]));
    };
    while (place < bytes.size() && std::isspace(static_cast<unsigned char>(bytes[place])))
        ++place;
    if (!isDigit())
        throw std::runtime_error("the head of a picture is damaged");
    std::size_t number = 0;
    for (; isDigit(); ++place)
        number = number * 10 + static_cast<std::size_t>(bytes[place] - '0');
    return number;
}

/// The number behind the last hyphen of a picture's name.
std::size_t PageNumber(const boost::filesystem::path& picture)
{
    const std::string name = picture.stem().string();
    return std::stoul(name.substr(name.rfind('-') + 1));
}

} // namespace

bool CanRenderPages()
{
    return RunProcess({"pdftoppm", "-v"}).exitCode != 127;
}

std::size_t CountPages(const std::string& file, const ProcessLimits& limits)
{
    const ProcessResult information = RunProcess({"pdfinfo", file}, limits);
    const std::vector<std::string> counts = FindValues(information.output, "Pages:");
    return counts.empty() ? 0 : std::stoul(counts.front());
}

PageImages RenderPages(const std::string& file, const ProcessLimits& limits, const PageRange& range,
                       std::size_t longestSide)
{
    const TemporaryFolder folder;
    std::vector<std::string> command{"pdftoppm", "-r", "72"};
    if (LongestSide(file, limits, range) > static_cast<double>(longestSide))
        command = {"pdftoppm", "-scale-to", std::to_string(longestSide)};
    const std::vector<std::string> options = OptionsFor(range);
    command.insert(command.end(), options.begin(), options.end());
    command.insert(command.end(), {file, folder.NameOf("page")});
    RunProcess(command, limits);

    PageImages images;
    for (const auto& entry : boost::filesystem::directory_iterator(folder.GetPath()))
        images[PageNumber(entry.path())] = ReadPortablePixmap(FileBytes(entry.path().string()));
    return images;
}

PageImage ReadPortablePixmap(const std::string& bytes)
{
    if (bytes.compare(0, 2, "P6") != 0)
        throw std::runtime_error("a picture is no binary portable pixmap");
    std::size_t place = 2;
    PageImage image;
    image.width = ReadNumber(bytes, place);
    image.height = ReadNumber(bytes, place);
    if (ReadNumber(bytes, place) != 255)
        throw std::runtime_error("a sample of a picture is no byte");
    // One blank parts the head from the samples.
    ++place;
    const std::size_t size = image.width * image.height * channels;
    if (bytes.size() < place + size)
        throw std::runtime_error("a picture ends early");
    image.samples = bytes.substr(place, size);
    return image;
}

double ShareOfDifferentPixels(const PageImage& left, const PageImage& right, int tolerance)
{
    if (left.width != right.width || left.height != right.height)
        return 1.0;
    const std::size_t pixels = left.width * left.height;
    std::size_t different = 0;
    for (std::size_t pixel = 0; pixel < pixels; ++pixel) {
        int largest = 0;
        for (std::size_t i = pixel * channels; i < (pixel + 1) * channels; ++i) {
            const int leftSample = static_cast<unsigned char>(left.samples[i]);
            const int rightSample = static_cast<unsigned char>(right.samples[i]);
            largest = std::max(largest, std::abs(leftSample - rightSample));
        }
        different += largest > tolerance ? 1 : 0;
    }
    return pixels == 0 ? 0.0 : static_cast<double>(different) / static_cast<double>(pixels);
}

} // namespace HarrowSupport::Testing
