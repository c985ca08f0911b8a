#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;

ColorSpace::Pointer PlainDeviceSpace(ColorSpace::Family family)
{
    switch (family) {
    case ColorSpace::Family::DeviceGray:
        return ColorSpace::DeviceGray();
    case ColorSpace::Family::DeviceRGB:
        return ColorSpace::DeviceRGB();
    default:
        return ColorSpace::DeviceCMYK();
    }
}

} // namespace

const Interpreter::ColorSpaceEntry& Interpreter::LookUpColorSpace(std::string_view name)
{
    return spaces.Get(name, [this](const std::string& key, std::string& problem) {
        return resources.FindColorSpace(key, problem);
    });
}

ColorSpace::Pointer Interpreter::FindColorSpace(std::string_view name, const Arguments& arguments)
{
    const ColorSpaceEntry& found = LookUpColorSpace(name);
    if (!found.value || !found.problem.empty()) {
        problems.Unmodelled(arguments.OperatorText(),
                            "colour space /" + Readable(name) + ": " +
                                (found.problem.empty() ? "not among the resources" : found.problem),
                            {}, arguments.Place());
    }
    return found.value;
}

ColorSpace::Pointer Interpreter::FindDeviceSpace(ColorSpace::Family family, const Arguments& arguments)
{
    ColorSpace::Pointer& kept = deviceSpaces[static_cast<std::size_t>(family)];
    if (kept) {
        return kept;
    }
    const ColorSpace::Pointer plain = PlainDeviceSpace(family);
    const std::string& name = plain->GetDefinition().GetText();
    const ColorSpace::Pointer found = FindColorSpace(name, arguments);
    if (!found || found->GetComponentCount() != plain->GetComponentCount()) {
        return plain;
    }
    // A problem is to be counted for each operator that meets it.
    if (LookUpColorSpace(name).problem.empty()) {
        kept = found;
    }
    return found;
}

void Interpreter::SetFillColorSpace(const Arguments& arguments)
{
    SetColorSpace(state.fill, arguments);
}

void Interpreter::SetStrokeColorSpace(const Arguments& arguments)
{
    SetColorSpace(state.stroke, arguments);
}

void Interpreter::TakeColor(const PaintSetting& setting)
{
    state.inherited &= &setting == &state.fill ? ~Inherited::fillColor : ~Inherited::strokeColor;
}

void Interpreter::SetColorSpace(PaintSetting& setting, const Arguments& arguments)
{
    const auto space = FindColorSpace(arguments[0].Text(), arguments);
    TakeColor(setting);
    setting.paint = nullptr;
    setting.pattern = nullptr;
    setting.patternSpace = space && space->GetFamily() == ColorSpace::Family::Pattern ? space : nullptr;
    if (!space || setting.patternSpace) {
        setting.color = nullptr;
        return;
    }
    setting.color = std::make_shared<const Color>(Color{space, space->GetInitialComponents()});
}

void Interpreter::SetFillColor(const Arguments& arguments)
{
    SetColor(state.fill, arguments);
}

void Interpreter::SetStrokeColor(const Arguments& arguments)
{
    SetColor(state.stroke, arguments);
}

void Interpreter::SetColor(PaintSetting& setting, const Arguments& arguments)
{
    const std::size_t count = arguments.Count();
    const std::string_view operatorText = arguments.OperatorText();
    if (count > 0 && arguments[count - 1].IsName()) {
        SetPattern(setting, arguments);
        return;
    }
    if (!setting.color) {
        problems.Unmodelled(operatorText, "a colour in a space that is not modelled", {}, arguments.Place());
        return;
    }
    const std::size_t needed = setting.color->space->GetComponentCount();
    if (count < needed) {
        problems.Damaged(operatorText, "fewer numbers than the colour space has components", {},
                         arguments.Place());
        return;
    }
    if (count > needed) {
        problems.Odd(operatorText, "more numbers than the colour space has components; the last ones count",
                     {}, arguments.Place());
    }
    // The space may be the one from around the form.
    MarkUsed(&setting == &state.fill ? Inherited::fillColor : Inherited::strokeColor);
    SetColor(setting, setting.color->space, Arguments(arguments.Operation(), needed));
}

void Interpreter::SetColor(PaintSetting& setting, ColorSpace::Pointer space, const Arguments& arguments)
{
    bool isSame = setting.color && setting.color->space == space;
    std::size_t index = 0;
    for (const Operand& operand : arguments.All()) {
        if (!operand.IsNumber()) {
            problems.Damaged(arguments.OperatorText(), "a colour component that is no number", {},
                             arguments.Place());
            return;
        }
        isSame = isSame && setting.color->components[index++] == operand.AsFloat();
    }
    TakeColor(setting);
    if (isSame) {
        return;
    }
    auto color = std::make_shared<Color>();
    color->space = std::move(space);
    color->components.reserve(arguments.Count());
    for (const Operand& operand : arguments.All()) {
        color->components.push_back(operand.AsFloat());
    }
    setting.color = std::move(color);
    setting.patternSpace = nullptr;
    setting.pattern = nullptr;
    setting.paint = nullptr;
}

void Interpreter::SetFillGray(const Arguments& arguments)
{
    SetColor(state.fill, FindDeviceSpace(ColorSpace::Family::DeviceGray, arguments), arguments);
}

void Interpreter::SetStrokeGray(const Arguments& arguments)
{
    SetColor(state.stroke, FindDeviceSpace(ColorSpace::Family::DeviceGray, arguments), arguments);
}

void Interpreter::SetFillRgb(const Arguments& arguments)
{
    SetColor(state.fill, FindDeviceSpace(ColorSpace::Family::DeviceRGB, arguments), arguments);
}

void Interpreter::SetStrokeRgb(const Arguments& arguments)
{
    SetColor(state.stroke, FindDeviceSpace(ColorSpace::Family::DeviceRGB, arguments), arguments);
}

void Interpreter::SetFillCmyk(const Arguments& arguments)
{
    SetColor(state.fill, FindDeviceSpace(ColorSpace::Family::DeviceCMYK, arguments), arguments);
}

void Interpreter::SetStrokeCmyk(const Arguments& arguments)
{
    SetColor(state.stroke, FindDeviceSpace(ColorSpace::Family::DeviceCMYK, arguments), arguments);
}

std::shared_ptr<const OrvPaint::Paint> Interpreter::GetPaint(PaintSetting& setting)
{
    if (!setting.paint && setting.pattern) {
        setting.paint = MakePatternPaint(setting);
    } else if (!setting.paint && setting.color) {
        setting.paint = paints.Get(setting.color, setting.overprint, state.nonzeroOverprint);
    }
    return setting.paint;
}

} // namespace OrvPdf
