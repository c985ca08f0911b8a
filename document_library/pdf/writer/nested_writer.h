#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include <boost/filesystem/path.hpp>
#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/writer/nested_reference.h"
#include "pdf/writer/writing_problems.h"

namespace OrvDoc
{
class Content;
class Document;
} // namespace OrvDoc

namespace OrvPdf
{

class ObjectMaker;
class NestedSource;
class ResourcesWriter;
class SeparationSpaces;

/// Writes the contents that lie inside of others. Each is one object of the file, however often it is used.
/// It is made when it is first asked for and written later, one after the other, so that depth costs no
/// stack.
///
/// A form that was read from the same file, and that nobody changed, stays the object that it is.
class NestedWriter
{
public:
    /// `givenFolder` is where the file will stand, for what is named relative to it; it may be empty.
    NestedWriter(const OrvDoc::Document& givenDocument, ObjectMaker& givenMaker,
                 SeparationSpaces& givenSeparations, boost::filesystem::path givenFolder)
        : document(givenDocument),
          maker(givenMaker),
          separations(givenSeparations),
          folder(std::move(givenFolder))
    {}

    /// The object of a form.
    QPDFObjectHandle GetForm(const FormReference& reference);

    /// Writes what was asked for since the last call, and what that asks for. `place` is where it is used:
    /// "page 3". Returns the texts of the active errors.
    std::vector<std::string> WriteAll(ResourcesWriter& resources, const std::string& place);

private:
    using Key = std::tuple<const void*, bool, bool, bool>;

    struct Task
    {
        FormReference reference;
        QPDFObjectHandle stream;
    };

    const NestedSource* FindSource(const FormReference& reference) const;
    QPDFObjectHandle FindKept(const FormReference& reference, bool& isWritten);
    QPDFObjectHandle MakeForm(const FormReference& reference);
    void SetBox(QPDFObjectHandle dictionary, const FormReference& reference);
    void SetProperties(QPDFObjectHandle dictionary, const OrvPaint::FormPaint& paint);
    /// The page of another file, as seen from where this one will stand.
    void SetReference(QPDFObjectHandle dictionary, const OrvPaint::FormPaint& paint);
    void SetGroup(QPDFObjectHandle dictionary, const FormReference& reference);
    void Write(Task& task, ResourcesWriter& resources, std::vector<std::string>& texts,
               const std::string& place);

    const OrvDoc::Document& document;
    ObjectMaker& maker;
    SeparationSpaces& separations;
    boost::filesystem::path folder;
    std::map<Key, QPDFObjectHandle> forms;
    /// The first object of each paint: others of the same paint name it.
    std::map<const OrvPaint::FormPaint*, QPDFObjectHandle> firstForms;
    std::set<int> rewrittenObjects;
    std::vector<Task> tasks;
    /// So that no address is that of another paint before the end.
    std::vector<FormReference> references;
    WritingProblems problems;
};

} // namespace OrvPdf
