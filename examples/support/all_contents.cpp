#include "all_contents.h"

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_doc/page.h>
#include <orv_doc/strokable.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/pattern_paint.h>

#include <cstddef>
#include <unordered_set>

namespace Examples
{

namespace
{

class ContentList
{
public:
    void Add(OrvDoc::Content& content)
    {
        if (known.insert(&content).second)
            contents.push_back(&content);
    }

    /// Adds what the objects of the contents have; those that are added on the way come in their turn.
    std::vector<OrvDoc::Content*> Complete()
    {
        for (std::size_t next = 0; next < contents.size(); ++next)
            AddInside(*contents[next]);
        return contents;
    }

private:
    void AddInside(OrvDoc::Content& content)
    {
        std::vector<OrvDoc::ContentObject*> open{content.GetChildren().first};
        while (!open.empty()) {
            OrvDoc::ContentObject* const object = open.back();
            open.pop_back();
            if (object == nullptr)
                continue;
            open.push_back(object->next);
            if (auto* const group = dynamic_cast<OrvDoc::Group*>(object))
                open.push_back(group->children.first);
            AddOf(*object);
        }
    }

    void AddOf(const OrvDoc::ContentObject& object)
    {
        const auto* const blendable = dynamic_cast<const OrvDoc::Blendable*>(&object);
        if (blendable != nullptr && blendable->GetTransparency() && blendable->GetTransparency()->softMask)
            Add(blendable->GetTransparency()->softMask->GetContent());
        if (const auto* const fillable = dynamic_cast<const OrvDoc::Fillable*>(&object))
            AddOf(fillable->GetFillPaint().get());
        if (const auto* const strokable = dynamic_cast<const OrvDoc::Strokable*>(&object))
            AddOf(strokable->GetStrokePaint().get());
    }

    void AddOf(const OrvPaint::Paint* paint)
    {
        if (const auto* const form = dynamic_cast<const OrvPaint::FormPaint*>(paint))
            Add(form->GetContent());
        else if (const auto* const pattern = dynamic_cast<const OrvPaint::PatternPaint*>(paint))
            Add(pattern->GetContent());
    }

    std::vector<OrvDoc::Content*> contents;
    std::unordered_set<const OrvDoc::Content*> known;
};

} // namespace

std::vector<OrvDoc::Content*> ListAllContents(OrvDoc::Document& document)
{
    ContentList list;
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page)
        list.Add(page->GetContent());
    return list.Complete();
}

void MarkAllContentsChanged(OrvDoc::Document& document)
{
    for (OrvDoc::Content* const content : ListAllContents(document)) {
        // A glyph that is changed is no glyph of the file's font any more.
        if (!content->IsGlyph())
            content->MarkChanged();
    }
}

} // namespace Examples
