#pragma once

#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include <orv_doc/group.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/marked_content.h>
#include <orv_doc/path.h>
#include <orv_doc/text.h>
#include <orv_doc/visitor.h>

#include "pdf/writer/content_writer.h"
#include "pdf/writer/membership_index.h"
#include "pdf/writer/property_list_index.h"

namespace OrvPdf
{

/// Whether an object is a path that clips its container. A text group that clips is none.
bool IsPathClip(const OrvDoc::ContentObject& object);

/// A paint as it was last asked for.
struct KnownPaint
{
    const OrvPaint::Paint* paint = nullptr;
    PaintSettings settings;
};

/// A clipping path whose operators are ready.
struct Clip
{
    const OrvDoc::Path* path;
    std::string operators;
};

/// A container that is being written.
struct Container
{
    const OrvDoc::ContentObject* next;
    bool skipsClips = false;
    bool endsLevel = false;
    bool endsMark = false;
    /// A level is open for the matrix of the last objects alone.
    bool isMatrixShared = false;
};

/// The walk through a content that writes it; see `WriteContent`. Containers stand in `content_walk.cpp`,
/// groups and paths in files of their own.
class ContentWalk : private OrvDoc::ConstVisitorBase
{
public:
    ContentWalk(WrittenContent& givenResult, SeparationSpaces& separations, ContentStart start)
        : result(givenResult),
          out(givenResult.bytes),
          states(givenResult.bytes, start),
          colors(separations),
          patterns(separations)
    {}

    void Write(const OrvDoc::Content& content);
    /// Writes a group alone, without its transparency: that is the one of the form that holds it.
    /// `base` leads from the container around it to the coordinates of the content.
    void Write(const OrvDoc::Group& group, const Matrix& base);

private:
    using OrvDoc::ConstVisitorBase::Visit;

    // None of them lets the visitor go on below: the walk has its own stack.
    bool Visit(const OrvDoc::Path& path) override;
    bool Visit(const OrvDoc::Group& group) override;
    bool Visit(const OrvDoc::TextGroup& group) override;
    bool Visit(const OrvDoc::Layer& layer) override;
    bool Visit(const OrvDoc::Image& image) override { return Refuse(image, "images are not written yet"); }
    bool Visit(const OrvDoc::ImageMask& mask) override
    {
        return Refuse(mask, "image masks are not written yet");
    }
    bool Visit(const OrvDoc::Text& text) override { return Refuse(text, "texts are not written yet"); }
    bool Visit(const OrvDoc::ContentObject& object) override
    {
        return Refuse(object, "objects of a class that the library does not know cannot be written");
    }

    bool Refuse(const OrvDoc::ContentObject& object, const char* reason);

    // Matrices.
    bool LeaveMatrix(const Matrix& wanted, const OrvDoc::ContentObject& object);
    void LeaveSharedMatrix();
    void PrepareGroup(const OrvDoc::Group& group);
    void EnterMatrix(const Matrix& wanted);

    // Containers.
    void BeginTransferFunctions(const OrvDoc::Content& content);
    void BeginContent(const OrvDoc::Content& content);
    void EndContainer();
    void BeginGroup(const OrvDoc::Group& group, const char* tag);
    void BeginMarkedGroup(const OrvDoc::Group& group, const OrvDoc::MarkedContent& mark);
    void BeginInside(const OrvDoc::Group& group, const Matrix& matrix, const std::vector<Clip>& clips);
    bool TryClipGroup(const OrvDoc::Group& group);
    bool GetGroupMatrix(const OrvDoc::Group& group, Matrix& matrix);
    std::string GetAttributes(const OrvDoc::Group& group, const Matrix& matrix, std::size_t clipCount) const;

    // Clips.
    std::vector<Clip> MakeClips(const OrvDoc::ContentObject* first);
    bool MakePath(const OrvDoc::Path& path);
    void AppendClips(const std::vector<Clip>& clips);
    void AppendClip(const Clip& clip);

    // Forms.
    bool WriteForm(const OrvDoc::Path& path);
    bool WriteAsForm(const OrvDoc::Group& group);
    /// What the form depends on of the state around; it may be null.
    void SetFormState(const OrvPaint::FormPaint& form);
    void AppendDo(const FormReference& reference);
    void Finish();
    void WriteContainers();

    // Paths.
    const PaintSettings* FindSettings(const std::shared_ptr<const OrvPaint::Paint>& paint,
                                      const char*& problem);
    const PaintSettings* GetSettings(KnownPaint& known, const std::shared_ptr<const OrvPaint::Paint>& paint,
                                     const OrvDoc::Path& path, const char* unwritten);

    // Objects of any class.
    /// `flags` are keys of booleans. False, and nothing is written, if there is nothing to say.
    bool BeginObject(const OrvDoc::ContentObject& object, const std::vector<const char*>& flags);
    /// Leaves the matrix in force as far as an object under that matrix needs: a soft mask has to be set
    /// under the matrix of the container. False if there is no way out.
    bool GoToMatrix(const Matrix& wanted, const std::function<ExtGState()>& findParameters, bool isPainted,
                    const OrvDoc::ContentObject& object);
    /// What the graphics state can say of an object's transparency.
    OrvBlend::Transparency GetBlending(const OrvDoc::Blendable& object);
    /// Null if it has none that a file can hold.
    std::shared_ptr<OrvDoc::HalftoneSet> GetHalftones(const OrvDoc::Fillable& object);
    /// What the graphics state can't say of a transparency, for `BeginObject`.
    static std::vector<const char*> GetBlendingFlags(const OrvDoc::Blendable& object,
                                                     const OrvBlend::Transparency& written);

    WrittenContent& result;
    std::string& out;
    GraphicsStateWriter states;
    PaintColors colors;
    PaintPatterns patterns;
    MembershipIndex memberships;
    PropertyListIndex propertyLists;
    std::vector<Container> containers;
    KnownPaint fill;
    KnownPaint stroke;
    std::string pathOperators;
    std::map<std::tuple<const void*, bool, bool, bool>, std::size_t> formIndices;
    /// The group that the form is for; null if it is for none.
    const OrvDoc::Group* groupOfForm = nullptr;
};

} // namespace OrvPdf
