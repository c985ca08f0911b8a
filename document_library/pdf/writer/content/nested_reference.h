#pragma once

#include <memory>

#include "pdf/matrix_numbers.h"

namespace OrvDoc
{
class Group;
}

namespace OrvPaint
{
class FormPaint;
}

namespace OrvPdf
{

/// A form XObject that a content paints: a form, or a group that becomes one for its transparency.
struct FormReference
{
    std::shared_ptr<const OrvPaint::FormPaint> paint;
    /// Of a group; then there is no paint.
    const OrvDoc::Group* group = nullptr;
    /// Of a group: from its container to the coordinates of the content.
    Matrix base;
    /// Whether it is painted as a transparency group, and the flags of that.
    bool isGroup = false;
    bool isIsolated = false;
    bool isKnockout = false;
};

} // namespace OrvPdf
