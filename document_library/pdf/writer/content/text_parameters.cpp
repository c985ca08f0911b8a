#include "pdf/writer/content/text_parameters.h"

#include "pdf/matrix_numbers.h"
#include "pdf/number_text.h"

namespace OrvPdf
{

namespace
{

void AppendChange(std::string& out, double from, double to, int shift, const char* operatorText)
{
    if (!AreIdentical(from, to)) {
        AppendNumber(out, to, shift);
        out.append(operatorText);
    }
}

} // namespace

TextParameters TextParameters::Unknown()
{
    constexpr double unknown = std::numeric_limits<double>::quiet_NaN();
    TextParameters parameters;
    parameters.size = unknown;
    parameters.characterSpacing = unknown;
    parameters.wordSpacing = unknown;
    parameters.scale = unknown;
    parameters.rise = unknown;
    parameters.mode = unknownMode;
    return parameters;
}

void AppendTextParameters(std::string& out, const TextParameters& from, const TextParameters& to)
{
    if (to.font != TextParameters::noFont && (from.font != to.font || !AreIdentical(from.size, to.size))) {
        out.append("/f").append(std::to_string(to.font)).push_back(' ');
        AppendNumber(out, to.size, 0);
        out.append(" Tf\n");
    }
    // Percentages, of which the model has the fraction.
    constexpr int hundredths = -2;
    AppendChange(out, from.characterSpacing, to.characterSpacing, 0, " Tc\n");
    AppendChange(out, from.wordSpacing, to.wordSpacing, 0, " Tw\n");
    AppendChange(out, from.scale, to.scale, hundredths, " Tz\n");
    AppendChange(out, from.rise, to.rise, 0, " Ts\n");
    if (from.mode != to.mode) {
        out.append(std::to_string(to.mode)).append(" Tr\n");
    }
}

} // namespace OrvPdf
