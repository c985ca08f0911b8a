#include "pdf/reader/content/neutral_parameters.h"

namespace OrvPdf
{

using OrvSys::PdfObject;

bool IsNeutralParameter(const std::string& key, const PdfObject& value)
{
    if (key == "Type") {
        return true;
    }
    if (key == "SA") {
        return value.IsBoolean() && !value.GetBoolean();
    }
    if (key == "TK") {
        return value.IsBoolean() && value.GetBoolean();
    }
    if (key == "RI") {
        return value.IsName("RelativeColorimetric");
    }
    if (key == "FL") {
        // Zero asks for the device's own flatness, one is the initial value; both leave the drawing as it is.
        return value.IsNumber() && value.GetNumber() >= 0.0 && value.GetNumber() <= 1.0;
    }
    if (key == "BG2" || key == "UCR2" || key == "UseBlackPtComp") {
        return value.IsName("Default");
    }
    if (key == "HTO") {
        return value.IsArray() && value.GetItems().size() == 2 && value.GetItems()[0].IsNumber() &&
               value.GetItems()[1].IsNumber() && value.GetItems()[0].GetNumber() == 0.0 &&
               value.GetItems()[1].GetNumber() == 0.0;
    }
    return false;
}

} // namespace OrvPdf
