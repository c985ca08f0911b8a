#include "support/random_forms.h"

#include "support/random_objects.h"
#include "support/random_states.h"

#include <harrow_support/factories.h>

#include <plexa/geometry.h>

#include <string>
#include <utility>

namespace HarrowSupport::Testing
{

using OrvPaint::FormPaint;

Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> RandomCorneredBox(std::mt19937& random)
{
    const auto box = RandomBox(random);
    const double x = box.origin.x.value;
    const double y = box.origin.y.value;
    return {x, y, x + box.size.width.value - x, y + box.size.height.value - y};
}

std::shared_ptr<const FormPaint> RandomForm(std::shared_ptr<OrvDoc::Content> content, std::mt19937& random)
{
    FormPaint::Factory factory(std::move(content));
    factory.SetFormTransformation(RandomMatrix(random));
    if (random() % 16 != 0) {
        factory.SetFormBBox(RandomCorneredBox(random));
    }
    if (random() % 3 == 0) {
        factory.SetScope(static_cast<FormPaint::Scope>(random() % 6));
    }
    if (random() % 3 == 0) {
        factory.SetUniqueID(RandomName(random));
    }
    if (random() % 8 == 0) {
        factory.SetExternalReference(
            std::make_pair(boost::filesystem::path("/artwork/label (2).pdf"), std::size_t{random() % 3}));
    }
    return factory.Get();
}

std::unique_ptr<OrvDoc::Path> RandomInstance(const std::shared_ptr<const FormPaint>& form,
                                             std::mt19937& random)
{
    auto path = CreateFormInstance(form);
    if (random() % 6 == 0) {
        auto outline = Plexa::GetRectangleCompound(RandomBox(random));
        path = CreatePath(random() % 2 == 0
                              ? Plexa::WithWindingRule(std::move(outline), Plexa::WindingRule::EvenOdd)
                              : std::move(outline));
        path->SetFillPaint(form);
    }
    path->SetTransformation(RandomMatrix(random));
    if (random() % 6 == 0) {
        path->SetName(RandomName(random));
    }
    SetRandomBlending(*path, random);
    return path;
}

} // namespace HarrowSupport::Testing
