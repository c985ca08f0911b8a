#include "orv_doc/packed_places.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

namespace OrvDoc::Detail
{

namespace
{

/// Both zeros and all NaNs are told apart.
bool HaveSameBits(double left, double right)
{
    return std::memcmp(&left, &right, sizeof left) == 0;
}

bool HaveSameMatrix(const PackedPlaces::Place& left, const PackedPlaces::Place& right)
{
    return HaveSameBits(left.a, right.a) && HaveSameBits(left.b, right.b) && HaveSameBits(left.c, right.c) &&
           HaveSameBits(left.d, right.d);
}

} // namespace

PackedPlaces::PackedPlaces(std::vector<Place> places)
{
    if (places.empty())
        return;
    common = places.front();
    if (!std::all_of(places.begin(), places.end(),
                     [this](const Place& each) { return HaveSameMatrix(each, common); })) {
        whole = std::move(places);
        return;
    }
    xs.reserve(places.size());
    for (const Place& each : places) {
        if (lines.empty() || !HaveSameBits(lines.back().y, each.y.value))
            lines.push_back({xs.size(), each.y.value});
        xs.push_back(each.x.value);
    }
    lines.shrink_to_fit();
}

PackedPlaces::Place PackedPlaces::Get(std::size_t index) const
{
    if (!whole.empty())
        return whole[index];
    return {common.a, common.b, common.c, common.d, xs[index], GetY(index)};
}

double PackedPlaces::GetY(std::size_t index) const
{
    if (lines.size() == 1)
        return lines.front().y;
    const auto behind =
        std::upper_bound(lines.begin(), lines.end(), index,
                         [](std::size_t wanted, const Line& line) { return wanted < line.first; });
    return std::prev(behind)->y;
}

} // namespace OrvDoc::Detail
