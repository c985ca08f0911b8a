#include <cmath>
#include <limits>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>

#include "document_library/pdf/writer/written_states.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvBlend::BlendMode;
using OrvBlend::Transparency;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using TransparencyPointer = std::shared_ptr<const Transparency>;

constexpr const char* line = "0 0 m\n1 0 l\n";

std::unique_ptr<OrvDoc::Path> Blended(TransparencyPointer transparency)
{
    auto path = FilledLine(Native(OrvColor::ColorSpace::DeviceGray(), {0.0F}));
    path->SetTransparency(std::move(transparency));
    return path;
}

TransparencyPointer Alpha(float fill, float stroke = 1.0F)
{
    return Transparency::Factory().SetFillAlpha(fill).SetStrokeAlpha(stroke).Get();
}

TransparencyPointer Mode(BlendMode mode)
{
    return Transparency::Factory().SetBlendMode(mode).Get();
}

/// What the object of the transparency has in a file.
TransparencyPointer ReadBack(const TransparencyPointer& transparency)
{
    return PathFromFile(Blended(transparency))->GetTransparency();
}

TEST(ContentWriterBlending, SaysWhatDiffersFromTheStateInForce)
{
    const WrittenContent written = WriteObjects(Blended(nullptr), Blended(Alpha(0.5F)), Blended(Alpha(0.5F)),
                                                Blended(nullptr), Blended(Alpha(0.5F)));
    EXPECT_EQ(written.bytes, std::string(line) + "f\n/gs0 gs\n" + line + "f\n" + line + "f\n/gs1 gs\n" +
                                 line + "f\n/gs0 gs\n" + line + "f\n");
    EXPECT_THAT(written.graphicsStates, SizeIs(2));
}

TEST(ContentWriterBlending, NamesTheParametersThatAnyStateOfTheContentChanges)
{
    EXPECT_EQ(StatesOf(WriteObjects(Blended(Alpha(0.1F)))), "<< /gs0 << /Type /ExtGState /ca 0.1 >> >>");
    EXPECT_EQ(StatesOf(WriteObjects(Blended(Alpha(1.0F, 0.25F)), Blended(Mode(BlendMode::Multiply)))),
              "<< /gs0 << /BM /Normal /CA 0.25 /Type /ExtGState >>"
              " /gs1 << /BM /Multiply /CA 1 /Type /ExtGState >> >>");
    EXPECT_EQ(StatesOf(WriteObjects(Blended(Transparency::Factory().SetAlphaIsShape(true).Get()))),
              "<< /gs0 << /AIS true /Type /ExtGState >> >>");
}

TEST(ContentWriterBlending, AStateOfOverprintAloneSaysNoBlending)
{
    EXPECT_EQ(StatesOf(WriteObjects(FilledLine(Flat(Tints({{"Spot", 1.0F}}, true))))),
              "<< /gs0 << /OP false /Type /ExtGState /op true >> >>");
}

TEST(ContentWriterBlending, ForgetsWhatWasSaidInsideOfAClip)
{
    EXPECT_EQ(BytesOf(With(ImplicitGroup(), ClipLine(), Blended(Alpha(0.5F))), Blended(Alpha(0.5F))),
              std::string("q\n") + line + "W n\n/gs0 gs\n" + line + "f\nQ\n/gs0 gs\n" + line + "f\n");
}

TEST(ContentWriterBlending, MarksFlagsThatOnlyGroupsCanSay)
{
    const auto marked = [](Transparency::Factory factory) { return BytesOf(Blended(factory.Get())); };
    const std::string fill = std::string(line) + "f\nEMC\n";
    EXPECT_EQ(marked(Transparency::Factory().SetIsolated(true)),
              "/OrvObject <</Isolated true>> BDC\n" + fill);
    EXPECT_EQ(marked(Transparency::Factory().SetKnockout(true).SetFillAlpha(0.5F)),
              "/gs0 gs\n/OrvObject <</Knockout true>> BDC\n" + fill);
    EXPECT_EQ(marked(Transparency::Factory()), "/OrvObject <</Blended true>> BDC\n" + fill);
}

TEST(ContentWriterBlending, FlagsStandBesideTheName)
{
    EXPECT_EQ(BytesOf(Named(Blended(Transparency::Factory().SetIsolated(true).Get()), "x")),
              std::string("/OrvObject <</Isolated true /Name (x)>> BDC\n") + line + "f\nEMC\n");
}

TEST(ContentWriterBlending, EachTransparencyReadsBackBitByBit)
{
    for (const float alpha : {0.0F, 0.1F, 1.0F / 3.0F, std::nextafter(1.0F, 0.0F),
                              std::numeric_limits<float>::denorm_min(), 0.7F}) {
        for (const TransparencyPointer& given :
             {Alpha(alpha), Alpha(1.0F, alpha), Alpha(alpha, alpha),
              Transparency::Factory().SetFillAlpha(alpha).SetKnockout(true).SetIsolated(true).Get()}) {
            const auto back = ReadBack(given);
            ASSERT_TRUE(back);
            EXPECT_EQ(*back, *given);
        }
    }
    for (auto mode = BlendMode::Normal; mode <= BlendMode::Luminosity;
         mode = static_cast<BlendMode>(static_cast<unsigned>(mode) + 1)) {
        const auto given = Transparency::Factory().SetBlendMode(mode).SetAlphaIsShape(true).Get();
        EXPECT_EQ(*ReadBack(given), *given);
    }
    EXPECT_EQ(ReadBack(nullptr), nullptr);
    EXPECT_EQ(ReadBack(Transparency::Factory::GetDefault()), Transparency::Factory::GetDefault());
}

TEST(ContentWriterBlending, ClampsAlphasThatNoFileCanHoldAndTells)
{
    const WrittenContent written =
        WriteObjects(Blended(Alpha(-0.5F, 2.0F)),
                     Blended(Alpha(std::numeric_limits<float>::quiet_NaN(), std::nextafter(0.0F, -1.0F))));
    EXPECT_EQ(StatesOf(written), "<< /gs0 << /CA 1 /Type /ExtGState /ca 0 >>"
                                 " /gs1 << /CA 0 /Type /ExtGState /ca 0 >> >>");
    EXPECT_THAT(written.problems.GetTexts("page 1"), SizeIs(1));
}

TEST(ContentWriterBlending, TellsBlendModesThatAreNone)
{
    const WrittenContent written = WriteObjects(Blended(Mode(static_cast<BlendMode>(16))));
    EXPECT_THAT(written.graphicsStates, IsEmpty());
    EXPECT_FALSE(written.problems.IsEmpty());
}

TEST(ContentWriterBlending, TellsWhatAClippingPathCannotSay)
{
    auto clip = ClipLine();
    clip->SetTransparency(Alpha(0.5F));
    const WrittenContent written = WriteObjects(With(ImplicitGroup(), std::move(clip), Blended(nullptr)));
    EXPECT_EQ(written.bytes, std::string("q\n") + line + "W n\n" + line + "f\nQ\n");
    EXPECT_FALSE(written.problems.IsEmpty());
}

} // namespace
} // namespace OrvPdf::Testing
