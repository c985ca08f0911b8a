#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <plexa/coordinate_systems.h>
#include <plexa/transformation.h>

namespace OrvDoc::Detail
{

/// Transformations of a text's characters: where A to D are the same for all, as in nearly all texts, eight
/// bytes for each and some for each change of y; the transformations as they are otherwise. They come back
/// bit by bit. Immutable, so that clones share them.
class PackedPlaces
{
public:
    using Place = Plexa::TransformationBase<Plexa::PdfCoordinateSystem>;

    explicit PackedPlaces(std::vector<Place> places);

    Place Get(std::size_t index) const;
    /// All of them if they are kept as they are, null otherwise.
    const std::vector<Place>* GetWhole() const { return whole.empty() ? nullptr : &whole; }

private:
    /// Characters with the same y, up to the next line.
    struct Line
    {
        std::size_t first;
        double y;
    };

    double GetY(std::size_t index) const;

    /// A to D of all of them.
    Place common;
    std::vector<double> xs;
    std::vector<Line> lines;
    std::vector<Place> whole;
};

} // namespace OrvDoc::Detail
