#pragma once

#include <functional>
#include <memory>
#include <random>
#include <vector>

#include <orv_blend/soft_mask.h>
#include <orv_doc/blendable.h>
#include <orv_doc/content.h>
#include <orv_doc/strokable.h>
#include <orv_paint/pattern_paint.h>

namespace HarrowSupport::Testing
{

/// Random tiling patterns and soft masks of one document. Some are shared, and some patterns differ in their
/// properties but have one cell. One is among those that may be shared when it is complete, so that none
/// holds itself.
class RandomPaints
{
public:
    /// Gives a content its objects.
    using FillContent = std::function<void(OrvDoc::Content&, std::mt19937&)>;

    explicit RandomPaints(OrvDoc::Document& givenDocument) : document(givenDocument) {}

    /// Any matrix, box, step and type; coloured, or uncoloured in any colour.
    std::shared_ptr<const OrvPaint::PatternPaint> NextPattern(std::mt19937& random, const FillContent& fill);

    /// All that a file can say of a mask but transfer functions, which are never equal to those of another
    /// mask.
    std::shared_ptr<const OrvBlend::SoftMask> NextMask(std::mt19937& random, const FillContent& fill);

    /// Gives some objects patterns in the place of the paints that they have.
    void SetSomePatterns(OrvDoc::Fillable& object, std::mt19937& random, const FillContent& fill);
    /// Gives some objects a mask.
    void SetSomeMask(OrvDoc::Blendable& object, std::mt19937& random, const FillContent& fill);

private:
    std::shared_ptr<OrvDoc::Content> MakeContent(OrvDoc::Content::Type type, std::mt19937& random,
                                                 const FillContent& fill);

    OrvDoc::Document& document;
    std::vector<std::shared_ptr<const OrvPaint::PatternPaint>> patterns;
    std::vector<std::shared_ptr<const OrvBlend::SoftMask>> masks;
};

} // namespace HarrowSupport::Testing
