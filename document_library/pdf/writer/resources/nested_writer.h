#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <boost/filesystem/path.hpp>
#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/matrix_numbers.h"
#include "pdf/writer/content/nested_reference.h"
#include "pdf/writer/file/writing_problems.h"
#include "pdf/writer/resources/kept_contents.h"

namespace OrvBlend
{
class SoftMask;
}

namespace OrvDoc
{
class BlendColorSpace;
class Content;
class Document;
} // namespace OrvDoc

namespace OrvPaint
{
class PatternPaint;
}

namespace OrvPdf
{

class NestedSource;
class ObjectMaker;
class ResourcesWriter;
class SeparationSpaces;

/// Writes the contents that lie inside of others. Each is one object of the file, however often it is used.
/// It is made when it is first asked for and written later, one after the other, so that depth costs no
/// stack. What forms, soft masks and patterns are beside their contents stands in files of their own.
///
/// A content that was read from the same file, and that nobody changed nor what is inside of it, keeps its
/// stream. A form stays the object that it is.
class NestedWriter
{
public:
    /// `givenFolder` is where the file will stand, for what is named relative to it; it may be empty.
    NestedWriter(const OrvDoc::Document& givenDocument, ObjectMaker& givenMaker,
                 SeparationSpaces& givenSeparations, boost::filesystem::path givenFolder)
        : document(givenDocument),
          maker(givenMaker),
          separations(givenSeparations),
          folder(std::move(givenFolder)),
          kept(givenDocument)
    {}

    /// The object of a form. One that was read from the same file, and whose paint nobody changed, stays the
    /// object that it is.
    QPDFObjectHandle GetForm(const FormReference& reference);

    /// The dictionary of a soft mask for those who set it under a matrix that leads to the content's
    /// coordinates.
    QPDFObjectHandle GetMask(const std::shared_ptr<const OrvBlend::SoftMask>& mask, const Matrix& matrix);

    /// The object of a tiling pattern.
    QPDFObjectHandle GetTiling(const std::shared_ptr<const OrvPaint::PatternPaint>& paint);

    /// Whether the content of a page, which nobody changed, may be kept as it stands in the file: what is
    /// inside of it can be.
    bool MayKeepPage(const OrvDoc::Content& content, bool hasUnmodelled, bool isDamaged)
    {
        return kept.MayKeepPage(content, hasUnmodelled, isDamaged);
    }
    /// To be called for a content that is kept: sees to what was changed of the forms inside.
    void Keep(const OrvDoc::Content& content);

    /// Writes what was asked for since the last call, and what that asks for. `place` is where it is used:
    /// "page 3". Returns the texts of the active errors.
    std::vector<std::string> WriteAll(ResourcesWriter& resources, const std::string& place);

private:
    /// A stream that waits for its content.
    struct Task
    {
        /// Either of them.
        std::shared_ptr<const OrvDoc::Content> content;
        const OrvDoc::Group* group = nullptr;
        Matrix base;
        QPDFObjectHandle stream;
    };

    using FormKey = std::tuple<const void*, bool, bool, bool>;

    // nested_writer.cpp
    /// What the content was read from, if that is the file that is written anew.
    const NestedSource* FindSource(const OrvDoc::Content& content) const;
    /// A stream for a content: with its data already if it keeps those of its source, otherwise a task.
    QPDFObjectHandle AddContent(const std::shared_ptr<const OrvDoc::Content>& content);
    void Write(const Task& task, ResourcesWriter& resources, std::vector<std::string>& texts,
               const std::string& place);

    // nested_forms.cpp
    QPDFObjectHandle FindKeptForm(const FormReference& reference);
    /// Makes sure of the form as the file has it, to which one of another kind is tied.
    void GetFormOfFile(const FormReference& reference);
    void MoveReference(QPDFObjectHandle form, const OrvPaint::FormPaint& paint);
    QPDFObjectHandle MakeForm(const FormReference& reference);
    QPDFObjectHandle MakeGroupForm(const FormReference& reference);
    void SetBox(QPDFObjectHandle dictionary,
                const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& box);
    void SetProperties(QPDFObjectHandle dictionary, const OrvPaint::FormPaint& paint);
    /// The page of another file, as seen from where this one will stand.
    void SetReference(QPDFObjectHandle dictionary, const OrvPaint::FormPaint& paint);
    void SetGroup(QPDFObjectHandle dictionary, const FormReference& reference,
                  const OrvDoc::BlendColorSpace& space);

    // nested_masks.cpp
    QPDFObjectHandle MakeMask(const std::shared_ptr<const OrvBlend::SoftMask>& mask, const Matrix& matrix);
    QPDFObjectHandle MakeMaskForm(const OrvBlend::SoftMask& mask, const Matrix& matrix);
    void SetBackdrop(QPDFObjectHandle dictionary, QPDFObjectHandle form, const OrvBlend::SoftMask& mask);

    // nested_tilings.cpp
    /// The object that the pattern was read from, if it can stay as it is; null otherwise.
    QPDFObjectHandle FindKeptTiling(const std::shared_ptr<const OrvPaint::PatternPaint>& paint);
    /// The stream that a content which nobody changed has in the file; null otherwise.
    QPDFObjectHandle FindKeptStream(const OrvDoc::Content& content);
    QPDFObjectHandle MakeTiling(const OrvPaint::PatternPaint& paint);
    void SetTilingProperties(QPDFObjectHandle dictionary, const OrvPaint::PatternPaint& paint);

    /// Patterns that differ in their colour alone are one object, which each of them paints in its own.
    struct TilingObject
    {
        QPDFObjectHandle object;
        std::vector<std::shared_ptr<const OrvPaint::PatternPaint>> paints;
    };

    const OrvDoc::Document& document;
    ObjectMaker& maker;
    SeparationSpaces& separations;
    boost::filesystem::path folder;
    KeptContents kept;
    std::set<const OrvDoc::Content*> seenKept;
    std::map<FormKey, QPDFObjectHandle> forms;
    /// The first object of each paint: others of the same paint name it.
    std::map<const OrvPaint::FormPaint*, QPDFObjectHandle> firstForms;
    struct KnownMask
    {
        Matrix matrix;
        QPDFObjectHandle dictionary;
    };
    std::map<std::shared_ptr<const OrvBlend::SoftMask>, std::vector<KnownMask>> masks;
    /// The form of each drawing that others of the same drawing name.
    std::map<const OrvDoc::Content*, QPDFObjectHandle> drawings;
    std::map<std::shared_ptr<const OrvPaint::PatternPaint>, QPDFObjectHandle> tilings;
    std::map<const OrvDoc::Content*, std::vector<TilingObject>> tilingObjects;
    std::vector<Task> tasks;
    /// So that no address is that of another paint before the end.
    std::vector<FormReference> references;
    WritingProblems problems;
};

} // namespace OrvPdf
