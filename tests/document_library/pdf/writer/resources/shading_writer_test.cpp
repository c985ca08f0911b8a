#include "pdf/writer/resources/shading_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qpdf/QPDF.hh>

#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/function_definition.h>
#include <orv_paint/whole_shading_paint.h>

#include "pdf/writer/content/separation_spaces.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{
namespace
{

using OrvColor::ColorSpace;
using OrvPaint::AxialShadingPaint;
using OrvSys::PdfObject;

PdfObject UnitPairs(std::size_t count)
{
    PdfObject::Items items;
    for (std::size_t index = 0; index < count; ++index) {
        items.push_back(PdfObject::Integer(0));
        items.push_back(PdfObject::Integer(1));
    }
    return PdfObject::Array(items);
}

PdfObject Exponential(double exponent)
{
    return PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(2)},
                                  {"Domain", UnitPairs(1)},
                                  {"N", PdfObject::Real(exponent)}});
}

/// A file that patterns are written to.
class ShadingWriterTest : public ::testing::Test
{
protected:
    ShadingWriterTest() { file.emptyPDF(); }

    QPDFObjectHandle Write(const std::shared_ptr<const OrvPaint::ShadingPaint>& paint)
    {
        const char* problem = "";
        const WrittenPattern pattern{paint, DefineShading(*paint, separations, problem)};
        EXPECT_TRUE(pattern.shading) << problem;
        return writer.GetPattern(pattern);
    }

    static std::shared_ptr<const AxialShadingPaint> Axial(ColorSpace::Pointer space,
                                                          const PdfObject& function, double shift = 0.0)
    {
        AxialShadingPaint::Factory factory(OrvPaint::MakeSeparationMapping(*space, false));
        factory.SetFunction(OrvPaint::MakeFunctionOfShading(function));
        return factory.SetNativeSpace(space, false).SetTransformation({1, 0, 0, 1, shift, 0.0}).Get();
    }

    QPDF file;
    ObjectMaker maker{file, false};
    SeparationSpaces separations{{}};
    ShadingWriter writer{maker};
};

TEST_F(ShadingWriterTest, MakesAPatternOfAShading)
{
    QPDFObjectHandle pattern = Write(Axial(ColorSpace::DeviceGray(), Exponential(1), 2500.0));
    EXPECT_EQ(pattern.getKey("/PatternType").getIntValue(), 2);
    EXPECT_EQ(pattern.getKey("/Matrix").unparse(), "[ 1 0 0 1 2.5 0 ]");
    EXPECT_EQ(pattern.getKey("/Shading").getKey("/ColorSpace").getName(), "/DeviceGray");
}

TEST_F(ShadingWriterTest, LeavesTheIdentityOut)
{
    EXPECT_FALSE(Write(Axial(ColorSpace::DeviceGray(), Exponential(1))).hasKey("/Matrix"));
}

TEST_F(ShadingWriterTest, MakesOneObjectOfAPaint)
{
    const auto paint = Axial(ColorSpace::DeviceGray(), Exponential(1));
    const QPDFObjectHandle first = Write(paint);
    EXPECT_TRUE(first.isIndirect());
    EXPECT_EQ(first.getObjGen(), Write(paint).getObjGen());
}

TEST_F(ShadingWriterTest, SharesTheShadingOfPaintsThatDifferInTheirMatrixAlone)
{
    QPDFObjectHandle first = Write(Axial(ColorSpace::DeviceGray(), Exponential(1), 1.0));
    QPDFObjectHandle second = Write(Axial(ColorSpace::DeviceGray(), Exponential(1), 2.0));
    EXPECT_NE(first.getObjGen(), second.getObjGen());
    EXPECT_EQ(first.getKey("/Shading").getObjGen(), second.getKey("/Shading").getObjGen());
}

TEST_F(ShadingWriterTest, SharesEqualFunctionsAndSpacesOfOtherShadings)
{
    const auto gray = ColorSpace::CalGray({0.9642, 1.0, 0.8249});
    QPDFObjectHandle first = Write(Axial(gray, Exponential(1))).getKey("/Shading");
    QPDFObjectHandle second = Write(Axial(gray, Exponential(2))).getKey("/Shading");
    QPDFObjectHandle third = Write(Axial(ColorSpace::DeviceGray(), Exponential(2))).getKey("/Shading");
    EXPECT_TRUE(first.getKey("/ColorSpace").isIndirect());
    EXPECT_EQ(first.getKey("/ColorSpace").getObjGen(), second.getKey("/ColorSpace").getObjGen());
    EXPECT_NE(first.getKey("/Function").getObjGen(), second.getKey("/Function").getObjGen());
    EXPECT_TRUE(second.getKey("/Function").isIndirect());
    EXPECT_EQ(second.getKey("/Function").getObjGen(), third.getKey("/Function").getObjGen());
}

TEST_F(ShadingWriterTest, SharesEachFunctionOfAnArray)
{
    const auto array = [](double first, double second, double third) {
        return PdfObject::Array({Exponential(first), Exponential(second), Exponential(third)});
    };
    QPDFObjectHandle functions =
        Write(Axial(ColorSpace::DeviceRGB(), array(1, 2, 1))).getKey("/Shading").getKey("/Function");
    ASSERT_EQ(functions.getArrayNItems(), 3);
    EXPECT_TRUE(functions.getArrayItem(0).isIndirect());
    EXPECT_EQ(functions.getArrayItem(0).getObjGen(), functions.getArrayItem(2).getObjGen());
    EXPECT_NE(functions.getArrayItem(0).getObjGen(), functions.getArrayItem(1).getObjGen());
}

TEST_F(ShadingWriterTest, MakesAMeshAStream)
{
    const auto space = ColorSpace::DeviceGray();
    const PdfObject mesh =
        PdfObject::Stream(PdfObject::Dictionary({{"ShadingType", PdfObject::Integer(4)},
                                                 {"BitsPerCoordinate", PdfObject::Integer(8)},
                                                 {"BitsPerComponent", PdfObject::Integer(8)},
                                                 {"BitsPerFlag", PdfObject::Integer(8)},
                                                 {"Decode", UnitPairs(3)}}),
                          "mesh");
    OrvPaint::WholeShadingPaint::Factory factory(OrvPaint::MakeSeparationMapping(*space, false), mesh);
    QPDFObjectHandle shading = Write(factory.SetNativeSpace(space, false).Get()).getKey("/Shading");
    ASSERT_TRUE(shading.isStream());
    EXPECT_EQ(shading.getDict().getKey("/ColorSpace").getName(), "/DeviceGray");
    EXPECT_EQ(shading.getDict().getKey("/ShadingType").getIntValue(), 4);
    const auto bytes = shading.getStreamData();
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()), "mesh");
}

} // namespace
} // namespace OrvPdf
