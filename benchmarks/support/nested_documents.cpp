#include "support/nested_documents.h"

#include <unordered_set>
#include <utility>

#include <harrow_support/factories.h>
#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_doc/path.h>
#include <orv_doc/visitor.h>
#include <orv_paint/flat_paint.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/pattern_paint.h>
#include <plexa/geometry.h>

namespace Benchmarks
{

namespace
{

using Box = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Matrix = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

double PlaceOf(std::size_t number)
{
    return static_cast<double>(number % 100) * 1000.0;
}

PaintPointer MakeBlack()
{
    return OrvPaint::FlatPaint::Factory(OrvColor::ColorSpace::DeviceGray(), {0.0F}, false, false).Get();
}

/// Counts the objects of one content and finds the contents that they use.
class ObjectCounter : public OrvDoc::ConstVisitorBase
{
public:
    using ConstVisitorBase::Visit;

    bool Visit(const OrvDoc::ContentObject&) override
    {
        ++count;
        return true;
    }

    bool Visit(const OrvDoc::Blendable& object) override
    {
        const auto& transparency = object.GetTransparency();
        if (transparency && transparency->softMask)
            Note(transparency->softMask->GetContent());
        return ConstVisitorBase::Visit(object);
    }

    bool Visit(const OrvDoc::Fillable& object) override
    {
        NotePaint(object.GetFillPaint());
        return ConstVisitorBase::Visit(object);
    }

    bool Visit(const OrvDoc::Strokable& object) override
    {
        NotePaint(object.GetStrokePaint());
        return ConstVisitorBase::Visit(object);
    }

    /// Contents found, in the order of their finding.
    std::vector<const OrvDoc::Content*> found;
    std::size_t count = 0;

private:
    void NotePaint(const PaintPointer& paint)
    {
        if (const auto* const form = dynamic_cast<const OrvPaint::FormPaint*>(paint.get()))
            Note(form->GetContent());
        else if (const auto* const pattern = dynamic_cast<const OrvPaint::PatternPaint*>(paint.get()))
            Note(pattern->GetContent());
    }

    void Note(const OrvDoc::Content& content)
    {
        if (known.insert(&content).second)
            found.push_back(&content);
    }

    std::unordered_set<const OrvDoc::Content*> known;
};

} // namespace

std::unique_ptr<OrvDoc::Document> MakeEmptyPage()
{
    auto document = OrvDoc::Document::CreateNew();
    document->AddPage(Box(0.0, 0.0, 100000.0, 100000.0));
    return document;
}

OrvDoc::Content& ContentOf(OrvDoc::Document& document)
{
    return document.GetPagesBegin()->GetContent();
}

void AddSquares(OrvDoc::Content& content, std::size_t count, const std::vector<PaintPointer>& paints)
{
    for (std::size_t i = 0; i < count; ++i) {
        auto path = std::make_unique<OrvDoc::Path>(
            Plexa::GetRectangleCompound(Box(PlaceOf(i), PlaceOf(i), 900.0, 900.0)));
        path->SetFillPaint(paints[i % paints.size()]);
        content.AddOnTop(path.release());
    }
}

std::shared_ptr<OrvDoc::Content> MakeSquares(OrvDoc::Document& document, OrvDoc::Content::Type type,
                                             std::size_t count)
{
    auto content = std::make_shared<OrvDoc::Content>(document, type);
    AddSquares(*content, count, {MakeBlack()});
    return content;
}

std::unique_ptr<OrvDoc::Document> MakePlainDocument(std::size_t objects)
{
    auto document = MakeEmptyPage();
    AddSquares(ContentOf(*document), objects, {MakeBlack()});
    return document;
}

std::unique_ptr<OrvDoc::Document> MakeFormDocument(std::size_t users, std::size_t forms,
                                                   std::size_t objectsInAForm)
{
    auto document = MakeEmptyPage();
    std::vector<std::shared_ptr<const OrvPaint::FormPaint>> paints;
    for (std::size_t i = 0; i < forms; ++i) {
        OrvPaint::FormPaint::Factory factory(
            MakeSquares(*document, OrvDoc::Content::Type::FormContent, objectsInAForm));
        paints.push_back(factory.SetFormBBox(Box(0.0, 0.0, 100000.0, 100000.0)).Get());
    }
    for (std::size_t i = 0; i < users; ++i) {
        auto instance = HarrowSupport::CreateFormInstance(paints[i % forms]);
        instance->SetTransformation(Matrix(1.0, 0.0, 0.0, 1.0, PlaceOf(i), PlaceOf(i)));
        ContentOf(*document).AddOnTop(instance.release());
    }
    return document;
}

std::size_t CountAllObjects(const OrvDoc::Document& document)
{
    ObjectCounter counter;
    document.Accept(counter);
    for (std::size_t next = 0; next < counter.found.size(); ++next)
        counter.found[next]->Accept(counter);
    return counter.count;
}

} // namespace Benchmarks
