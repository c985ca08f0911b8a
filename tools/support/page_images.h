#pragma once

#include "support/child_process.h"

#include <cstddef>
#include <limits>
#include <map>
#include <string>

namespace HarrowSupport::Testing
{

/// A page as a renderer shows it.
struct PageImage
{
    std::size_t width = 0;
    std::size_t height = 0;
    /// Red, green and blue of each pixel, a byte each, in rows from the top.
    std::string samples;

    bool operator==(const PageImage& other) const
    {
        return width == other.width && height == other.height && samples == other.samples;
    }
};

/// The pages of a file by number, counted from one. A page that the renderer gives up is missing.
using PageImages = std::map<std::size_t, PageImage>;

/// The first and the last page to look at, counted from one.
struct PageRange
{
    std::size_t first = 1;
    std::size_t last = std::numeric_limits<int>::max();
};

/// Whether pdftoppm, which renders, can be started.
bool CanRenderPages();

/// The number of pages of a file, as the renderer's companion pdfinfo tells it; zero if it tells none.
/// @throws what RunProcess throws
std::size_t CountPages(const std::string& file, const ProcessLimits& limits = {});

/// The pages of a range as pdftoppm shows them, a pixel to the point. Where one of them has a side of more
/// than `longestSide` points, each is shown with that many pixels on its longer side. A file of which no page
/// can be rendered has no pictures; that is no error.
/// @throws what RunProcess and the file system throw; std::runtime_error for a picture that can't be read
PageImages RenderPages(const std::string& file, const ProcessLimits& limits = {}, const PageRange& range = {},
                       std::size_t longestSide = 3000);

/// Reads a picture of the binary kind of "portable pixmap" with a byte for a sample, as renderers write it.
/// @throws std::runtime_error if the bytes are something else, or end early
PageImage ReadPortablePixmap(const std::string& bytes);

/// The share of pixels, from zero to one, of which some channel differs by more than `tolerance` of 255.
/// Pictures of different sizes differ in every pixel.
double ShareOfDifferentPixels(const PageImage& left, const PageImage& right, int tolerance);

} // namespace HarrowSupport::Testing
