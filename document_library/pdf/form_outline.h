#pragma once

#include <memory>

namespace OrvPaint
{
class FormPaint;
}

namespace Plexa
{
class Compound;
}

namespace OrvPdf
{

/// The outline of an object that is filled with a form and nothing else: that of the form's box, in the
/// object's coordinates. Bit by bit the same each time.
std::shared_ptr<const Plexa::Compound> MakeFormOutline(const OrvPaint::FormPaint& form);

} // namespace OrvPdf
