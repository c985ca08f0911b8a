// Soft masks of documents that a program made, through a file.

#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_color/color_space.h>
#include <orv_doc/content.h>

#include "document_library/pdf/reader/nested_files.h"
#include "document_library/pdf/writer/written_states.h"
#include "support/paint_makers.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvBlend::SoftMask;
using OrvBlend::Transparency;
using OrvColor::ColorSpace;
using Matrix = HarrowSupport::Testing::Matrix;
using ReaderTests::PathOf;

const Matrix moved(1.0, 0.0, 0.0, 1.0, 3000.0, 4000.0);
const Matrix turned(0.3, 0.7, -0.7, 0.3, 1000.0 / 3.0, -1e6 / 7.0);
const Matrix scaled(3.0, 0.0, 0.0, 3.0, 0.1, 0.0);

std::unique_ptr<OrvDoc::Path> Seen(const MaskPointer& mask, const Matrix& matrix = Matrix(),
                                   float alpha = 1.0f)
{
    auto path = Transformed(FilledLine(Ink(0.5f)), matrix);
    path->SetTransparency(Transparency::Factory().SetSoftMask(mask).SetFillAlpha(alpha).Get());
    return path;
}

/// What the masks of the first objects of a page come back as.
class MasksFromFile
{
public:
    explicit MasksFromFile(OrvDoc::Document& before) : document(Reopened(before)) {}

    const SoftMask& operator[](std::size_t index) const
    {
        const auto mask = ReaderTests::MaskOf(PathOf(ContentOf(*document), index));
        if (!mask)
            throw std::logic_error("There is no mask.");
        return *mask;
    }
    const SoftMask* At(std::size_t index) const { return &(*this)[index]; }

private:
    std::unique_ptr<OrvDoc::Document> document;
};

std::shared_ptr<OrvDoc::Document>
DocumentSeenThrough(const std::function<MaskPointer(OrvDoc::Document&)>& make)
{
    std::shared_ptr<OrvDoc::Document> document = NewDocument(1);
    Fill(ContentOf(*document), Seen(make(*document)));
    return document;
}

TEST(ContentWriterMasks, KeepsEveryField)
{
    const auto before = DocumentSeenThrough([](OrvDoc::Document& document) {
        return MaskOf(document, Line())
            .SetTransformation(turned)
            .SetBoundingBox({-0.5, 1.25, 100.5, 2.75})
            .SetAlpha(true)
            .SetKnockout(true)
            .SetTransferFunction(true)
            .Get();
    });
    const MasksFromFile back(*before);
    EXPECT_EQ(back[0].GetTransformation(), turned);
    EXPECT_EQ(back[0].GetBoundingBox(), HarrowSupport::Testing::Box(-0.5, 1.25, 100.5, 2.75));
    EXPECT_TRUE(back[0].IsAlpha());
    EXPECT_TRUE(back[0].IsKnockout());
    EXPECT_TRUE(boost::get<bool>(back[0].GetTransferFunction()));
    EXPECT_TRUE(back[0].GetContent().GetChildren().first);
    EXPECT_FALSE(back[0].GetContent().GetBlendColorSpace().GetColorSpace());
}

TEST(ContentWriterMasks, KeepsThatLuminosityHasNoColorSpace)
{
    const auto before =
        DocumentSeenThrough([](OrvDoc::Document& document) { return MaskOf(document, Line()).Get(); });
    const MasksFromFile back(*before);
    EXPECT_FALSE(back[0].IsAlpha());
    EXPECT_FALSE(back[0].GetContent().GetBlendColorSpace().GetColorSpace());
    EXPECT_FALSE(boost::get<bool>(back[0].GetTransferFunction()));
}

TEST(ContentWriterMasks, KeepsTheBlendSpace)
{
    const auto before = DocumentSeenThrough([](OrvDoc::Document& document) {
        const auto drawing = Drawing(document, OrvDoc::Content::Type::SoftMaskContent, Line());
        drawing->SetBlendColorSpace(OrvDoc::BlendColorSpace(ColorSpace::DeviceCMYK()));
        return SoftMask::Factory(drawing).Get();
    });
    const MasksFromFile back(*before);
    EXPECT_EQ(*back[0].GetContent().GetBlendColorSpace().GetColorSpace(), *ColorSpace::DeviceCMYK());
}

