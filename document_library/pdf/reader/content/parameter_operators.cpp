#include "pdf/halftone_definition.h"
#include "pdf/number_text.h"
#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"
#include "pdf/reader/content/neutral_parameters.h"
#include "pdf/transfer_definition.h"

namespace OrvPdf
{

namespace
{

using OrvSys::PdfObject;

// A number in points, as milli-points: the shift happens on its decimal text.
double MilliPoints(const PdfObject& number)
{
    double value = 0.0;
    ParseNumber(number.Serialize(), 3, value);
    return value;
}

/// Whether a parameter is read together with others and not by itself.
bool IsPartOfOthers(const std::string& key)
{
    return key == "HT" || key == halftoneNameKey || key == "TR" || key == "TR2" ||
           key == transferFunctionsKey;
}

/// The parameter that a key sets, as a bit of what is taken over from around a form.
std::uint32_t ParameterBit(const std::string& key)
{
    if (key == "LW") {
        return Inherited::lineWidth;
    }
    if (key == "LC") {
        return Inherited::lineCap;
    }
    if (key == "LJ") {
        return Inherited::lineJoin;
    }
    if (key == "ML") {
        return Inherited::miterLimit;
    }
    if (key == "D") {
        return Inherited::dash;
    }
    if (key == "OP") {
        return Inherited::strokeOverprint;
    }
    return key == "op" ? Inherited::fillOverprint : Inherited::overprintMode;
}

bool IsCapOrJoin(double number)
{
    return number == 0.0 || number == 1.0 || number == 2.0;
}

} // namespace

void Interpreter::SetRenderingIntent(const Arguments& arguments)
{
    const std::string name(arguments[0].Text());
    TakeRenderingIntent(name);
    ApplyForeignParameters({{"RI", PdfObject::Name(name)}}, arguments);
}

void Interpreter::TakeRenderingIntent(const std::string& name)
{
    state.inherited &= ~Inherited::renderingIntent;
    // A name that nobody knows stands for the default (ISO 32000-1, 8.6.5.8).
    state.intent =
        OrvColor::FindRenderingIntent(name).value_or(OrvColor::RenderingIntent::RelativeColorimetric);
}

void Interpreter::SetFlatness(const Arguments& arguments)
{
    const double flatness = arguments[0].AsNumber();
    if (flatness < 0.0 || flatness > 100.0) {
        problems.Damaged("i", "a flatness outside of 0 to 100", {}, arguments.Place());
    } else {
        ApplyForeignParameters({{"FL", PdfObject::Real(flatness)}}, arguments);
    }
}

void Interpreter::SetParameters(const Arguments& arguments)
{
    const std::string_view name = arguments[0].Text();
    const auto& found = parameterLists.Get(name, [this](const std::string& key, std::string& problem) {
        return resources.FindGraphicsState(key, problem);
    });
    if (!found.problem.empty() || !found.value.IsDictionary()) {
        problems.Unmodelled("gs",
                            "resource /" + Readable(name) + ": " +
                                (found.problem.empty() ? "it is no dictionary" : found.problem),
                            {}, arguments.Place());
        return;
    }
    const PdfObject parameters = found.value;
    // Where `op` is missing, `OP` counts for filling too (ISO 32000-1, table 58).
    const PdfObject overprint = parameters.Find("OP");
    if (overprint.IsBoolean() && parameters.Find("op").IsNull()) {
        ApplyOverprintParameter("op", overprint);
    }
    ApplyHalftones(parameters, arguments);
    ApplyTransferFunctions(parameters, arguments);
    PdfObject::Entries foreign;
    for (const auto& [key, value] : parameters.GetEntries()) {
        ApplyParameter(key, value, foreign, arguments);
    }
    ApplyForeignParameters(std::move(foreign), arguments);
}

void Interpreter::ApplyParameter(const std::string& key, const PdfObject& value, PdfObject::Entries& foreign,
                                 const Arguments& arguments)
{
    bool isWell = true;
    if (key == "RI" && value.IsName()) {
        TakeRenderingIntent(value.GetText());
    }
    if (key == "LW" || key == "LC" || key == "LJ" || key == "ML") {
        isWell = ApplyStrokeParameter(key, value);
    } else if (key == "D") {
        isWell = ApplyDashParameter(value, arguments);
    } else if (key == "OP" || key == "op" || key == "OPM") {
        isWell = ApplyOverprintParameter(key, value);
    } else if (key == "SMask") {
        isWell = ApplySoftMask(value, arguments);
    } else if (key == "Font") {
        ApplyFont(arguments);
    } else if (key == "BM" || key == "CA" || key == "ca" || key == "AIS") {
        isWell = ApplyBlendParameter(key, value, arguments);
    } else if (IsPartOfOthers(key) || key == "Type") {
        // Told where the others are.
    } else if (value.IsName(unresolvedValue)) {
        problems.Unmodelled("gs", "parameter " + Readable(key) + " cannot be read", {}, arguments.Place());
    } else {
        foreign[key] = value;
    }
    if (!isWell) {
        problems.Odd("gs", "parameter " + key + " is malformed and left out", {}, arguments.Place());
    }
}

// A page begins with the initial values. Another content may be painted where they are others, so that there
// also those count that seem to change nothing.
void Interpreter::ApplyForeignParameters(PdfObject::Entries parameters, const Arguments& arguments)
{
    for (auto& [key, value] : parameters) {
        if (!beginsWithUnknownState && IsNeutralParameter(key, value)) {
            value = PdfObject::Null();
        }
    }
    if (!foreignParameters.Change(state.foreign, parameters)) {
        problems.Unmodelled(arguments.OperatorText(),
                            "there are too many parameters that the model has no place for", {},
                            arguments.Place());
    }
}

bool Interpreter::ApplyStrokeParameter(const std::string& key, const PdfObject& value)
{
    if (!value.IsNumber()) {
        return false;
    }
    OrvDoc::StrokeProperties properties = *state.strokeProperties;
    const double number = value.GetNumber();
    bool isWell = true;
    if (key == "LW") {
        properties.width = MilliPoints(value);
        isWell = properties.width >= 0.0;
    } else if (key == "ML") {
        properties.miterLimit = number;
        isWell = number > 0.0;
    } else if (!IsCapOrJoin(number)) {
        isWell = false;
    } else if (key == "LC") {
        properties.cap = static_cast<OrvDoc::LineCap>(static_cast<int>(number));
    } else {
        properties.join = static_cast<OrvDoc::LineJoin>(static_cast<int>(number));
    }
    if (isWell) {
        state.inherited &= ~ParameterBit(key);
        ChangeStroke(std::move(properties));
    }
    return isWell;
}

bool Interpreter::ApplyDashParameter(const PdfObject& value, const Arguments& arguments)
{
    if (!value.IsArray() || value.GetItems().size() != 2 || !value.GetItems()[0].IsArray() ||
        !value.GetItems()[1].IsNumber()) {
        return false;
    }
    std::vector<double> dashes;
    for (const PdfObject& dash : value.GetItems()[0].GetItems()) {
        if (!dash.IsNumber()) {
            return false;
        }
        dashes.push_back(MilliPoints(dash));
    }
    OrvDoc::StrokeProperties properties = *state.strokeProperties;
    if (!SetDashPattern(properties, std::move(dashes), MilliPoints(value.GetItems()[1]), arguments)) {
        return false;
    }
    state.inherited &= ~ParameterBit("D");
    ChangeStroke(std::move(properties));
    return true;
}

void Interpreter::ApplyFont(const Arguments& arguments)
{
    const std::string_view name = arguments[0].Text();
    const auto& found = fontsOfStates.Get(name, [this](const std::string& key, std::string& problem) {
        return resources.FindFontOfState(key, problem);
    });
    TakeFont(found.value.font, found.value.size, found.problem, arguments);
}

bool Interpreter::ApplyOverprintParameter(const std::string& key, const PdfObject& value)
{
    if (key == "OPM") {
        const bool isWell = value.IsNumber() && (value.GetNumber() == 0.0 || value.GetNumber() == 1.0);
        const bool isNonzero = isWell && value.GetNumber() == 1.0;
        state.inherited &= isWell ? ~ParameterBit(key) : ~0U;
        if (isWell && isNonzero != state.nonzeroOverprint) {
            state.nonzeroOverprint = isNonzero;
            state.fill.paint = nullptr;
            state.stroke.paint = nullptr;
        }
        return isWell;
    }
    if (!value.IsBoolean()) {
        return false;
    }
    state.inherited &= ~ParameterBit(key);
    PaintSetting& setting = key == "OP" ? state.stroke : state.fill;
    if (setting.overprint != value.GetBoolean()) {
        setting.overprint = value.GetBoolean();
        setting.paint = nullptr;
    }
    return true;
}

} // namespace OrvPdf
