#pragma once

#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include <orv_blend/transparency.h>
#include <orv_doc/group.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/marked_content.h>
#include <orv_doc/path.h>
#include <orv_doc/shown_text.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>
#include <orv_doc/visitor.h>

#include "pdf/writer/content/content_writer.h"
#include "pdf/writer/content/membership_index.h"
#include "pdf/writer/content/property_list_index.h"

namespace OrvPdf
{

class ForeignObjects;
class GlyphSource;

/// The matrix that all texts of a text group stand under; null if there is no such one, if it has no inverse,
/// or if the group holds something else.
const Matrix* FindSharedMatrix(const OrvDoc::TextGroup& group);

/// Whether a text group can clip in a file: it holds texts and nothing else, and they can be written.
bool CanClip(const OrvDoc::TextGroup& group);

/// Whether an object is a path, or a text group that can, and clips its container.
bool IsClip(const OrvDoc::ContentObject& object);

/// A paint as it was last asked for.
struct KnownPaint
{
    const OrvPaint::Paint* paint = nullptr;
    PaintSettings settings;
};

/// A clipping path whose operators are ready, or a text group.
struct Clip
{
    const OrvDoc::Path* path = nullptr;
    std::string operators;
    const OrvDoc::TextGroup* texts = nullptr;

    const OrvDoc::Transformable& GetObject() const;
    /// That which the clip stands under.
    const Matrix& GetMatrix() const;
};

/// Where the content of an object comes from that showing a character of a font of the file paints; null for
/// others.
const GlyphSource* FindShownGlyph(const OrvDoc::Path& path);

/// The objects of a content with parameters that the model has no place for; null if there are none.
const ForeignObjects* FindForeignObjects(const OrvDoc::Content& content);

/// Whether a text group says more than which texts it holds.
bool HasAttributesOfGroup(const OrvDoc::TextGroup& group);

/// What the graphics state says of an object that paints.
struct ObjectPainting
{
    const PaintSettings* fill = nullptr;
    const PaintSettings* stroke = nullptr;
    /// What one of them is instead, where both can't be in force.
    PaintSettings changed;
    OrvBlend::Transparency blending;
    std::shared_ptr<OrvDoc::HalftoneSet> halftones;

    bool IsPainted() const { return fill || stroke; }
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
    /// Its texts belong to the text group that it says it is.
    bool isTextGroup = false;
    bool endsTextObject = false;
    /// Those that a level is open for; null for none.
    const OrvSys::PdfObject* foreignParameters = nullptr;
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
          patterns(separations),
          fonts(givenResult.fonts)
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
    bool Visit(const OrvDoc::Image& image) override;
    bool Visit(const OrvDoc::ImageMask& mask) override;
    bool Visit(const OrvDoc::Text& text) override;
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

    // What the model has no place for. It stands in levels of its own, since most of it has no value that
    // takes it back.
    void EnterForeignParameters(const OrvDoc::ContentObject& object);
    /// Leaves the shared matrix too, which stands inside.
    void LeaveForeignParameters();
    /// The index in the resources.
    std::size_t AddForeignParameters(const OrvSys::PdfObject& parameters);

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

    // Glyphs that are contents. False, and nothing is written, if the object is none.
    bool WriteGlyph(const OrvDoc::Path& path);

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
                                     const OrvDoc::ContentObject& object, const char* unwritten);
    /// Sets the state for an object and goes under its matrix. False, and the reason is told, if it can't be
    /// written.
    bool SetPainting(const OrvDoc::Strokable& object, ObjectPainting& painting);

    // Pictures.
    void WritePicture(const OrvDoc::Blendable& object, const ObjectPainting& painting, bool setsColor,
                      std::vector<const char*> flags, const UsedPicture& picture);
    void AppendPicture(const UsedPicture& picture);

    // Texts.
    void AppendText(const OrvDoc::Text& text, const OrvDoc::ShownText& shown, int mode,
                    bool isUnderItsMatrix = true);
    std::size_t UseFont(const std::shared_ptr<const OrvFont::Font>& font, const OrvDoc::ShownText& shown);
    bool TryTextObject(const OrvDoc::TextGroup& group);
    void AppendTextClip(const OrvDoc::TextGroup& group);

    // Objects of any class.
    /// `flags` are keys of booleans. False, and nothing is written, if there is nothing to say, unless that
    /// has to be said.
    bool BeginObject(const OrvDoc::ContentObject& object, const std::vector<const char*>& flags,
                     bool isNeeded = false);
    /// Leaves the matrix in force as far as an object under that matrix needs: a soft mask has to be set
    /// under the matrix of the container. False if there is no way out.
    bool GoToMatrix(const Matrix& wanted, const std::function<ExtGState()>& findParameters, bool isPainted,
                    const OrvDoc::ContentObject& object);
    /// What the graphics state can say of an object's transparency.
    OrvBlend::Transparency GetBlending(const OrvDoc::Blendable& object);
    /// Null if it has none that a file can hold.
    std::shared_ptr<OrvDoc::HalftoneSet> GetHalftones(const OrvDoc::ContentObject& object,
                                                      const std::shared_ptr<OrvDoc::HalftoneSet>& halftones);
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
    std::map<const void*, std::size_t> pictureIndices;
    std::unordered_multimap<std::uint64_t, std::size_t> foreignIndices;
    /// The group that the form is for; null if it is for none.
    const OrvDoc::Group* groupOfForm = nullptr;
    /// Of the content that the objects stand in; null if there are none.
    const ForeignObjects* foreignObjects = nullptr;
    UsedFonts fonts;
    /// A text object is open: matrices and levels stay as they are.
    bool isInTextObject = false;
    /// Something was shown in it already.
    bool hasTextBefore = false;
};

} // namespace OrvPdf
