#include "pdf/pictures/fax_decoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "document_library/pdf/pictures/fax_files.h"

namespace
{

using FaxFiles::Bits;
using FaxFiles::Encoded;
using FaxFiles::Packed;
using FaxFiles::Rows;
using FaxFiles::Varied;
using OrvPdf::DecodeFax;
using OrvPdf::FaxParameters;
using OrvPdf::Raster;
using OrvPdf::RasterLimits;
using testing::HasSubstr;

constexpr RasterLimits wide = {1 << 24, 1 << 24};
const std::string endOfLine = "000000000001";

FaxParameters Columns(std::size_t columns, long long k)
{
    FaxParameters parameters;
    parameters.columns = static_cast<long long>(columns);
    parameters.k = k;
    return parameters;
}

/// A row of white and black runs in turn.
std::string Runs(const std::vector<std::size_t>& lengths)
{
    std::string row;
    for (std::size_t i = 0; i < lengths.size(); ++i)
        row += std::string(lengths[i], i % 2 == 0 ? '.' : '#');
    return row;
}

void ExpectRows(const Raster& raster, const Rows& rows, bool blackIs1 = false)
{
    EXPECT_EQ(raster.width, rows[0].size());
    EXPECT_EQ(raster.height, rows.size());
    EXPECT_EQ(raster.channels, 1u);
    EXPECT_EQ(raster.bits, 1u);
    EXPECT_TRUE(raster.rows.View() == Packed(rows, blackIs1)) << "the samples differ";
}

TEST(FaxDecoder, GivesBackGroupFour)
{
    const Rows rows = Varied(1003, 90);
    const Raster raster =
        DecodeFax(Encoded(rows, COMPRESSION_CCITTFAX4), Columns(1003, -1), rows.size(), wide);
    ExpectRows(raster, rows);
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, FindsTheHeightOfGroupFour)
{
    const Rows rows = Varied(64, 37);
    const Raster raster = DecodeFax(Encoded(rows, COMPRESSION_CCITTFAX4), Columns(64, -1), 0, wide);
    ExpectRows(raster, rows);
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, GivesBackGroupThreeOfOneDimension)
{
    const Rows rows = Varied(1728, 60);
    const Raster raster = DecodeFax(Encoded(rows, COMPRESSION_CCITTFAX3), Columns(1728, 0), 60, wide);
    ExpectRows(raster, rows);
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, FindsTheHeightOfGroupThreeByItsEnd)
{
    const Rows rows = Varied(200, 21);
    const Raster raster = DecodeFax(Encoded(rows, COMPRESSION_CCITTFAX3), Columns(200, 0), 0, wide);
    ExpectRows(raster, rows);
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, GivesBackMixedGroupThree)
{
    const Rows rows = Varied(777, 60);
    const Raster raster = DecodeFax(Encoded(rows, COMPRESSION_CCITTFAX3, GROUP3OPT_2DENCODING),
                                    Columns(777, 4), rows.size(), wide);
    ExpectRows(raster, rows);
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, FindsTheHeightOfMixedGroupThree)
{
    const Rows rows = Varied(777, 60);
    const Raster raster =
        DecodeFax(Encoded(rows, COMPRESSION_CCITTFAX3, GROUP3OPT_2DENCODING), Columns(777, 4), 0, wide);
    ExpectRows(raster, rows);
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, PassesOverZerosBeforeAnEndOfLine)
{
    const Rows rows = Varied(501, 40);
    FaxParameters parameters = Columns(501, 0);
    parameters.endOfLine = true;
    const std::string data = Encoded(rows, COMPRESSION_CCITTFAX3, GROUP3OPT_FILLBITS);
    ExpectRows(DecodeFax(data, parameters, rows.size(), wide), rows);
    parameters.encodedByteAlign = true;
    ExpectRows(DecodeFax(data, parameters, rows.size(), wide), rows);
}

TEST(FaxDecoder, GivesBackRowsThatBeginAtBytesWithoutEndsOfLines)
{
    const Rows rows = Varied(501, 40);
    FaxParameters parameters = Columns(501, 0);
    parameters.encodedByteAlign = true;
    parameters.endOfBlock = false;
    const Raster raster = DecodeFax(Encoded(rows, COMPRESSION_CCITTRLE), parameters, rows.size(), wide);
    ExpectRows(raster, rows);
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, FindsRowsThatBeginAtBytesWhereEndsOfLinesAreOnlyPromised)
{
    FaxParameters parameters = Columns(8, 0);
    parameters.encodedByteAlign = true;
    parameters.endOfLine = true;
    const Raster raster = DecodeFax(Bits("0111 10 1000") + Bits("10011"), parameters, 2, wide);
    ExpectRows(raster, {"..###...", "........"});
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, DoesNotLookBehindTheEndOfTheData)
{
    const std::string row = "0111 10 1000";
    const Raster alone =
        DecodeFax(Bits(endOfLine + row + endOfLine + endOfLine + row), Columns(8, 0), 0, wide);
    ExpectRows(alone, {"..###..."});
    EXPECT_EQ(alone.problem, "");
    const Raster below =
        DecodeFax(Bits("001 0111 10 1" + endOfLine + endOfLine + "1 1 1"), Columns(8, -1), 0, wide);
    EXPECT_EQ(below.height, 1u);
}

TEST(FaxDecoder, DoesNotTakeFillingAndALongRunForAnEndOfLine)
{
    // Five zeros of filling, then the seven that the code of 1792 begins with.
    FaxParameters parameters = Columns(1792, 0);
    parameters.encodedByteAlign = true;
    const std::string row = Bits("00000001000 00110101");
    const Raster raster = DecodeFax(row + row, parameters, 2, wide);
    ExpectRows(raster, {Runs({1792}), Runs({1792})});
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, GivesBackRowsWithoutEndsOfLines)
{
    // White 2, black 3, white 3; then black 8 behind a white run of no pixels.
    const Raster raster = DecodeFax(Bits("0111 10 1000 00110101 000101"), Columns(8, 0), 2, wide);
    ExpectRows(raster, {"..###...", "########"});
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, ReadsTheTagOfMixedRowsWithoutEndsOfLines)
{
    // By itself; below it with two changes straight below.
    const Raster raster = DecodeFax(Bits("1 0111 10 1000 0 1 1 1"), Columns(8, 4), 2, wide);
    ExpectRows(raster, {"..###...", "..###..."});
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, GivesBackGroupFourRowsThatBeginAtBytes)
{
    FaxParameters parameters = Columns(8, -1);
    parameters.encodedByteAlign = true;
    // Horizontal white 2 and black 3, the rest as above; then three changes straight below.
    const std::string data =
        Bits("001 0111 10 1") + Bits("111") + Bits("011 1 1") + Bits("000000000001 000000000001");
    const Raster raster = DecodeFax(data, parameters, 0, wide);
    ExpectRows(raster, {"..###...", "..###...", "...##..."});
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, ReadsEachKindOfVerticalAndPassCode)
{
    // Above: black 10..20 and 30..40 of 50.
    const std::string above = "001 00111 0000100 001 00111 0000100 1";
    const std::pair<const char*, Rows> cases[] = {
        {"1 1 1 1 1", {Runs({10, 10, 10, 10, 10})}},
        {"011 011 011 011 1", {Runs({11, 10, 10, 10, 9})}},
        {"000011 000011 000011 000011 1", {Runs({12, 10, 10, 10, 8})}},
        {"0000011 0000011 0000011 0000011 1", {Runs({13, 10, 10, 10, 7})}},
        {"010 010 010 010 1", {Runs({9, 10, 10, 10, 11})}},
        {"000010 000010 000010 000010 1", {Runs({8, 10, 10, 10, 12})}},
        {"0000010 0000010 0000010 0000010 1", {Runs({7, 10, 10, 10, 13})}},
        {"0001 1 1 1", {Runs({30, 10, 10})}},
        {"0001 0001 1", {Runs({50})}},
    };
    for (const auto& [code, expected] : cases) {
        const Raster raster = DecodeFax(Bits(above + code), Columns(50, -1), 2, wide);
        EXPECT_EQ(raster.problem, "") << code;
        ExpectRows(raster, {Runs({10, 10, 10, 10, 10}), expected[0]});
    }
}

TEST(FaxDecoder, GivesBackEachLengthOfRun)
{
    Rows rows;
    for (std::size_t length = 0; length <= 2700; ++length)
        rows.push_back(Runs({length, 2700 - length}));
    const Raster raster =
        DecodeFax(Encoded(rows, COMPRESSION_CCITTFAX3), Columns(2700, 0), rows.size(), wide);
    EXPECT_EQ(raster.problem, "");
    EXPECT_TRUE(raster.rows.View() == Packed(rows));
}

TEST(FaxDecoder, MakesBlackOneIfAsked)
{
    const Rows rows = Varied(101, 20);
    FaxParameters parameters = Columns(101, -1);
    parameters.blackIs1 = true;
    ExpectRows(DecodeFax(Encoded(rows, COMPRESSION_CCITTFAX4), parameters, rows.size(), wide), rows, true);
}

TEST(FaxDecoder, LetsTheEndOfBlockOverruleTheRows)
{
    const Rows rows = Varied(64, 12);
    FaxParameters parameters = Columns(64, -1);
    parameters.rows = 5;
    const std::string data = Encoded(rows, COMPRESSION_CCITTFAX4);
    EXPECT_EQ(DecodeFax(data, parameters, 0, wide).height, 12u);
    parameters.endOfBlock = false;
    EXPECT_EQ(DecodeFax(data, parameters, 0, wide).height, 5u);
}

TEST(FaxDecoder, StopsAtTheHeight)
{
    const Rows rows = Varied(64, 12);
    const Raster raster = DecodeFax(Encoded(rows, COMPRESSION_CCITTFAX4), Columns(64, -1), 5, wide);
    ExpectRows(raster, Rows(rows.begin(), rows.begin() + 5));
    EXPECT_EQ(raster.problem, "");
}

TEST(FaxDecoder, LeavesMissingRowsWhite)
{
    Rows rows = Varied(61, 12);
    const Raster raster = DecodeFax(Encoded(rows, COMPRESSION_CCITTFAX4), Columns(61, -1), 14, wide);
    rows.push_back(std::string(61, '.'));
    rows.push_back(std::string(61, '.'));
    ExpectRows(raster, rows);
    EXPECT_EQ(raster.problem, "the fax data ends after 12 rows of 14");
}

TEST(FaxDecoder, KeepsTheRowsBeforeTheDataIsCutOff)
{
    const Rows rows = Varied(300, 60);
    const std::string data = Encoded(rows, COMPRESSION_CCITTFAX4);
    const Raster raster = DecodeFax(data.substr(0, data.size() / 2), Columns(300, -1), 60, wide);
    const std::string expected = Packed(rows);
    const std::string_view decoded = raster.rows.View();
    ASSERT_EQ(decoded.size(), expected.size());
    const std::size_t same = static_cast<std::size_t>(
        std::mismatch(decoded.begin(), decoded.end(), expected.begin()).first - decoded.begin());
    EXPECT_GT(same, decoded.size() / 4);
    EXPECT_LT(same, decoded.size());
    EXPECT_THAT(raster.problem, HasSubstr("ends within row"));
}

TEST(FaxDecoder, EndsABlackRunWhereDamageBegins)
{
    // White 2, then black without a length.
    const Raster raster = DecodeFax(Bits("0111 00000000"), Columns(8, 0), 1, wide);
    ExpectRows(raster, {"........"});
    EXPECT_THAT(raster.problem, HasSubstr("row 1"));
}

TEST(FaxDecoder, GoesOnBehindADamagedRowAtTheNextEndOfLine)
{
    const std::string data = Bits(endOfLine + "0111 10 1000" + endOfLine + "0111 00000000 1" + endOfLine +
                                  "10011 " + endOfLine + endOfLine);
    const Raster raster = DecodeFax(data, Columns(8, 0), 0, wide);
    ExpectRows(raster, {"..###...", "........", "........"});
    EXPECT_THAT(raster.problem, HasSubstr("damaged in 1 rows, the first is row 2"));
}

TEST(FaxDecoder, GoesOnBehindDamageWithARowThatStandsAlone)
{
    // The third row is coded below the damaged one.
    const std::string data = Bits(endOfLine + "1 0111 10 1000" + endOfLine + "1 0111 00000000 1" + endOfLine +
                                  "0 1 1 1" + endOfLine + "1 1011 011" + endOfLine + "1" + endOfLine + "1");
    const Raster raster = DecodeFax(data, Columns(8, 4), 0, wide);
    ExpectRows(raster, {"..###...", "........", "....####"});
}

TEST(FaxDecoder, TellsARowThatIsTooLong)
{
    const Raster raster = DecodeFax(Bits("0111 0010 0111"), Columns(7, 0), 1, wide);
    ExpectRows(raster, {"..#####"});
    EXPECT_THAT(raster.problem, HasSubstr("row 1"));
}

TEST(FaxDecoder, TellsAChangeBeforeTheOneBefore)
{
    // White 10, black 2. Below: white 4, black 4, then three to the left of the change at 10.
    const Raster raster = DecodeFax(Bits("001 00111 11 001 1011 011 0000010"), Columns(12, -1), 2, wide);
    ExpectRows(raster, {"..........##", "....####...."});
    EXPECT_THAT(raster.problem, HasSubstr("row 2"));
}

TEST(FaxDecoder, TellsThatThereAreNoColumns)
{
    EXPECT_THAT(DecodeFax("abc", Columns(0, -1), 1, wide).problem, HasSubstr("0 columns"));
    EXPECT_THAT(DecodeFax("abc", FaxParameters{-1, false, false, -5}, 1, wide).problem,
                HasSubstr("-5 columns"));
}

TEST(FaxDecoder, TakesAsManySamplesAsTheLimitAndNoMore)
{
    const Rows rows = Varied(40, 10);
    const std::string data = Encoded(rows, COMPRESSION_CCITTFAX4);
    ExpectRows(DecodeFax(data, Columns(40, -1), 10, {400, 50}), rows);
    const Raster samples = DecodeFax(data, Columns(40, -1), 10, {399, 50});
    EXPECT_THAT(samples.problem, HasSubstr("limit pictureSamples: 399 reached"));
    EXPECT_EQ(samples.rows.GetCapacity(), 0u);
    const Raster bytes = DecodeFax(data, Columns(40, -1), 10, {400, 49});
    EXPECT_THAT(bytes.problem, HasSubstr("limit streamBytes: 49 reached"));
    EXPECT_EQ(bytes.rows.GetCapacity(), 0u);
}

TEST(FaxDecoder, StopsAtTheLimitIfNobodyKnowsTheHeight)
{
    const Rows rows = Varied(40, 10);
    const std::string data = Encoded(rows, COMPRESSION_CCITTFAX4);
    EXPECT_EQ(DecodeFax(data, Columns(40, -1), 0, {400, 50}).problem, "");
    const Raster raster = DecodeFax(data, Columns(40, -1), 0, {399, 50});
    ExpectRows(raster, Rows(rows.begin(), rows.begin() + 9));
    EXPECT_THAT(raster.problem, HasSubstr("limit pictureSamples: 399 reached"));
}

TEST(FaxDecoder, TakesNoMemoryForSizesThatNobodyHas)
{
    FaxParameters parameters = Columns(0, -1);
    parameters.columns = std::numeric_limits<long long>::max();
    const Raster raster = DecodeFax("abc", parameters, std::numeric_limits<std::size_t>::max(), wide);
    EXPECT_EQ(raster.rows.GetCapacity(), 0u);
    EXPECT_NE(raster.problem, "");
}

TEST(FaxDecoder, DecodesOnSeveralThreads)
{
    const Rows rows = Varied(640, 60);
    const std::string data = Encoded(rows, COMPRESSION_CCITTFAX4);
    const std::string expected = Packed(rows);
    std::vector<int> same(4);
    std::vector<std::thread> threads;
    for (int& result : same)
        threads.emplace_back(
            [&] { result = DecodeFax(data, Columns(640, -1), 60, wide).rows.View() == expected; });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(same, testing::Each(1));
}

} // namespace
