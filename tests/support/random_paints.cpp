#include "support/random_paints.h"

#include "support/random_forms.h"
#include "support/random_objects.h"
#include "support/random_states.h"

#include <orv_blend/transparency.h>
#include <orv_color/color_space.h>

#include <utility>

namespace HarrowSupport::Testing
{

namespace
{

using Random = std::mt19937;
using OrvBlend::SoftMask;
using OrvColor::ColorSpace;
using OrvPaint::FlatPaint;
using OrvPaint::PatternPaint;

/// A colour of a space whose components go from 0 to 1.
std::shared_ptr<const FlatPaint> RandomColorOf(const ColorSpace::Pointer& space, Random& random)
{
    std::vector<float> components;
    while (components.size() < space->GetComponentCount()) {
        components.push_back(RandomTint(random));
    }
    return FlatPaint::Factory(space, std::move(components), false, false).Get();
}

void SetRandomBackdrop(SoftMask::Factory& factory, const ColorSpace::Pointer& blendSpace, Random& random)
{
    const bool isProcess = !blendSpace || *blendSpace == *ColorSpace::DeviceCMYK();
    if (isProcess && random() % 2 == 0) {
        OrvColor::ColorList<OrvColor::ColorPolicy> list;
        for (const char* const name : {"Cyan", "Magenta", "Yellow", "Black"}) {
            list.Add(name, RandomTint(random));
        }
        factory.SetBackdropColor(std::move(list));
        return;
    }
    factory.SetBackdropColor(RandomColorOf(blendSpace          ? blendSpace
                                           : random() % 2 == 0 ? ColorSpace::DeviceGray()
                                                               : ColorSpace::DeviceRGB(),
                                           random));
}

double RandomStep(Random& random)
{
    const double length = 1.0 + static_cast<double>(random() % 1000000) / 7.0;
    return random() % 2 == 0 ? length : -length;
}

} // namespace

std::shared_ptr<OrvDoc::Content> RandomPaints::MakeContent(OrvDoc::Content::Type type, Random& random,
                                                           const FillContent& fill)
{
    auto content = std::make_shared<OrvDoc::Content>(document, type);
    content->SetBlendColorSpace(RandomBlendColorSpace(random));
    content->SetTransferFunctionSet(RandomTransferFunctions(random));
    fill(*content, random);
    return content;
}

std::shared_ptr<const PatternPaint> RandomPaints::NextPattern(Random& random, const FillContent& fill)
{
    if (!patterns.empty() && random() % 3 == 0) {
        return patterns[random() % patterns.size()];
    }
    std::shared_ptr<OrvDoc::Content> cell;
    if (!patterns.empty() && random() % 3 == 0) {
        cell = patterns[random() % patterns.size()]->GetSharedContent();
    } else {
        cell = MakeContent(random() % 2 == 0 ? OrvDoc::Content::Type::ColoredPatternContent
                                             : OrvDoc::Content::Type::UncoloredPatternContent,
                           random, fill);
    }
    PatternPaint::Factory factory(cell);
    factory.SetTransformation(RandomMatrix(random))
        .SetCellClip(RandomCorneredBox(random))
        .SetStep({RandomStep(random), RandomStep(random)})
        .SetTilingType(static_cast<PatternPaint::TilingType>(1 + random() % 3));
    if (cell->GetType() == OrvDoc::Content::Type::UncoloredPatternContent) {
        factory.SetColor(RandomPaint(random));
    }
    patterns.push_back(factory.Get());
    if (patterns.back()->GetColor() && random() % 2 == 0) {
        // In a file the two are one object.
        patterns.push_back(PatternPaint::Factory(*patterns.back()).SetColor(RandomPaint(random)).Get());
    }
    return patterns.back();
}

std::shared_ptr<const SoftMask> RandomPaints::NextMask(Random& random, const FillContent& fill)
{
    if (!masks.empty() && random() % 2 == 0) {
        return masks[random() % masks.size()];
    }
    const auto drawing = MakeContent(OrvDoc::Content::Type::SoftMaskContent, random, fill);
    SoftMask::Factory factory(drawing);
    factory.SetTransformation(RandomMatrix(random))
        .SetAlpha(random() % 2 == 0)
        .SetTransferFunction(random() % 2 == 0)
        .SetKnockout(random() % 4 == 0);
    if (random() % 8 != 0) {
        factory.SetBoundingBox(RandomCorneredBox(random));
    }
    if (random() % 2 == 0) {
        SetRandomBackdrop(factory, drawing->GetBlendColorSpace().GetColorSpace(), random);
    }
    masks.push_back(factory.Get());
    return masks.back();
}

void RandomPaints::SetSomePatterns(OrvDoc::Fillable& object, Random& random, const FillContent& fill)
{
    if (object.GetFillPaint() && random() % 8 == 0) {
        object.SetFillPaint(NextPattern(random, fill));
    }
    auto* const stroked = dynamic_cast<OrvDoc::Strokable*>(&object);
    if (stroked && stroked->GetStrokePaint() && random() % 8 == 0) {
        stroked->SetStrokePaint(NextPattern(random, fill));
    }
}

void RandomPaints::SetSomeMask(OrvDoc::Blendable& object, Random& random, const FillContent& fill)
{
    if (object.GetTransparency() && random() % 4 == 0) {
        OrvBlend::Transparency value = *object.GetTransparency();
        value.softMask = NextMask(random, fill);
        object.SetTransparency(std::make_shared<const OrvBlend::Transparency>(value));
    }
}

} // namespace HarrowSupport::Testing
