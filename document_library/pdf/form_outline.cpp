#include "pdf/form_outline.h"

#include <orv_paint/form_paint.h>
#include <plexa/compound.h>
#include <plexa/geometry.h>

namespace OrvPdf
{

std::shared_ptr<const Plexa::Compound> MakeFormOutline(const OrvPaint::FormPaint& form)
{
    return form.GetFormTransformation() * Plexa::GetRectangleCompound(form.GetFormBBox());
}

} // namespace OrvPdf
