#include "pdf/reader/pictures/pdf_picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include <orv_img/picture_likeness.h>

#include "document_library/pdf/reader/picture_files.h"

namespace
{

using OrvImg::Likeness;
using OrvImg::PictureBuffer;
using OrvImg::PictureStream;
using OrvSys::PdfObject;
using ReaderTests::ImageObject;
using ReaderTests::PictureBench;
using ReaderTests::SamplesOf;
using ReaderTests::SourceOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string gray = "/Width 2 /Height 1 /BitsPerComponent 8 /ColorSpace /DeviceGray ";

std::string Hexadecimal(const std::string& digits, const std::string& entries = "")
{
    return ImageObject(digits, gray + "/Filter /ASCIIHexDecode " + entries);
}

Likeness LikenessOf(const std::string& left, const std::string& right)
{
    PictureBench bench({left, right});
    const auto first = bench.Read(0);
    const auto second = bench.Read(1);
    const Likeness likeness = OrvImg::CompareStoredSamples(SourceOf(*first), SourceOf(*second));
    EXPECT_EQ(OrvImg::CompareStoredSamples(SourceOf(*second), SourceOf(*first)), likeness);
    return likeness;
}

TEST(PdfPicture, SamplesAreDecodedWhenSomebodyAsks)
{
    PictureBench bench({Hexadecimal("0102>")});
    const std::uint64_t before = bench.file->GetDecodedBytesLeft();
    const auto picture = bench.Read();
    EXPECT_EQ(bench.file->GetDecodedBytesLeft(), before);
    SourceOf(*picture).GetPictureBuffer();
    EXPECT_EQ(bench.file->GetDecodedBytesLeft(), before - 2);
}

TEST(PdfPicture, SamplesAreDecodedOnceThoughNobodyHoldsThem)
{
    PictureBench bench({Hexadecimal("0102>")});
    const auto picture = bench.Read();
    SourceOf(*picture).GetPictureBuffer();
    const std::uint64_t left = bench.file->GetDecodedBytesLeft();
    SourceOf(*picture).GetPictureBuffer();
    EXPECT_EQ(bench.file->GetDecodedBytesLeft(), left);
}

TEST(PdfPicture, ThreadsThatAskAtOnceDecodeOnce)
{
    PictureBench bench({Hexadecimal("0102>")});
    const auto picture = bench.Read();
    const std::uint64_t before = bench.file->GetDecodedBytesLeft();
    std::vector<std::shared_ptr<const PictureBuffer>> buffers(8);
    std::vector<std::thread> threads;
    for (auto& buffer : buffers)
        threads.emplace_back([&buffer, &picture] { buffer = SourceOf(*picture).GetPictureBuffer(); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(buffers, testing::Each(buffers[0]));
    EXPECT_EQ(bench.file->GetDecodedBytesLeft(), before - 2);
}

TEST(PdfPicture, DamageIsToldOnceAndLate)
{
    PictureBench bench({Hexadecimal("01>")});
    const auto picture = bench.Read();
    EXPECT_EQ(bench.problem, "");
    EXPECT_THAT(bench.TakeLateTexts(), IsEmpty());
    SourceOf(*picture).GetPictureBuffer();
    EXPECT_THAT(bench.TakeLateTexts(),
                ElementsAre("the picture in object 3 0: its data ends after 1 bytes of samples"));
    SourceOf(*picture).GetPictureBuffer();
    EXPECT_THAT(bench.TakeLateTexts(), IsEmpty());
}

TEST(PdfPicture, SamplesThatTheDataDoesNotHaveAreZero)
{
    PictureBench bench({Hexadecimal("07>")});
    EXPECT_THAT(SamplesOf(*bench.Read()->GetData()), ElementsAre(7, 0));
}

TEST(PdfPicture, TheStreamOfPlainSamplesIsTheRows)
{
    PictureBench bench({Hexadecimal("0708>")});
    const auto picture = bench.Read();
    const auto stream = SourceOf(*picture).GetPictureStream();
    EXPECT_EQ(SourceOf(*picture).GetStreamType(), PictureStream::Type::Samples);
    EXPECT_EQ(stream->GetType(), PictureStream::Type::Samples);
    EXPECT_EQ(stream->GetBytes(), "\x07\x08");
}

TEST(PdfPicture, TheStreamUnderAFilterForPicturesHasOtherFiltersUndone)
{
    PictureBench bench({ImageObject("616263>", "/Width 8 /Height 1 /BitsPerComponent 1 "
                                               "/ColorSpace /DeviceGray "
                                               "/Filter [/ASCIIHexDecode /JBIG2Decode]")});
    const auto picture = bench.Read();
    const auto stream = SourceOf(*picture).GetPictureStream();
    EXPECT_EQ(stream->GetType(), PictureStream::Type::Jbig2);
    EXPECT_EQ(stream->GetBytes(), "abc");
}

TEST(PdfPicture, TheSameBytesUnderTheSameFiltersAreAlike)
{
    EXPECT_EQ(LikenessOf(Hexadecimal("0102>"), Hexadecimal("0102>")), Likeness::Alike);
}

TEST(PdfPicture, OneFilterInAnArrayIsThatFilter)
{
    const std::string listed = ImageObject("0102>", gray + "/Filter [/ASCIIHexDecode] /DecodeParms [null]");
    EXPECT_EQ(LikenessOf(Hexadecimal("0102>"), listed), Likeness::Alike);
}

TEST(PdfPicture, OtherBytesHaveToBeLookedAt)
{
    EXPECT_EQ(LikenessOf(Hexadecimal("0102>"), Hexadecimal("01 02>")), Likeness::Unknown);
}

TEST(PdfPicture, TheSameBytesUnderOtherFiltersHaveToBeLookedAt)
{
    EXPECT_EQ(LikenessOf(Hexadecimal("0102>"), ImageObject("0102>", gray)), Likeness::Unknown);
}

TEST(PdfPicture, TheSameBytesWithOtherParametersHaveToBeLookedAt)
{
    EXPECT_EQ(LikenessOf(Hexadecimal("0102>"), Hexadecimal("0102>", "/DecodeParms << /Columns 2 >>")),
              Likeness::Unknown);
}

TEST(PdfPicture, TheSameBytesInAnotherShapeHaveToBeLookedAt)
{
    EXPECT_EQ(LikenessOf(ImageObject("ab", gray),
                         ImageObject("ab", "/Width 1 /Height 2 /BitsPerComponent 8 /ColorSpace /DeviceGray")),
              Likeness::Unknown);
}

const std::string undecodable = gray + "/Filter /JBIG2Decode ";

TEST(PdfPicture, TheSameBytesThatNobodyCanDecodeAreAlike)
{
    EXPECT_EQ(LikenessOf(ImageObject("ab", undecodable), ImageObject("ab", undecodable)), Likeness::Alike);
}

TEST(PdfPicture, OtherBytesThatNobodyCanDecodeAreDifferent)
{
    EXPECT_EQ(LikenessOf(ImageObject("ab", undecodable), ImageObject("ac", undecodable)),
              Likeness::Different);
}

TEST(PdfPicture, AnExtraChannelWithOtherBytesIsNotAlike)
{
    PictureBench bench({ImageObject("ab", gray + "/OrvChannels [<< /Picture 5 0 R >>]"),
                        ImageObject("ab", gray + "/OrvChannels [<< /Picture 6 0 R >>]"),
                        ImageObject("cd", gray), ImageObject("ce", gray)});
    const auto first = bench.Read(0);
    const auto second = bench.Read(1);
    EXPECT_EQ(OrvImg::CompareStoredSamples(SourceOf(*first), SourceOf(*second)), Likeness::Unknown);
}

TEST(PdfPicture, AnXObjectOfTheFileHasItsNumberThere)
{
    PictureBench bench({ImageObject("ab", gray)});
    PictureBench other({ImageObject("ab", gray)});
    const auto picture = bench.Read();
    EXPECT_EQ(SourceOf(*picture).GetObjectNumber(*bench.file), 3);
    EXPECT_EQ(SourceOf(*picture).GetObjectNumber(*other.file), 0);
}

TEST(PdfPicture, ACopyKeepsItsBytesAndFilters)
{
    PictureBench bench({Hexadecimal("0102>", "/Interpolate true /Alternates [<< /Image 4 0 R >>]"),
                        ImageObject("xy", gray)});
    std::string problem;
    const PdfObject copy = SourceOf(*bench.Read()).Convert(problem);
    ASSERT_TRUE(copy.IsStream()) << problem;
    EXPECT_EQ(copy.GetRawBytes(), "0102>");
    EXPECT_TRUE(copy.Find("Filter").IsName("ASCIIHexDecode"));
    EXPECT_TRUE(copy.Find("Interpolate").GetBoolean());
    EXPECT_EQ(copy.Find("Alternates").GetItems().at(0).Find("Image").GetRawBytes(), "xy");
}

TEST(PdfPicture, ACopyHasItsMaskInside)
{
    PictureBench bench({ImageObject("ab", gray + "/SMask 4 0 R"), Hexadecimal("0102>")});
    std::string problem;
    const PdfObject copy = SourceOf(*bench.Read()).Convert(problem);
    EXPECT_EQ(copy.Find("SMask").GetRawBytes(), "0102>");
}

TEST(PdfPicture, ACopyThatWouldHoldItselfIsNone)
{
    PictureBench bench({ImageObject("ab", gray + "/Metadata << /Of 3 0 R >>")});
    std::string problem;
    const auto picture = bench.Read();
    ASSERT_TRUE(picture) << bench.problem;
    EXPECT_TRUE(SourceOf(*picture).Convert(problem).IsNull());
    EXPECT_THAT(problem, HasSubstr("refers to itself"));
}

TEST(PdfPicture, ACopyOfWhatIsNamedManyTimesOverEnds)
{
    // Each of fifty arrays has the next one twice.
    std::vector<std::string> objects = {ImageObject("ab", gray + "/Odd 4 0 R")};
    for (int number = 5; number < 54; ++number) {
        const std::string next = std::to_string(number) + " 0 R ";
        objects.push_back("[" + next + next + "]");
    }
    objects.emplace_back("[1]");
    PictureBench bench(objects);
    std::string problem;
    EXPECT_TRUE(SourceOf(*bench.Read()).Convert(problem).IsNull());
    EXPECT_NE(problem, "");
}

} // namespace
