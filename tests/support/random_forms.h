#pragma once

#include <memory>
#include <random>

#include <orv_doc/content.h>
#include <orv_doc/path.h>
#include <orv_paint/form_paint.h>

/// Random forms and objects that show them.
namespace HarrowSupport::Testing
{

/// A box whose corners say its size to the last bit, for a file has the corners alone.
Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> RandomCorneredBox(std::mt19937& random);

/// A form of that content: any matrix, box, scope, unique ID and external reference.
std::shared_ptr<const OrvPaint::FormPaint> RandomForm(std::shared_ptr<OrvDoc::Content> content,
                                                      std::mt19937& random);

/// An object that shows the form: anywhere, as a transparency group of any kind or as none, and some within
/// another outline than that of the form's box.
std::unique_ptr<OrvDoc::Path> RandomInstance(const std::shared_ptr<const OrvPaint::FormPaint>& form,
                                             std::mt19937& random);

} // namespace HarrowSupport::Testing
