#include "orv_doc/packed_places.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

namespace
{

using OrvDoc::Detail::PackedPlaces;
using Place = PackedPlaces::Place;

/// Fails unless all of them come back bit by bit.
void ExpectKept(const std::vector<Place>& places)
{
    const PackedPlaces packed(places);
    for (std::size_t index = 0; index < places.size(); ++index) {
        const Place place = packed.Get(index);
        EXPECT_EQ(std::memcmp(&place, &places[index], sizeof place), 0) << index;
    }
}

Place At(double x, double y)
{
    return {1, 0, 0, 1, x, y};
}

TEST(PackedPlaces, KeepALine)
{
    const std::vector<Place> line = {At(0, 3), At(0.1, 3), At(-7e300, 3)};
    ExpectKept(line);
    EXPECT_EQ(PackedPlaces(line).GetWhole(), nullptr);
}

TEST(PackedPlaces, KeepSeveralLines)
{
    const std::vector<Place> lines = {At(0, 0), At(5, 0),   At(0, -12), At(5, -12),
                                      At(9, 4), At(0, -12), At(1, -12), At(2, 0)};
    ExpectKept(lines);
    EXPECT_EQ(PackedPlaces(lines).GetWhole(), nullptr);
}

TEST(PackedPlaces, KeepAnotherMatrixThatAllHave)
{
    const std::vector<Place> places = {{2, 0.5, -0.0, 1, 7, 8}, {2, 0.5, -0.0, 1, 9, 8}};
    ExpectKept(places);
    EXPECT_EQ(PackedPlaces(places).GetWhole(), nullptr);
}

TEST(PackedPlaces, KeepEachMatrixWhereTheyDiffer)
{
    for (const Place& other : {Place(2, 0, 0, 1, 0, 0), Place(1, 2, 0, 1, 0, 0), Place(1, 0, 2, 1, 0, 0),
                               Place(1, 0, 0, 2, 0, 0), Place(1, -0.0, 0, 1, 0, 0)}) {
        const std::vector<Place> places = {Place(), other, At(1, 2)};
        ExpectKept(places);
        ASSERT_NE(PackedPlaces(places).GetWhole(), nullptr);
    }
}

TEST(PackedPlaces, KeepBothZerosAndWhatIsNoNumber)
{
    const double quiet = std::nan("");
    ExpectKept({At(0.0, 0.0), At(-0.0, -0.0), At(quiet, 0.0), At(-quiet, quiet), At(1, std::nan("7"))});
    ExpectKept({{quiet, 0, 0, 1, 0, 0}, {quiet, 0, 0, 1, 0, 0}});
}

TEST(PackedPlaces, OfNothingAreNone)
{
    EXPECT_EQ(PackedPlaces({}).GetWhole(), nullptr);
}

} // namespace
