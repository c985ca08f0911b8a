#include "laws/content_page.h"

#include "support/pdf_text.h"

#include <vector>

namespace HarrowSupport::Fuzzing
{

namespace
{

using Testing::PdfStream;

constexpr const char* catalogue =
    "/OCProperties << /OCGs [25 0 R 26 0 R] /D << /Order [25 0 R [(Dies) 26 0 R]] /OFF [26 0 R] >> >>";

constexpr const char* resources =
    "/Font << /f0 5 0 R /f1 6 0 R /f2 7 0 R /f3 8 0 R >> "
    "/XObject << /fm0 9 0 R /fm1 10 0 R /fm2 11 0 R /fm3 12 0 R /fm4 13 0 R "
    "/im0 14 0 R /im1 15 0 R /im2 16 0 R /im3 18 0 R >> "
    "/Pattern << /p0 19 0 R /p1 20 0 R /p2 21 0 R /p3 22 0 R >> "
    "/Shading << /sh0 23 0 R /sh1 24 0 R /sh2 28 0 R >> "
    "/ColorSpace << /cs0 [/Separation /Gold /DeviceCMYK 29 0 R] "
    "/cs1 [/DeviceN [/Gold /Black] /DeviceCMYK 30 0 R] "
    "/cs2 [/Lab << /WhitePoint [0.95 1 1.09] /Range [-100 100 -100 100] >>] "
    "/cs3 [/Indexed /DeviceRGB 1 <FF00000000FF>] "
    "/cs4 [/CalRGB << /WhitePoint [0.95 1 1.09] /Gamma [2.2 2.2 2.2] >>] "
    "/cs5 [/Pattern /DeviceRGB] /cs6 [/Separation /All /DeviceGray 31 0 R] "
    "/cs7 [/ICCBased 32 0 R] >> "
    "/ExtGState << /gs0 << /ca 0.5 /CA 0.25 /BM /Multiply /AIS true >> "
    "/gs1 << /SMask << /S /Luminosity /G 13 0 R /BC [0 0 0 1] /TR 31 0 R >> >> /gs2 << /SMask /None >> "
    "/gs3 << /HT << /HalftoneType 1 /Frequency 60 /Angle 45 /SpotFunction /Round >> /RI /Perceptual /FL 2 >> "
    "/gs4 << /TR [31 0 R 31 0 R 31 0 R /Identity] >> /gs5 << /OP true /op false /OPM 1 >> "
    "/gs6 << /LW 3 /LC 1 /LJ 2 /ML 4 /D [[3 1] 0] /SA true /TK false /Font [5 0 R 9] >> "
    "/gs7 << /SMask << /S /Alpha /G 10 0 R >> /BM [/Unknown /Screen] >> >> "
    "/Properties << /oc0 25 0 R /oc1 26 0 R /oc2 27 0 R /mc0 << /MCID 0 >> /mc1 << /Lang (en) /E [1 (x)] >> "
    "/mc2 << /Matrix [1 0 0 1 2 3] /Name (Group) >> >>";

std::vector<std::string> MakeFonts()
{
    return {
        "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>",
        "<< /Type /Font /Subtype /Type3 /FontBBox [0 0 1 1] /FontMatrix [1 0 0 1 0 0] /FirstChar 97 "
        "/LastChar 98 /Widths [1 1] /Encoding << /Differences [97 /a /b] >> /Resources << >> "
        "/CharProcs << /a 33 0 R /b 34 0 R >> >>",
        "<< /Type /Font /Subtype /Type0 /BaseFont /Wide /Encoding /Identity-H /DescendantFonts [<< "
        "/Type /Font /Subtype /CIDFontType2 /BaseFont /Wide /DW 700 /W [1 [500 600]] "
        "/CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >> "
        "/FontDescriptor << /Type /FontDescriptor /FontName /Wide /Flags 4 /FontBBox [0 0 1000 1000] "
        "/ItalicAngle 0 /Ascent 800 /Descent -200 /StemV 80 >> >>] >>",
        "<< /Type /Font /Subtype /TrueType /BaseFont /Sans-Bold /FirstChar 97 /LastChar 99 "
        "/Widths [400 500 600] /Encoding << /BaseEncoding /WinAnsiEncoding /Differences [97 /B /Adieresis] "
        ">> "
        ">>",
    };
}

std::vector<std::string> MakeXObjects()
{
    const std::string form = "/Type /XObject /Subtype /Form /BBox [0 0 50 50] ";
    const std::string image = "/Type /XObject /Subtype /Image /Width 2 /Height 2 /BitsPerComponent 8 ";
    return {
        PdfStream("1 0 0 rg 0 0 9 9 re f", form + "/Resources << >>"),
        PdfStream("q 2 2 5 5 re W n 0 0 m 9 9 l S Q",
                  form + "/Group << /S /Transparency /CS /DeviceRGB /K true >> /Resources << >>"),
        PdfStream("/fm2 Do /fm0 Do 5 5 m 7 7 l S",
                  form + "/Matrix [2 0 0 2 1 1] /Resources << /XObject << /fm0 9 0 R /fm2 11 0 R >> >>"),
        PdfStream("/gs0 gs /p0 scn 0 0 4 4 re f BT /f0 8 Tf (a) Tj ET",
                  form + "/GTS_XID (uuid:1) /GTS_Scope /GTS_Stream"),
        PdfStream("0.5 g 0 0 30 30 re f",
                  form + "/Group << /S /Transparency /CS /DeviceCMYK /I true >> /Resources << >>"),
        PdfStream("abcdefghijkl", image + "/ColorSpace /DeviceRGB"),
        PdfStream("\x40\x80", "/Type /XObject /Subtype /Image /Width 2 /Height 2 /ImageMask true "
                              "/BitsPerComponent 1 /Decode [1 0]"),
        PdfStream("abcd", image + "/ColorSpace /DeviceGray /SMask 17 0 R /Intent /Saturation"),
        PdfStream("wxyz", image + "/ColorSpace /DeviceGray /Matte [0]"),
        PdfStream("\x01\x02", "/Type /XObject /Subtype /Image /Width 2 /Height 2 /BitsPerComponent 1 "
                              "/ColorSpace [/Indexed /DeviceRGB 1 <FF00000000FF>] /Mask [0 0]"),
    };
}

std::vector<std::string> MakePatterns()
{
    const std::string tiling =
        "/Type /Pattern /PatternType 1 /TilingType 1 /BBox [0 0 8 8] /XStep 8 /YStep 9 ";
    return {
        PdfStream("0 0 1 rg 0 0 4 4 re f", tiling + "/PaintType 1 /Resources << >>"),
        PdfStream("0 0 m 8 8 l S", tiling + "/PaintType 2 /Matrix [1 0 0 1 2 2] /Resources << >>"),
        "<< /Type /Pattern /PatternType 2 /Shading 23 0 R /Matrix [2 0 0 2 0 0] >>",
        "<< /Type /Pattern /PatternType 2 /Shading 24 0 R /ExtGState << /ca 0.5 >> >>",
        "<< /ShadingType 2 /ColorSpace /DeviceGray /Coords [0 0 50 50] /Function 31 0 R /Extend [true false] "
        ">>",
        "<< /ShadingType 3 /ColorSpace /DeviceCMYK /Coords [20 20 5 30 30 15] /Function 29 0 R "
        "/Background [0 0 0 0] /BBox [0 0 60 60] >>",
    };
}

std::vector<std::string> MakeLayersMeshAndFunctions()
{
    return {
        "<< /Type /OCG /Name (Print) >>",
        "<< /Type /OCG /Name (Cutting) "
        "/GTS_Metadata << /GTS_ProcStepsGroup /Structural /GTS_ProcStepsType /Cutting >> >>",
        "<< /Type /OCMD /VE [/And 25 0 R [/Not 26 0 R]] /P /AllOn /OCGs [25 0 R 26 0 R] >>",
        PdfStream(std::string("\0\0\0a\0\xFF\0b\0\0\xFF"
                              "c",
                              12),
                  "/ShadingType 4 /ColorSpace /DeviceGray /BitsPerCoordinate 8 /BitsPerComponent 8 "
                  "/BitsPerFlag 8 /Decode [0 50 0 50 0 1]"),
        "<< /FunctionType 2 /Domain [0 1] /C0 [0 0 0 0] /C1 [0 0.2 0.8 0.1] /N 1 >>",
        PdfStream("{ dup 0.5 mul exch 0.1 4 1 roll pop pop 0 0 }",
                  "/FunctionType 4 /Domain [0 1 0 1] /Range [0 1 0 1 0 1 0 1]"),
        "<< /FunctionType 2 /Domain [0 1] /C0 [1] /C1 [0] /N 1.5 >>",
        PdfStream("no profile", "/N 3 /Alternate /DeviceRGB"),
        PdfStream("1 0 0 0 1 1 d1 0 0 1 1 re f"),
        PdfStream("1 0 d0 0 1 0 rg 0 0 0.5 0.5 re f"),
    };
}

} // namespace

std::string MakeContentPage(const std::string& stream)
{
    std::vector<std::string> objects;
    for (const auto& make : {MakeFonts, MakeXObjects, MakePatterns, MakeLayersMeshAndFunctions}) {
        const std::vector<std::string> made = make();
        objects.insert(objects.end(), made.begin(), made.end());
    }
    return Testing::PdfFileOfPages({stream}, catalogue, resources, objects);
}

} // namespace HarrowSupport::Fuzzing
