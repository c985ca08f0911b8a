#include "orv_color/profile_builder.h"

#include "orv_color/ink_model.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <type_traits>

#include <lcms2.h>

namespace OrvColor::Detail
{

namespace
{

struct CloseProfile
{
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};

struct Free
{
    void operator()(cmsContext context) const { cmsDeleteContext(context); }
    void operator()(cmsToneCurve* curve) const { cmsFreeToneCurve(curve); }
    void operator()(cmsPipeline* pipeline) const { cmsPipelineFree(pipeline); }
    void operator()(cmsMLU* text) const { cmsMLUfree(text); }
};

using Context = std::unique_ptr<std::remove_pointer_t<cmsContext>, Free>;
using Profile = std::unique_ptr<void, CloseProfile>;
using Curve = std::unique_ptr<cmsToneCurve, Free>;
using Pipeline = std::unique_ptr<cmsPipeline, Free>;
using Text = std::unique_ptr<cmsMLU, Free>;

using Sampler = cmsInt32Number (*)(const cmsUInt16Number[], cmsUInt16Number[], void*);

void Require(bool success)
{
    if (!success)
        throw std::runtime_error("A built-in colour profile can't be made.");
}

Context MakeContext()
{
    // A context of its own keeps the library's error handler and plug-ins of the surrounding program out.
    Context context(cmsCreateContext(nullptr, nullptr));
    Require(context != nullptr);
    return context;
}

void WriteText(cmsContext context, cmsHPROFILE profile, cmsTagSignature tag, const char* characters)
{
    const Text text(cmsMLUalloc(context, 1));
    Require(text && cmsMLUsetASCII(text.get(), "en", "US", characters));
    Require(cmsWriteTag(profile, tag, text.get()));
}

// Sets what all have in common and takes the bytes.
std::shared_ptr<const ICCProfile> Finish(cmsContext context, cmsHPROFILE profile, const char* description)
{
    constexpr double Version = 2.1;
    cmsSetProfileVersion(profile, Version);
    WriteText(context, profile, cmsSigProfileDescriptionTag, description);
    WriteText(context, profile, cmsSigCopyrightTag, "No copyright, use freely");
    cmsUInt32Number size = 0;
    Require(cmsSaveProfileToMem(profile, nullptr, &size));
    std::string bytes(size, '\0');
    Require(cmsSaveProfileToMem(profile, &bytes[0], &size));

    // The header carries the time of making at byte 24, six numbers of 16 bits: the first of January 2000.
    constexpr std::array<unsigned char, 12> FixedDate = {0x07, 0xD0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0};
    std::copy(FixedDate.begin(), FixedDate.end(), bytes.begin() + 24);
    return std::make_shared<ICCProfile>(std::move(bytes));
}

Profile MakeTableProfile(cmsContext context, cmsProfileClassSignature profileClass,
                         cmsColorSpaceSignature colorSpace)
{
    Profile profile(cmsCreateProfilePlaceholder(context));
    Require(profile != nullptr);
    cmsSetDeviceClass(profile.get(), profileClass);
    cmsSetColorSpace(profile.get(), colorSpace);
    cmsSetPCS(profile.get(), cmsSigLabData);
    Require(cmsWriteTag(profile.get(), cmsSigMediaWhitePointTag, cmsD50_XYZ()));
    return profile;
}

// Lightness is about the cube root of light. Where a table's axis is an ink, its points are therefore laid
// out so that the light that the ink leaves is the cube of the distance to the end; the curves bring tints
// there and back.
double TintAt(double position)
{
    return 1.0 - std::pow(1.0 - position, 3.0);
}

double PositionOf(double tint)
{
    return 1.0 - std::cbrt(1.0 - tint);
}

void AddCurves(cmsContext context, cmsPipeline* pipeline, double (*function)(double))
{
    constexpr std::size_t Points = 1024;
    std::array<cmsUInt16Number, Points> values;
    for (std::size_t point = 0; point < Points; ++point) {
        const double value = function(static_cast<double>(point) / (Points - 1));
        values[point] = static_cast<cmsUInt16Number>(std::lround(value * 65535.0));
    }
    const Curve curve(cmsBuildTabulatedToneCurve16(context, Points, values.data()));
    Require(curve != nullptr);
    cmsToneCurve* const curves[] = {curve.get(), curve.get(), curve.get(), curve.get()};
    cmsStage* stage = cmsStageAllocToneCurves(context, 4, curves);
    Require(stage && cmsPipelineInsertStage(pipeline, cmsAT_END, stage));
}

void AddTable(cmsContext context, cmsPipeline* pipeline, std::array<cmsUInt32Number, 3> shape,
              Sampler sampler)
{
    const auto [gridPoints, inputs, outputs] = shape;
    cmsStage* table = cmsStageAllocCLut16bit(context, gridPoints, inputs, outputs, nullptr);
    Require(table && cmsPipelineInsertStage(pipeline, cmsAT_END, table));
    Require(cmsStageSampleCLut16bit(table, sampler, nullptr, 0));
}

Pipeline MakePipeline(cmsContext context, cmsUInt32Number inputs, cmsUInt32Number outputs)
{
    Pipeline pipeline(cmsPipelineAlloc(context, inputs, outputs));
    Require(pipeline != nullptr);
    return pipeline;
}

cmsInt32Number SampleIdentity(const cmsUInt16Number in[], cmsUInt16Number out[], void*)
{
    std::copy(in, in + 3, out);
    return 1;
}

// Bradford-adapted to D50, the white of the connection space.
constexpr double LightToXyz[3][3] = {
    {0.4360747, 0.3850649, 0.1430804}, {0.2225045, 0.7168786, 0.0606169}, {0.0139322, 0.0971045, 0.7141733}};
constexpr double XyzToLight[3][3] = {{3.1338561, -1.6168667, -0.4906146},
                                     {-0.9787684, 1.9161415, 0.0334540},
                                     {0.0719453, -0.2289914, 1.4052427}};

std::array<double, 3> Multiply(const double (&matrix)[3][3], const std::array<double, 3>& vector)
{
    std::array<double, 3> product;
    for (std::size_t row = 0; row < 3; ++row)
        product[row] = matrix[row][0] * vector[0] + matrix[row][1] * vector[1] + matrix[row][2] * vector[2];
    return product;
}

cmsInt32Number SampleInksToLab(const cmsUInt16Number in[], cmsUInt16Number out[], void*)
{
    Tints tints;
    for (std::size_t ink = 0; ink < tints.size(); ++ink)
        tints[ink] = TintAt(in[ink] / 65535.0);
    const Light light = MixInks(tints);
    const auto xyz = Multiply(LightToXyz, light);
    const cmsCIEXYZ color = {xyz[0], xyz[1], xyz[2]};
    cmsCIELab lab;
    cmsXYZ2Lab(nullptr, &lab, &color);
    cmsFloat2LabEncodedV2(out, &lab);
    return 1;
}

cmsInt32Number SampleLabToInks(const cmsUInt16Number in[], cmsUInt16Number out[], void*)
{
    cmsCIELab lab;
    cmsLabEncoded2FloatV2(&lab, in);
    cmsCIEXYZ color;
    cmsLab2XYZ(nullptr, &color, &lab);
    const Tints tints = SeparateLight(Multiply(XyzToLight, {color.X, color.Y, color.Z}));
    for (std::size_t ink = 0; ink < tints.size(); ++ink)
        out[ink] = static_cast<cmsUInt16Number>(std::lround(PositionOf(tints[ink]) * 65535.0));
    return 1;
}

} // namespace

std::shared_ptr<const ICCProfile> BuildGrayProfile()
{
    const Context context = MakeContext();
    const Curve curve(cmsBuildGamma(context.get(), 2.2));
    Require(curve != nullptr);
    const Profile profile(cmsCreateGrayProfileTHR(context.get(), cmsD50_xyY(), curve.get()));
    Require(profile != nullptr);
    return Finish(context.get(), profile.get(), "Built-in gray");
}

std::shared_ptr<const ICCProfile> BuildRgbProfile()
{
    const Context context = MakeContext();
    const Profile profile(cmsCreate_sRGBProfileTHR(context.get()));
    Require(profile != nullptr);
    return Finish(context.get(), profile.get(), "Built-in RGB with the primaries and curve of sRGB");
}

std::shared_ptr<const ICCProfile> BuildLabProfile()
{
    const Context context = MakeContext();
    // Not of the abstract class, which a PDF file doesn't accept as a colour space.
    const Profile profile = MakeTableProfile(context.get(), cmsSigColorSpaceClass, cmsSigLabData);
    const Pipeline identity = MakePipeline(context.get(), 3, 3);
    AddTable(context.get(), identity.get(), {2, 3, 3}, SampleIdentity);
    Require(cmsWriteTag(profile.get(), cmsSigAToB0Tag, identity.get()));
    Require(cmsWriteTag(profile.get(), cmsSigBToA0Tag, identity.get()));
    return Finish(context.get(), profile.get(), "Built-in Lab");
}

std::shared_ptr<const ICCProfile> BuildCmykProfile()
{
    const Context context = MakeContext();
    const Profile profile = MakeTableProfile(context.get(), cmsSigOutputClass, cmsSigCmykData);
    const Pipeline toLab = MakePipeline(context.get(), 4, 3);
    AddCurves(context.get(), toLab.get(), PositionOf);
    AddTable(context.get(), toLab.get(), {9, 4, 3}, SampleInksToLab);
    Require(cmsWriteTag(profile.get(), cmsSigAToB0Tag, toLab.get()));
    const Pipeline toInks = MakePipeline(context.get(), 3, 4);
    AddTable(context.get(), toInks.get(), {17, 3, 4}, SampleLabToInks);
    AddCurves(context.get(), toInks.get(), TintAt);
    Require(cmsWriteTag(profile.get(), cmsSigBToA0Tag, toInks.get()));
    for (const cmsTagSignature tag : {cmsSigAToB1Tag, cmsSigAToB2Tag})
        Require(cmsLinkTag(profile.get(), tag, cmsSigAToB0Tag));
    for (const cmsTagSignature tag : {cmsSigBToA1Tag, cmsSigBToA2Tag})
        Require(cmsLinkTag(profile.get(), tag, cmsSigBToA0Tag));
    return Finish(context.get(), profile.get(), "Built-in CMYK of four idealized offset inks");
}

} // namespace OrvColor::Detail
