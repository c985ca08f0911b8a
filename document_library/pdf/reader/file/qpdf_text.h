#pragma once

#include <string>

#include <qpdf/QPDFExc.hh>
#include <qpdf/QPDFObjectHandle.hh>

namespace OrvPdf
{

/// How an error names an object: "object 12 0", or "a direct dictionary" and the like.
std::string DescribeObject(QPDFObjectHandle object);

/// The value at `key`, slash included, of a dictionary or a stream's dictionary; a null object if there is
/// none or if this is neither.
QPDFObjectHandle GetEntry(QPDFObjectHandle object, const char* key);

/// The value at a name as a content stream has it, without slash; a null object if there is none. A number
/// sign that begins no escape is itself, in the dictionary as well.
QPDFObjectHandle GetNamedEntry(QPDFObjectHandle object, const std::string& name);

/// A name or dictionary key without its slash.
std::string WithoutSlash(const std::string& name);

/// The name in a handle without its slash; empty if it holds no name.
std::string GetNameText(QPDFObjectHandle object);

/// Whether it is the boolean true.
bool IsTrue(QPDFObjectHandle object);

/// A text string as UTF-8; empty if it holds no string.
std::string GetTextString(QPDFObjectHandle object);

/// Sets `text` to the number's text as the file has it. False if it holds no number.
bool GetNumberText(QPDFObjectHandle object, std::string& text);

/// A problem that the PDF library met, without the file's name: "object 3 0, offset 120: expected endobj".
std::string DescribeProblem(const QPDFExc& problem);

} // namespace OrvPdf
