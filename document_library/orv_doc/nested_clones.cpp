#include "orv_doc/nested_clones.h"

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_doc/content.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/pattern_paint.h>

namespace OrvDoc::Detail
{

using OrvBlend::SoftMask;
using OrvBlend::Transparency;
using OrvPaint::FormPaint;
using OrvPaint::Paint;
using OrvPaint::PatternPaint;

std::shared_ptr<const Paint> NestedClones::ClonePaint(const std::shared_ptr<const Paint>& paint)
{
    if (!paint)
        return nullptr;
    if (paint->GetType() == Paint::Type::TilingPattern) {
        const auto& pattern = static_cast<const PatternPaint&>(*paint);
        return FindOrMake(paints, paint, [&] {
            return PatternPaint::Factory(pattern).SetContent(CloneEmpty(pattern.GetSharedContent())).Get();
        });
    }
    if (paint->GetType() == Paint::Type::Form) {
        const auto& form = static_cast<const FormPaint&>(*paint);
        return FindOrMake(paints, paint, [&] {
            return FormPaint::Factory(form).SetContent(CloneEmpty(form.GetSharedContent())).Get();
        });
    }
    return paint;
}

std::shared_ptr<const Transparency>
NestedClones::CloneTransparency(const std::shared_ptr<const Transparency>& transparency)
{
    if (!transparency || !transparency->softMask)
        return transparency;
    return FindOrMake(transparencies, transparency, [&] {
        auto clone = std::make_shared<Transparency>(*transparency);
        clone->softMask = CloneSoftMask(transparency->softMask);
        return clone;
    });
}

std::shared_ptr<const SoftMask> NestedClones::CloneSoftMask(const std::shared_ptr<const SoftMask>& mask)
{
    std::shared_ptr<const SoftMask>& clone = softMasks[mask];
    if (!clone)
        clone = SoftMask::Factory(*mask).SetContent(CloneEmpty(mask->GetSharedContent())).Get();
    return clone;
}

std::shared_ptr<Content> NestedClones::CloneEmpty(const std::shared_ptr<Content>& source)
{
    std::shared_ptr<Content>& clone = contents[source];
    if (!clone) {
        clone = std::make_shared<Content>(strategy.GetDocument(), source->GetType());
        clone->SetBlendColorSpace(source->GetBlendColorSpace());
        clone->SetTransferFunctionSet(source->GetTransferFunctionSet());
        unfilled.emplace_back(source, clone);
    }
    return clone;
}

template <typename Item, typename Make>
std::shared_ptr<Item> NestedClones::FindOrMake(Memo<Item>& memo, const std::shared_ptr<Item>& source,
                                               Make make)
{
    const auto found = memo.find(source);
    if (found != memo.end())
        return found->second;
    try {
        const std::shared_ptr<Item> clone = make();
        memo.emplace(source, clone);
        if (!isFilling)
            FillAll();
        return clone;
    } catch (...) {
        Forget();
        throw;
    }
}

void NestedClones::FillAll()
{
    isFilling = true;
    while (!unfilled.empty()) {
        const auto [source, clone] = unfilled.back();
        unfilled.pop_back();
        CloneContent(*source, *clone, strategy);
    }
    isFilling = false;
}

/// After a failure some contents in the memo lack their objects: nothing may be made of them.
void NestedClones::Forget() noexcept
{
    paints.clear();
    transparencies.clear();
    softMasks.clear();
    contents.clear();
    unfilled.clear();
    isFilling = false;
}

} // namespace OrvDoc::Detail
