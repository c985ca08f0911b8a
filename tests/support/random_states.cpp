#include "support/random_states.h"

#include "support/random_objects.h"

#include <orv_blend/transparency.h>
#include <orv_doc/halftone_set.h>
#include <orv_paint/exponential_function.h>
#include <orv_paint/stitching_function.h>
#include <orv_paint/whole_function.h>

#include <string>

namespace HarrowSupport::Testing
{

namespace
{

using OrvSys::PdfObject;
using Random = std::mt19937;

std::shared_ptr<const OrvBlend::Transparency> RandomTransparency(Random& random)
{
    OrvBlend::Transparency::Factory factory;
    if (random() % 2 == 0) {
        factory.SetBlendMode(static_cast<OrvBlend::BlendMode>(random() % 16));
    }
    if (random() % 2 == 0) {
        factory.SetFillAlpha(RandomTint(random));
    }
    if (random() % 3 == 0) {
        factory.SetStrokeAlpha(RandomTint(random));
    }
    factory.SetAlphaIsShape(random() % 8 == 0);
    factory.SetIsolated(random() % 8 == 0);
    factory.SetKnockout(random() % 8 == 0);
    return factory.Get();
}

PdfObject RandomScreen(Random& random)
{
    PdfObject::Entries entries = {
        {"HalftoneType", PdfObject::Integer(1)},
        {"Frequency", PdfObject::Real(30.0 + static_cast<double>(random() % 100) / 7.0)},
        {"Angle", PdfObject::Integer(static_cast<std::int64_t>(random() % 90))},
        {"SpotFunction", PdfObject::Name("Round")}};
    if (random() % 2 == 0) {
        entries["HalftoneName"] = PdfObject::String(RandomName(random));
    }
    return PdfObject::Dictionary(std::move(entries));
}

PdfObject RandomThresholds(Random& random)
{
    static constexpr int types[] = {6, 10, 16};
    const int type = types[random() % 3];
    const char* const width = type == 10 ? "Xsquare" : "Width";
    const char* const height = type == 10 ? "Ysquare" : "Height";
    const std::string bytes = type == 10 ? std::string(5, '\x40') : std::string("\x10\0\xFF\n", 4);
    return PdfObject::Stream(PdfObject::Dictionary({{"HalftoneType", PdfObject::Integer(type)},
                                                    {width, PdfObject::Integer(type == 6 ? 4 : 2)},
                                                    {height, PdfObject::Integer(1)}}),
                             bytes);
}

std::shared_ptr<OrvDoc::HalftoneSet> RandomHalftones(Random& random)
{
    PdfObject definition = random() % 2 == 0 ? RandomScreen(random) : RandomThresholds(random);
    if (random() % 3 == 0) {
        definition = PdfObject::Dictionary({{"HalftoneType", PdfObject::Integer(5)},
                                            {"Default", RandomScreen(random)},
                                            {"Cyan", std::move(definition)}});
    }
    const PdfObject name = definition.Find("HalftoneName");
    const bool isRenamed = random() % 4 == 0;
    return std::make_shared<OrvDoc::HalftoneSet>(isRenamed         ? RandomName(random)
                                                 : name.IsString() ? name.GetText()
                                                                   : std::string(),
                                                 definition);
}

using FunctionPointer = std::shared_ptr<const OrvPaint::Function>;

FunctionPointer RandomSampledFunction(Random& random)
{
    const PdfObject unit = PdfObject::Array({PdfObject::Integer(0), PdfObject::Integer(1)});
    return OrvPaint::WholeFunction::Make(
        PdfObject::Stream(PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(0)},
                                                 {"Domain", unit},
                                                 {"Range", unit},
                                                 {"Size", PdfObject::Array({PdfObject::Integer(2)})},
                                                 {"BitsPerSample", PdfObject::Integer(8)}}),
                          {static_cast<char>(random() % 256), static_cast<char>(random() % 256)}));
}

FunctionPointer RandomCalculator(Random& random)
{
    const PdfObject unit = PdfObject::Array({PdfObject::Integer(0), PdfObject::Integer(1)});
    return OrvPaint::WholeFunction::Make(PdfObject::Stream(
        PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(4)}, {"Domain", unit}, {"Range", unit}}),
        random() % 2 == 0 ? "{ 1 exch sub }" : "{ dup mul }"));
}

/// From numbers to numbers, of any type; null for the identity.
FunctionPointer RandomTransferFunction(Random& random)
{
    const auto exponential = [&random] {
        return OrvPaint::ExponentialFunction::Factory({RandomTint(random)}, {RandomTint(random)},
                                                      1.0 + static_cast<double>(random() % 100) / 7.0)
            .Get();
    };
    switch (random() % 5) {
    case 0:
        return nullptr;
    case 1:
        return RandomSampledFunction(random);
    case 2:
        return RandomCalculator(random);
    case 3:
        return OrvPaint::StitchingFunction::Factory({exponential(), exponential()}, {0.25}).Get();
    default:
        return exponential();
    }
}

} // namespace

boost::optional<OrvDoc::TransferFunctionSet> RandomTransferFunctions(Random& random)
{
    if (random() % 4 != 0) {
        return boost::none;
    }
    static const std::vector<std::vector<std::string>> names = {
        {}, {"Cyan", "Magenta", "Yellow", "Black"}, {"Black", "Gold"}, {"Gold", std::string("a\0b", 3), ""}};
    FunctionPointer byDefault = random() % 2 == 0 ? RandomTransferFunction(random) : nullptr;
    std::vector<OrvDoc::TransferFunctionSet::NamedFunction> named;
    for (const std::string& name : names[random() % names.size()]) {
        named.emplace_back(name, RandomTransferFunction(random));
    }
    return OrvDoc::TransferFunctionSet(std::move(byDefault), std::move(named));
}

void SetRandomHalftones(OrvDoc::Fillable& object, Random& random)
{
    if (random() % 6 == 0) {
        object.SetHalftoneSet(RandomHalftones(random));
    }
}

void SetRandomHalftones(OrvDoc::Image& image, Random& random)
{
    if (random() % 6 == 0) {
        image.SetHalftoneSet(RandomHalftones(random));
    }
}

void SetRandomBlending(OrvDoc::Blendable& object, Random& random)
{
    if (random() % 3 == 0) {
        object.SetTransparency(RandomTransparency(random));
    }
}

} // namespace HarrowSupport::Testing
