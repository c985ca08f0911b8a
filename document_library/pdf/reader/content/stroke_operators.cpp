#include <algorithm>

#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"

namespace OrvPdf
{

using OrvDoc::StrokeProperties;

void Interpreter::ChangeStroke(StrokeProperties properties)
{
    if (properties != *state.strokeProperties) {
        state.strokeProperties = std::make_shared<const StrokeProperties>(std::move(properties));
    }
}

void Interpreter::SetLineWidth(const Arguments& arguments)
{
    const double width = arguments[0].AsMilliPoints();
    if (width < 0.0) {
        problems.Damaged("w", "a negative line width", {}, arguments.Place());
        return;
    }
    state.inherited &= ~Inherited::lineWidth;
    if (width != state.strokeProperties->width) {
        StrokeProperties properties = *state.strokeProperties;
        properties.width = width;
        ChangeStroke(std::move(properties));
    }
}

void Interpreter::SetLineCap(const Arguments& arguments)
{
    const double number = arguments[0].AsNumber();
    if (number != 0.0 && number != 1.0 && number != 2.0) {
        problems.Damaged("J", "no line cap has this number", arguments[0].Text(), arguments.Place());
        return;
    }
    StrokeProperties properties = *state.strokeProperties;
    properties.cap = static_cast<OrvDoc::LineCap>(static_cast<int>(number));
    state.inherited &= ~Inherited::lineCap;
    ChangeStroke(std::move(properties));
}

void Interpreter::SetLineJoin(const Arguments& arguments)
{
    const double number = arguments[0].AsNumber();
    if (number != 0.0 && number != 1.0 && number != 2.0) {
        problems.Damaged("j", "no line join has this number", arguments[0].Text(), arguments.Place());
        return;
    }
    StrokeProperties properties = *state.strokeProperties;
    properties.join = static_cast<OrvDoc::LineJoin>(static_cast<int>(number));
    state.inherited &= ~Inherited::lineJoin;
    ChangeStroke(std::move(properties));
}

void Interpreter::SetMiterLimit(const Arguments& arguments)
{
    const double limit = arguments[0].AsNumber();
    if (limit <= 0.0) {
        problems.Damaged("M", "a miter limit that is not positive", {}, arguments.Place());
        return;
    }
    StrokeProperties properties = *state.strokeProperties;
    properties.miterLimit = limit;
    state.inherited &= ~Inherited::miterLimit;
    ChangeStroke(std::move(properties));
}

void Interpreter::SetDash(const Arguments& arguments)
{
    std::vector<double> dashes;
    for (const Operand& dash : arguments[0].Elements()) {
        if (!dash.IsNumber()) {
            problems.Damaged("d", "a dash that is no number", {}, arguments.Place());
            return;
        }
        dashes.push_back(dash.AsMilliPoints());
    }
    StrokeProperties properties = *state.strokeProperties;
    if (SetDashPattern(properties, std::move(dashes), arguments[1].AsMilliPoints(), arguments)) {
        state.inherited &= ~Inherited::dash;
        ChangeStroke(std::move(properties));
    } else {
        problems.Damaged("d", "dashes that are negative or all zero", {}, arguments.Place());
    }
}

// A dash has no negative lengths and is not all zeros (ISO 32000-1, 8.4.3.6).
bool Interpreter::SetDashPattern(StrokeProperties& properties, std::vector<double> dashes, double phase,
                                 const Arguments& arguments)
{
    const bool hasNegative =
        std::any_of(dashes.begin(), dashes.end(), [](double dash) { return dash < 0.0; });
    const bool isAllZero = std::all_of(dashes.begin(), dashes.end(), [](double dash) { return dash == 0.0; });
    if (hasNegative || (isAllZero && !dashes.empty())) {
        return false;
    }
    if (dashes.size() > limits.dashElements) {
        // A solid line is nearer to what is meant than a pattern that breaks off.
        problems.Limit("dashElements", limits.dashElements, arguments.Place());
        dashes.clear();
        phase = 0.0;
    }
    properties.dashArray = std::move(dashes);
    properties.dashPhase = phase;
    return true;
}

} // namespace OrvPdf
