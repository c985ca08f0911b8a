#include "pdf/writer/content/content_walk.h"

#include <algorithm>

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_doc/content.h>

#include "pdf/halftone_definition.h"
#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/transfer_definition.h"

namespace OrvPdf
{

namespace
{

using OrvBlend::Transparency;

bool IsAlpha(float value)
{
    return value >= 0.0F && value <= 1.0F;
}

OrvColor::Component GetNearestAlpha(float value)
{
    return value > 0.0F ? 1.0F : 0.0F;
}

bool HasTransferFunctionsAlone(const OrvDoc::TransferFunctionSet& functions)
{
    const auto isWell = [](const std::shared_ptr<const OrvPaint::Function>& function) {
        return !function || IsTransferFunction(*function);
    };
    const auto& named = functions.GetNamedTransferFunctions();
    return isWell(functions.GetDefaultTransferFunction()) &&
           std::all_of(named.begin(), named.end(), [&](const auto& entry) { return isWell(entry.second); });
}

} // namespace

// The functions are in force for all that is painted, so they come before everything, outside of all levels.
void ContentWalk::BeginTransferFunctions(const OrvDoc::Content& content)
{
    const auto& functions = content.GetTransferFunctionSet();
    if (!functions) {
        return;
    }
    if (!HasTransferFunctionsAlone(*functions)) {
        result.problems.Add("transfer functions that have more than one input or output are left out");
        return;
    }
    result.transferFunctions = functions;
    out.append("/tr gs\n");
}

bool ContentWalk::GoToMatrix(const Matrix& wanted, const std::function<ExtGState()>& findParameters,
                             bool isPainted, const OrvDoc::ContentObject& object)
{
    const auto setsMask = [&] {
        const ExtGState parameters = findParameters();
        return parameters.blending.softMask && states.NeedsParameters(parameters, isPainted);
    };
    if (setsMask()) {
        LeaveSharedMatrix();
        return LeaveMatrix(Matrix(), object);
    }
    // What was set under a shared matrix goes with it.
    return LeaveMatrix(wanted, object) && (!setsMask() || LeaveMatrix(Matrix(), object));
}

Transparency ContentWalk::GetBlending(const OrvDoc::Blendable& object)
{
    const auto& transparency = object.GetTransparency();
    Transparency blending;
    if (!transparency) {
        return blending;
    }
    blending = *transparency;
    blending.isolated = false;
    blending.knockout = false;
    if (blending.softMask && !IsFinite(blending.softMask->GetTransformation())) {
        Refuse(object, "soft masks with infinite numbers in their matrix are left out");
        blending.softMask = nullptr;
    }
    if (blending.blendMode > OrvBlend::BlendMode::Luminosity) {
        Refuse(object, "unknown blend modes are written as Normal");
        blending.blendMode = OrvBlend::BlendMode::Normal;
    }
    for (OrvColor::Component* const alpha : {&blending.fillAlpha, &blending.strokeAlpha}) {
        if (!IsAlpha(*alpha)) {
            Refuse(object, "alphas outside of 0 to 1 are written as the nearest of them");
            *alpha = GetNearestAlpha(*alpha);
        }
    }
    return blending;
}

std::shared_ptr<OrvDoc::HalftoneSet>
ContentWalk::GetHalftones(const OrvDoc::ContentObject& object,
                          const std::shared_ptr<OrvDoc::HalftoneSet>& halftones)
{
    if (halftones && !IsHalftoneDefinition(halftones->GetDefinition())) {
        Refuse(object, "halftones that are of no known type are left out");
        return nullptr;
    }
    return halftones;
}

std::vector<const char*> ContentWalk::GetBlendingFlags(const OrvDoc::Blendable& object,
                                                       const Transparency& written)
{
    const auto& transparency = object.GetTransparency();
    std::vector<const char*> flags;
    if (!transparency) {
        return flags;
    }
    if (transparency->isolated) {
        flags.push_back(Tags::isolatedKey);
    }
    if (transparency->knockout) {
        flags.push_back(Tags::knockoutKey);
    }
    if (flags.empty() && written == *Transparency::Factory::GetDefault()) {
        flags.push_back(Tags::blendedKey);
    }
    return flags;
}

} // namespace OrvPdf
