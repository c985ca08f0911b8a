#pragma once

#include <string>

#include <orv_sys/pdf_object.h>

namespace OrvDoc
{

// For makers of documents.

/// A marked-content operator of a file (ISO 32000-1, 14.6) as a group remembers it, so that tagged files stay
/// tagged.
struct MarkedContent
{
    /// The tag, without the slash.
    std::string tag;
    /// The property list: a dictionary, written in the content; a name, if it stands in the resources (then
    /// `resource` has its value); the null object if there is none.
    OrvSys::PdfObject properties;
    /// The value of a property list that is named in the resources; the null object otherwise.
    OrvSys::PdfObject resource;
    /// Object number of a property list in the file that the content was read from; 0 if it has none. An
    /// object that other parts of the file point to has to stay the same object.
    int resourceObject = 0;
    /// A point (`MP`, `DP`) has no objects below it.
    bool isPoint = false;
};

} // namespace OrvDoc
