#include "pdf/reader/lexer/operator_id.h"

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace
{

using OrvPdf::FindOperator;
using OrvPdf::OperatorId;
using OrvPdf::OperatorText;

const std::vector<std::string>& AllTexts()
{
    static const std::vector<std::string> texts = {
        "b",  "B",  "b*", "B*", "BDC", "BI",  "BMC", "BT", "BX", "c",  "cm", "CS", "cs", "d",  "d0",
        "d1", "Do", "DP", "EI", "EMC", "ET",  "EX",  "f",  "F",  "f*", "G",  "g",  "gs", "h",  "i",
        "ID", "j",  "J",  "K",  "k",   "l",   "m",   "M",  "MP", "n",  "q",  "Q",  "re", "RG", "rg",
        "ri", "s",  "S",  "sc", "SC",  "scn", "SCN", "sh", "T*", "Tc", "Td", "TD", "Tf", "Tj", "TJ",
        "TL", "Tm", "Tr", "Ts", "Tw",  "Tz",  "v",   "w",  "W",  "W*", "y",  "'",  "\""};
    return texts;
}

TEST(OperatorId, EveryOperatorIsFoundAndHasItsText)
{
    std::set<OperatorId> found;
    for (const std::string& text : AllTexts()) {
        const OperatorId id = FindOperator(text);
        EXPECT_NE(id, OperatorId::Unknown) << text;
        EXPECT_EQ(OperatorText(id), text);
        found.insert(id);
    }
    EXPECT_EQ(found.size(), 73U);
}

TEST(OperatorId, NamesBelongToTheirTexts)
{
    EXPECT_EQ(FindOperator("c"), OperatorId::CurveTo);
    EXPECT_EQ(FindOperator("v"), OperatorId::CurveToFromCurrent);
    EXPECT_EQ(FindOperator("y"), OperatorId::CurveToReplicateFinal);
    EXPECT_EQ(FindOperator("b*"), OperatorId::CloseFillStrokeEvenOdd);
    EXPECT_EQ(FindOperator("B"), OperatorId::FillStroke);
    EXPECT_EQ(FindOperator("s"), OperatorId::CloseStroke);
    EXPECT_EQ(FindOperator("S"), OperatorId::Stroke);
    EXPECT_EQ(FindOperator("K"), OperatorId::SetStrokeCmyk);
    EXPECT_EQ(FindOperator("k"), OperatorId::SetFillCmyk);
    EXPECT_EQ(FindOperator("SCN"), OperatorId::SetStrokeColorSpecial);
    EXPECT_EQ(FindOperator("scn"), OperatorId::SetFillColorSpecial);
    EXPECT_EQ(FindOperator("W*"), OperatorId::ClipEvenOdd);
    EXPECT_EQ(FindOperator("TD"), OperatorId::MoveTextSetLeading);
    EXPECT_EQ(FindOperator("J"), OperatorId::SetLineCap);
    EXPECT_EQ(FindOperator("j"), OperatorId::SetLineJoin);
    EXPECT_EQ(FindOperator("cm"), OperatorId::ConcatMatrix);
    EXPECT_EQ(FindOperator("\""), OperatorId::NextLineShowTextWithSpacing);
}

TEST(OperatorId, EveryOtherTextOfUpToTwoBytesIsUnknown)
{
    const std::set<std::string> known(AllTexts().begin(), AllTexts().end());
    for (int first = 0; first < 256; ++first) {
        const std::string one(1, static_cast<char>(first));
        EXPECT_EQ(FindOperator(one) != OperatorId::Unknown, known.count(one) == 1) << first;
        for (int second = 0; second < 256; ++second) {
            const std::string two = one + static_cast<char>(second);
            EXPECT_EQ(FindOperator(two) != OperatorId::Unknown, known.count(two) == 1)
                << first << " " << second;
        }
    }
}

TEST(OperatorId, LongerTextsAreUnknown)
{
    for (const char* text : {"", "BTT", "bdc", "scnn", "EMCX", "true", "?"}) {
        EXPECT_EQ(FindOperator(text), OperatorId::Unknown) << text;
    }
    EXPECT_EQ(FindOperator(std::string_view("\0\0q", 3)), OperatorId::Unknown);
    EXPECT_EQ(FindOperator(std::string_view("q\0", 2)), OperatorId::Unknown);
    EXPECT_EQ(FindOperator(std::string_view("\0\0\0", 3)), OperatorId::Unknown);
}

} // namespace