TEST(ContentWriterMasks, KeepsBackdropsOfBothKindsWithAndWithoutBlendSpace)
{
    const auto list = Tints({{"Cyan", 0.1f}, {"Magenta", 0.2f}, {"Yellow", 0.3f}, {"Black", 0.4f}});
    const auto native = std::dynamic_pointer_cast<const OrvPaint::FlatPaint>(
        Native(ColorSpace::CalGray({0.9505, 1.0, 1.089}, 2.2), {0.3f}));
    for (const bool isAlpha : {false, true}) {
        for (const bool hasSpace : {false, true}) {
            for (const bool isList : {false, true}) {
                SCOPED_TRACE(std::to_string(isAlpha) + std::to_string(hasSpace) + std::to_string(isList));
                const auto before = DocumentSeenThrough([&](OrvDoc::Document& document) {
                    const auto drawing = Drawing(document, OrvDoc::Content::Type::SoftMaskContent, Line());
                    if (hasSpace)
                        drawing->SetBlendColorSpace(OrvDoc::BlendColorSpace(
                            isList ? ColorSpace::DeviceCMYK() : native->GetNativeSpace()));
                    SoftMask::Factory factory(drawing);
                    factory.SetAlpha(isAlpha);
                    isList ? factory.SetBackdropColor(list) : factory.SetBackdropColor(native);
                    return factory.Get();
                });
                const MasksFromFile back(*before);
                EXPECT_EQ(back[0].GetBackdropColor(), isList ? list : native->GetColor());
                EXPECT_EQ(back[0].GetContent().GetBlendColorSpace().GetColorSpace() != nullptr, hasSpace);
            }
        }
    }
}

TEST(ContentWriterMasks, PlacesMasksUnderTransformedGroupsExactly)
{
    const auto document = NewDocument(1);
    const auto mask = MaskOf(*document, Line()).SetTransformation(turned).Get();
    auto inner = Transformed(With(ImplicitGroup(), Seen(mask, scaled)), scaled);
    Fill(ContentOf(*document), Transformed(With(ImplicitGroup(), std::move(inner), Seen(mask)), turned));
    const MasksFromFile back(*document);
    EXPECT_EQ(back[0].GetTransformation(), turned);
    EXPECT_EQ(back[1].GetTransformation(), turned);
}

TEST(ContentWriterMasks, PlacesMasksUnderAGroupWithoutInverse)
{
    const auto document = NewDocument(1);
    const auto mask = MaskOf(*document, Line()).SetTransformation(turned).Get();
    Fill(ContentOf(*document),
         Transformed(With(ImplicitGroup(), Seen(mask)), Matrix(1.0, 1.0, 1.0, 1.0, 5.0, 6.0)));
    const MasksFromFile back(*document);
    EXPECT_EQ(back[0].GetTransformation(), turned);
}

TEST(ContentWriterMasks, PlacesMasksBehindATransformedClip)
{
    const auto document = NewDocument(1);
    const auto mask = MaskOf(*document, Line()).SetTransformation(moved).Get();
    Fill(ContentOf(*document), With(ImplicitGroup(), Transformed(ClipLine(), scaled), Seen(mask, turned)));
    const MasksFromFile back(*document);
    EXPECT_EQ(back[0].GetTransformation(), moved);
}

// All parameters are set at once, the mask in force among them, where another matrix may be in force by then.
TEST(ContentWriterMasks, LeavesAMaskInItsPlaceWhenAnotherParameterChanges)
{
    const auto document = NewDocument(1);
    const auto mask = MaskOf(*document, Line()).SetTransformation(moved).Get();
    Fill(ContentOf(*document), Seen(mask, scaled), Seen(mask, scaled, 0.5f),
         Transformed(With(ImplicitGroup(), Seen(mask, turned, 0.25f)), scaled));
    const MasksFromFile back(*document);
    for (const std::size_t index : {0u, 1u, 2u})
        EXPECT_EQ(back[index].GetTransformation(), moved) << index;
}

TEST(ContentWriterMasks, KeepsOneMaskOne)
{
    const auto document = NewDocument(1);
    const auto mask = MaskOf(*document, Line()).SetTransformation(moved).Get();
    const auto other = SoftMask::Factory(*mask).SetAlpha(true).Get();
    Fill(ContentOf(*document), Seen(mask, scaled), Seen(other), Seen(mask, turned, 0.5f));
    const MasksFromFile back(*document);
    EXPECT_EQ(back.At(0), back.At(2));
    EXPECT_NE(back.At(0), back.At(1));
}

TEST(ContentWriterMasks, GoesBackToNoMask)
{
    const auto document = NewDocument(1);
    const auto mask = MaskOf(*document, Line()).Get();
    Fill(ContentOf(*document), Seen(mask), FilledLine(Ink(0.5f)));
    const auto back = Reopened(*document);
    EXPECT_FALSE(ReaderTests::MaskOf(PathOf(ContentOf(*back), 1)));
}

} // namespace
} // namespace OrvPdf::Testing
