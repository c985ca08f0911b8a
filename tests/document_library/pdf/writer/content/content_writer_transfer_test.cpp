#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_paint/exponential_function.h>
#include <orv_paint/whole_function.h>

#include "document_library/pdf/transfer_sets.h"
#include "document_library/pdf/writer/written_states.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvDoc::TransferFunctionSet;
using OrvSys::PdfObject;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using FunctionPointer = std::shared_ptr<const OrvPaint::Function>;

constexpr const char* line = "0 0 m\n1 0 l\n";

FunctionPointer Power(int exponent)
{
    return OrvPaint::ExponentialFunction::Factory({0.0F}, {1.0F}, exponent).Get();
}

FunctionPointer Calculator(std::size_t inputs = 1)
{
    PdfObject::Items domain;
    for (std::size_t i = 0; i < 2 * inputs; ++i)
        domain.push_back(PdfObject::Integer(static_cast<std::int64_t>(i % 2)));
    return OrvPaint::WholeFunction::Make(PdfObject::Stream(
        PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(4)},
                               {"Domain", PdfObject::Array(domain)},
                               {"Range", PdfObject::Array({PdfObject::Integer(0), PdfObject::Integer(1)})}}),
        inputs == 1 ? "{ 1 exch sub }" : "{ add }"));
}

std::unique_ptr<OrvDoc::Document> DocumentWith(const boost::optional<TransferFunctionSet>& functions)
{
    auto document = NewDocument(1);
    PageOf(*document).SetTransferFunctionSet(functions);
    return document;
}

WrittenContent WriteWith(const TransferFunctionSet& functions)
{
    const auto document = DocumentWith(functions);
    Fill(ContentOf(*document), FilledLine(Native(OrvColor::ColorSpace::DeviceGray(), {0.5F})));
    SeparationSpaces separations(document->GetSeparationInfo());
    return WriteContent(ContentOf(*document), separations, ContentStart::Page);
}

boost::optional<TransferFunctionSet> ReadBack(const TransferFunctionSet& functions)
{
    return ContentOf(*Reopened(*DocumentWith(functions))).GetTransferFunctionSet();
}

const FunctionPointer none;

TEST(ContentWriterTransfer, SaysThemBeforeEverything)
{
    EXPECT_EQ(WriteWith(TransferFunctionSet(Power(2), {})).bytes,
              std::string("/tr gs\n0.5 g\n") + line + "f\n");
}

TEST(ContentWriterTransfer, SaysADefaultFunctionByTheStandardKeyAlone)
{
    const std::string states = StatesOf(WriteWith(TransferFunctionSet(Power(2), {})));
    EXPECT_THAT(states, StartsWith("<< /tr << /TR << /C0 "));
    EXPECT_THAT(states, Not(HasSubstr("Orv")));
}

TEST(ContentWriterTransfer, SaysTheProcessInksInTheirOrderByTheStandardKeyAlone)
{
    const TransferFunctionSet functions(
        none, {{"Cyan", Calculator()}, {"Magenta", none}, {"Yellow", none}, {"Black", Calculator()}});
    EXPECT_EQ(StatesOf(WriteWith(functions)),
              "<< /tr << /TR [ 3 0 R /Identity /Identity 3 0 R ] /Type /ExtGState >> >>");
}

TEST(ContentWriterTransfer, SaysOtherNamesByAKeyOfOurOwn)
{
    const TransferFunctionSet functions(none, {{"Gold", Calculator()}, {"Black", none}});
    EXPECT_EQ(StatesOf(WriteWith(functions)),
              "<< /tr << /OrvTransferFunctions << /Functions [ 3 0 R /Identity ] /Names [ (Gold) (Black) ] >>"
              " /TR [ /Identity /Identity /Identity /Identity ] /Type /ExtGState >> >>");
}

TEST(ContentWriterTransfer, TellsOthersWhatTheProcessInksHave)
{
    const TransferFunctionSet functions(Calculator(), {{"Black", none}, {"Gold", none}});
    EXPECT_THAT(StatesOf(WriteWith(functions)), HasSubstr("/TR [ 3 0 R 3 0 R 3 0 R /Identity ]"));
}

TEST(ContentWriterTransfer, EachSetReadsBackEqual)
{
    using Named = std::vector<TransferFunctionSet::NamedFunction>;
    const Named process = {
        {"Cyan", Power(2)}, {"Magenta", none}, {"Yellow", Calculator()}, {"Black", Power(3)}};
    const Named reversed(process.rbegin(), process.rend());
    const Named identities = {{"Cyan", none}, {"Magenta", none}, {"Yellow", none}, {"Black", none}};
    const Named odd = {{"", Power(2)}, {std::string("a\0(b", 4), none}, {"Gold", Power(2)}, {"Gold", none}};
    for (const Named& named : {Named{}, process, reversed, identities, odd}) {
        for (const FunctionPointer& byDefault : {none, Power(2), Calculator()}) {
            const TransferFunctionSet given(byDefault, named);
            EXPECT_TRUE(AreEqual(ReadBack(given), given));
        }
    }
}

TEST(ContentWriterTransfer, AContentWithoutThemComesBackWithoutThem)
{
    EXPECT_TRUE(
        AreEqual(ContentOf(*Reopened(*DocumentWith(boost::none))).GetTransferFunctionSet(), boost::none));
}

TEST(ContentWriterTransfer, TellsFunctionsThatAreNoTransferFunctions)
{
    for (const TransferFunctionSet& functions :
         {TransferFunctionSet(Calculator(2), {}), TransferFunctionSet(none, {{"Black", Calculator(2)}})}) {
        const WrittenContent written = WriteWith(functions);
        EXPECT_EQ(written.bytes, std::string("0.5 g\n") + line + "f\n");
        EXPECT_FALSE(written.problems.IsEmpty());
    }
}

} // namespace
} // namespace OrvPdf::Testing
