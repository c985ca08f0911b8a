#include "pdf/writer/resources/kept_contents.h"

#include <algorithm>

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_doc/content.h>
#include <orv_doc/group.h>
#include <orv_doc/strokable.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/pattern_paint.h>

#include "pdf/reader/resources/glyph_source.h"
#include "pdf/reader/resources/nested_source.h"

namespace OrvPdf
{

namespace
{

using OrvDoc::ContentObject;

void AddPaint(const std::shared_ptr<const OrvPaint::Paint>& paint, std::vector<NestedContent>& contents)
{
    if (!paint) {
        return;
    }
    if (auto form = std::dynamic_pointer_cast<const OrvPaint::FormPaint>(paint)) {
        const OrvDoc::Content* const content = &form->GetContent();
        contents.push_back({content, std::move(form)});
    } else if (const auto* const pattern = dynamic_cast<const OrvPaint::PatternPaint*>(paint.get())) {
        contents.push_back({&pattern->GetContent(), nullptr});
    }
}

void AddContents(const ContentObject& object, std::vector<NestedContent>& contents)
{
    const auto* const blendable = dynamic_cast<const OrvDoc::Blendable*>(&object);
    if (blendable && blendable->GetTransparency() && blendable->GetTransparency()->softMask) {
        contents.push_back({&blendable->GetTransparency()->softMask->GetContent(), nullptr});
    }
    if (const auto* const fillable = dynamic_cast<const OrvDoc::Fillable*>(&object)) {
        AddPaint(fillable->GetFillPaint(), contents);
    }
    if (const auto* const strokable = dynamic_cast<const OrvDoc::Strokable*>(&object)) {
        AddPaint(strokable->GetStrokePaint(), contents);
    }
}

} // namespace

std::vector<NestedContent> ListNestedContents(const OrvDoc::Content& content)
{
    std::vector<NestedContent> contents;
    std::vector<const ContentObject*> open{content.GetChildren().first};
    while (!open.empty()) {
        const ContentObject* const object = open.back();
        if (!object) {
            open.pop_back();
            continue;
        }
        open.back() = object->next;
        AddContents(*object, contents);
        if (const auto* const group = dynamic_cast<const OrvDoc::Group*>(object)) {
            open.push_back(group->children.first);
        }
    }
    return contents;
}

const NestedSource* KeptContents::FindSource(const OrvPaint::FormPaint& form) const
{
    if (&form.GetContent().GetDocument() != &document) {
        return nullptr;
    }
    const auto* const source = dynamic_cast<const NestedSource*>(form.GetContent().GetSource());
    return source && source->user.lock().get() == &form ? source : nullptr;
}

bool KeptContents::MayKeep(const OrvDoc::Content& content)
{
    const auto* const source = dynamic_cast<const NestedSource*>(content.GetSource());
    return MayKeep(content, source && !source->hasUnmodelled && !LosesInside(content));
}

bool KeptContents::MayKeepPage(const OrvDoc::Content& content, bool hasUnmodelled, bool isDamaged)
{
    const bool isModelled = !hasUnmodelled && !LosesInside(content);
    return !(isModelled && isDamaged) && MayKeep(content, isModelled);
}

bool KeptContents::LosesInside(const OrvDoc::Content& content)
{
    // A content that holds itself, which only programs make, loses nothing by that.
    const auto [found, isNew] = knownLosses.emplace(&content, false);
    if (!isNew) {
        return found->second;
    }
    const std::vector<NestedContent> contents = ListNestedContents(content);
    const bool loses = std::any_of(contents.begin(), contents.end(),
                                   [&](const NestedContent& inside) { return Loses(inside); });
    knownLosses[&content] = loses;
    return loses;
}

bool KeptContents::Loses(const NestedContent& inside)
{
    const auto* const source = dynamic_cast<const NestedSource*>(inside.content->GetSource());
    // What was changed is written anew in any case. That also bounds the depth by that of the file.
    if (!source || inside.content->GetRevision() != source->baseRevision) {
        return false;
    }
    if (const auto* const glyph = dynamic_cast<const GlyphSource*>(source)) {
        return !glyph->canBeShown;
    }
    const bool staysByItself = source->isSelfContained && MayKeep(*inside.content);
    return !staysByItself && (source->hasUnmodelled || LosesInside(*inside.content));
}

// Contents that nobody changed are nested no deeper than the reader lets them be.
bool KeptContents::MayKeep(const OrvDoc::Content& content, bool isModelled)
{
    const auto found = known.find({&content, isModelled});
    if (found != known.end()) {
        return found->second;
    }
    const std::vector<NestedContent> contents = ListNestedContents(content);
    const bool mayKeep = std::all_of(contents.begin(), contents.end(), [&](const NestedContent& inside) {
        return MayKeep(inside, isModelled);
    });
    known.emplace(std::make_pair(&content, isModelled), mayKeep);
    return mayKeep;
}

bool KeptContents::MayKeep(const NestedContent& inside, bool isModelled)
{
    const NestedSource* const source = inside.form ? FindSource(*inside.form) : nullptr;
    if (source && source->isSelfContained) {
        return true;
    }
    const auto* const anySource = dynamic_cast<const NestedSource*>(inside.content->GetSource());
    const auto* const glyph = dynamic_cast<const GlyphSource*>(anySource);
    if (glyph && glyph->canBeShown) {
        // The font draws it, wherever it is shown.
        return inside.content->GetRevision() == glyph->baseRevision;
    }
    return !isModelled && anySource && inside.content->GetRevision() == anySource->baseRevision &&
           MayKeep(*inside.content, false);
}

} // namespace OrvPdf
