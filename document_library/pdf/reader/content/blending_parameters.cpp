#include <utility>

#include <orv_blend/soft_mask.h>
#include <orv_doc/blendable.h>

#include "pdf/number_text.h"
#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"

namespace OrvPdf
{

namespace
{

using OrvBlend::BlendMode;
using OrvSys::PdfObject;

/// Of several modes the first one counts that a reader knows. Nothing if there is none.
boost::optional<BlendMode> FindMode(const PdfObject& value)
{
    if (value.IsName()) {
        return OrvBlend::FindBlendMode(value.GetText());
    }
    for (const PdfObject& choice : value.GetItems()) {
        const auto mode = choice.IsName() ? OrvBlend::FindBlendMode(choice.GetText()) : boost::none;
        if (mode) {
            return mode;
        }
    }
    return boost::none;
}

} // namespace

bool Interpreter::ApplyBlendParameter(const std::string& key, const PdfObject& value,
                                      const Arguments& arguments)
{
    BlendSetting& setting = state.blending;
    if (key == "BM") {
        return ApplyBlendMode(value, arguments);
    }
    if (key == "AIS") {
        if (!value.IsBoolean()) {
            return false;
        }
        setting.value.alphaIsShape = value.GetBoolean();
    } else {
        float alpha = 0.0F;
        if (!value.IsNumber() || !ParseFloat(value.Serialize(), alpha)) {
            return false;
        }
        if (!(alpha >= 0.0F && alpha <= 1.0F)) {
            problems.Odd("gs", "parameter " + key + " lies outside of 0 to 1; the nearest of them counts", {},
                         arguments.Place());
            alpha = alpha > 1.0F ? 1.0F : 0.0F;
        }
        // A zero with a sign is none.
        (key == "CA" ? setting.value.strokeAlpha : setting.value.fillAlpha) = alpha + 0.0F;
    }
    setting.transparency = nullptr;
    return true;
}

bool Interpreter::ApplyBlendMode(const PdfObject& value, const Arguments& arguments)
{
    if (!value.IsName() && !(value.IsArray() && !value.GetItems().empty())) {
        return false;
    }
    const auto mode = FindMode(value);
    if (!mode) {
        problems.Odd("gs", "an unknown blend mode counts as Normal", value.IsName() ? value.GetText() : "",
                     arguments.Place());
    }
    state.blending.value.blendMode = mode.value_or(BlendMode::Normal);
    state.blending.transparency = nullptr;
    return true;
}

bool Interpreter::ApplySoftMask(const PdfObject& value, const Arguments& arguments)
{
    if (value.IsName("None")) {
        SetSoftMask(nullptr);
        return true;
    }
    if (!value.IsName(unresolvedValue)) {
        return false;
    }
    const std::string_view name = arguments[0].Text();
    const auto& found = masks.Get(name, [this](const std::string& key, std::string& problem) {
        return resources.FindMask(key, problem);
    });
    std::string problem = found.problem;
    std::shared_ptr<const MaskUse> use;
    if (found.value) {
        use = found.value->Use(Plexa::Concatenate(state.matrix, GetBaseMatrix()), problem);
    }
    // A mask that can't be read takes the place of the one before as well.
    SetSoftMask(use ? use->mask : nullptr);
    if (use) {
        NoteReading(use->reading);
    } else {
        problems.Unmodelled("gs", "the soft mask of /" + Readable(name) + " is left out: " + problem, {},
                            arguments.Place());
    }
    return true;
}

void Interpreter::SetSoftMask(std::shared_ptr<const OrvBlend::SoftMask> mask)
{
    state.blending.value.softMask = std::move(mask);
    state.blending.transparency = nullptr;
}

void Interpreter::SetBlending(OrvDoc::Blendable& object, const ObjectAttributes& attributes,
                              BlendSetting& setting)
{
    MarkUsed(Inherited::blending);
    if (attributes.isolated || attributes.knockout || attributes.blended) {
        OrvBlend::Transparency value = setting.value;
        value.isolated = attributes.isolated;
        value.knockout = attributes.knockout;
        object.SetTransparency(transparencies.Get(value));
        return;
    }
    if (setting.value == *OrvBlend::Transparency::Factory::GetDefault()) {
        return;
    }
    if (!setting.transparency) {
        setting.transparency = transparencies.Get(setting.value);
    }
    object.SetTransparency(setting.transparency);
}

} // namespace OrvPdf
