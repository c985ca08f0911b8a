#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <orv_doc/clone.h>

namespace OrvBlend
{
class SoftMask;
}

namespace OrvDoc::Detail
{

/// Copies of what objects draw with and what holds contents of its own: patterns, forms and soft masks. A
/// copied content is empty at first and waits to be filled; the outermost call fills all that wait, one after
/// the other. So a content finds the copy of itself, and depth of contents is not depth of the stack.
class NestedClones
{
public:
    explicit NestedClones(CloneStrategy& givenStrategy) : strategy(givenStrategy) {}

    std::shared_ptr<const OrvPaint::Paint> ClonePaint(const std::shared_ptr<const OrvPaint::Paint>& paint);
    std::shared_ptr<const OrvBlend::Transparency>
    CloneTransparency(const std::shared_ptr<const OrvBlend::Transparency>& transparency);

private:
    /// From source to copy. The sources are kept, so that no new one gets the address of an old one.
    template <typename Item>
    using Memo = std::map<std::shared_ptr<Item>, std::shared_ptr<Item>>;

    /// What stands in the memo for the source, or what `make` makes, with all contents filled if this is the
    /// outermost call.
    template <typename Item, typename Make>
    std::shared_ptr<Item> FindOrMake(Memo<Item>& memo, const std::shared_ptr<Item>& source, Make make);
    std::shared_ptr<Content> CloneEmpty(const std::shared_ptr<Content>& source);
    std::shared_ptr<const OrvBlend::SoftMask>
    CloneSoftMask(const std::shared_ptr<const OrvBlend::SoftMask>& mask);
    void FillAll();
    void Forget() noexcept;

    CloneStrategy& strategy;
    Memo<const OrvPaint::Paint> paints;
    Memo<const OrvBlend::Transparency> transparencies;
    Memo<const OrvBlend::SoftMask> softMasks;
    Memo<Content> contents;
    std::vector<std::pair<std::shared_ptr<Content>, std::shared_ptr<Content>>> unfilled;
    bool isFilling = false;
};

} // namespace OrvDoc::Detail
