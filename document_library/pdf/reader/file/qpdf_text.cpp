#include "pdf/reader/file/qpdf_text.h"

#include <algorithm>

namespace OrvPdf
{

std::string DescribeObject(QPDFObjectHandle object)
{
    if (object.isIndirect())
        return "object " + std::to_string(object.getObjectID()) + " " +
               std::to_string(object.getGeneration());
    return std::string("a direct ") + (object.isInitialized() ? object.getTypeName() : "null");
}

QPDFObjectHandle GetEntry(QPDFObjectHandle object, const char* key)
{
    if (object.isInitialized() && object.isDictionary())
        return object.getKey(key);
    if (object.isInitialized() && object.isStream())
        return object.getDict().getKey(key);
    return QPDFObjectHandle::newNull();
}

QPDFObjectHandle GetNamedEntry(QPDFObjectHandle object, const std::string& name)
{
    std::string key = "/" + name;
    QPDFObjectHandle entry = GetEntry(object, key.c_str());
    if (!entry.isNull() || name.find('#') == std::string::npos || !object.isDictionary()) {
        return entry;
    }
    // Some of the number signs may begin no escape where the key stands.
    for (const std::string& candidate : object.getKeys()) {
        if (WithoutSlash(candidate) == name) {
            return object.getKey(candidate);
        }
    }
    return entry;
}

std::string WithoutSlash(const std::string& name)
{
    std::string text = !name.empty() && name.front() == '/' ? name.substr(1) : name;
    // How the PDF library keeps a number sign that begins no escape.
    std::replace(text.begin(), text.end(), '\0', '#');
    return text;
}

std::string GetNameText(QPDFObjectHandle object)
{
    return object.isInitialized() && object.isName() ? WithoutSlash(object.getName()) : std::string();
}

bool IsTrue(QPDFObjectHandle object)
{
    return object.isBool() && object.getBoolValue();
}

std::string GetTextString(QPDFObjectHandle object)
{
    return object.isInitialized() && object.isString() ? object.getUTF8Value() : std::string();
}

bool GetNumberText(QPDFObjectHandle object, std::string& text)
{
    if (!object.isInitialized())
        return false;
    if (object.isInteger())
        text = std::to_string(object.getIntValue());
    else if (object.isReal())
        text = object.getRealValue();
    else
        return false;
    return true;
}

std::string DescribeProblem(const QPDFExc& problem)
{
    std::string text = problem.getObject();
    if (problem.getFilePosition() > 0)
        text += (text.empty() ? "offset " : ", offset ") + std::to_string(problem.getFilePosition());
    if (!text.empty())
        text += ": ";
    return text + problem.getMessageDetail();
}

} // namespace OrvPdf
