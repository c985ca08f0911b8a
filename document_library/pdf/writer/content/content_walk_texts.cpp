#include "pdf/writer/content/content_walk.h"

#include <algorithm>
#include <cmath>
#include <typeinfo>

#include <orv_font/font.h>

#include "orv_font/font_source.h"
#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/reader/content/foreign_parameters.h"
#include "pdf/writer/content/content_text.h"
#include "pdf/writer/content/text_operators.h"

namespace OrvPdf
{

using OrvDoc::ContentObject;
using OrvDoc::Group;
using OrvDoc::ShownText;
using OrvDoc::Text;
using OrvDoc::TextGroup;

namespace
{

// Text rendering modes (ISO 32000-1, table 106).
constexpr int invisibleMode = 3;
constexpr int clipMode = 7;

int GetMode(const ObjectPainting& painting)
{
    if (painting.fill) {
        return painting.stroke ? 2 : 0;
    }
    return painting.stroke ? 1 : invisibleMode;
}

/// Real files nest the marks inside of a text object two or three deep.
constexpr int maximumMarkDepth = 8;

/// Whether a group is marked content of another program and nothing else.
bool IsMereMark(const Group& group)
{
    return group.GetMarkedContent() && typeid(group) == typeid(Group) && group.GetName().empty() &&
           group.GetFlags() == Group::Flags::Default && !group.GetTransparency() &&
           Plexa::IsIdentity(group.GetTransformation());
}

/// What stands around all objects of a text object.
class TextSurroundings
{
public:
    explicit TextSurroundings(const ForeignObjects* objects) : foreignObjects(objects) {}

    /// One of the objects; null if there is none yet.
    const ContentObject* object = nullptr;
    Matrix matrix;

    /// Whether another object can stand there as well.
    bool Fits(const ContentObject& other, const Matrix& itsMatrix)
    {
        if (!object) {
            object = &other;
            matrix = itsMatrix;
        }
        return AreIdentical(matrix, itsMatrix) &&
               AreSameForeignParameters(FindForeignParameters(*object), FindForeignParameters(other));
    }

private:
    const OrvSys::PdfObject* FindForeignParameters(const ContentObject& ofObject) const
    {
        return foreignObjects ? foreignObjects->Find(ofObject.GetID()) : nullptr;
    }

    const ForeignObjects* foreignObjects;
};

/// Whether all that a group holds can stand in one text object there: texts, and marks around texts. A soft
/// mask is set under the matrix of the container, which nothing leads to from there.
bool FitsTextObject(const Group& group, TextSurroundings& around, int depth)
{
    for (const ContentObject* object = group.children.first; object; object = object->next) {
        if (const auto* const text = dynamic_cast<const Text*>(object)) {
            const bool hasMask = text->GetTransparency() && text->GetTransparency()->softMask;
            if (!around.Fits(*text, text->GetTransformation()) || hasMask) {
                return false;
            }
            continue;
        }
        const auto* const path = dynamic_cast<const OrvDoc::Path*>(object);
        if (path && FindShownGlyph(*path)) {
            if (!around.Fits(*path, Matrix())) {
                return false;
            }
            continue;
        }
        const auto* const inner = dynamic_cast<const Group*>(object);
        if (!inner || depth == 0 || !IsMereMark(*inner) || !FitsTextObject(*inner, around, depth - 1)) {
            return false;
        }
    }
    return true;
}

/// Whether the font reads the codes as the characters of the text.
bool ReadsSameCharacters(const Text& text, const ShownText& shown)
{
    if (text.GetShownText()) {
        return true;
    }
    std::vector<OrvFont::Character> read;
    text.GetFont()->GetSource().Decode(shown.GetCodes(), read);
    const auto isSame = [](const OrvDoc::TextCharacter& wanted, const OrvFont::Character& found) {
        return wanted.character.code == found.code && wanted.character.codeBytes == found.codeBytes;
    };
    return std::equal(text.GetText().begin(), text.GetText().end(), read.begin(), read.end(), isSame);
}

bool HasSourcesOrFlags(const Text& text)
{
    const auto has = [](const OrvDoc::TextCharacter& character) {
        return character.source != 0 || character.flags != 0;
    };
    return !text.GetShownText() && std::any_of(text.GetText().begin(), text.GetText().end(), has);
}

/// Why a text cannot be written; null if it can.
const char* FindProblem(const Text& text, const ShownText& shown)
{
    const bool isFinite = std::isfinite(text.GetSize()) && std::isfinite(text.GetCharSpacing().value) &&
                          std::isfinite(text.GetWordSpacing().value) &&
                          IsFinite(text.GetTextTransformation()) && IsFinite(text.GetTransformation());
    if (!isFinite || !shown.IsFinite()) {
        return "texts with infinite numbers cannot be written";
    }
    if (!ReadsSameCharacters(text, shown)) {
        return "texts with characters that their font does not have cannot be written";
    }
    if (!CanShow(shown, text.GetTextTransformation())) {
        return "texts with a matrix without inverse whose characters are placed one by one cannot be written";
    }
    return nullptr;
}

} // namespace

bool HasAttributesOfGroup(const TextGroup& group)
{
    return !group.GetName().empty() || group.GetFlags() != Group::Flags::Default ||
           group.GetMarkedContent() || group.GetTransparency() ||
           !Plexa::IsIdentity(group.GetTransformation());
}

std::size_t ContentWalk::UseFont(const std::shared_ptr<const OrvFont::Font>& font, const ShownText& shown)
{
    const std::size_t place = fonts.Add(font);
    std::vector<OrvFont::Character> characters;
    font->GetSource().Decode(shown.GetCodes(), characters);
    for (const OrvFont::Character& character : characters) {
        fonts.AddCode(place, character.code);
    }
    return place;
}

void ContentWalk::AppendText(const Text& text, const ShownText& shown, int mode, bool isUnderItsMatrix)
{
    const TextParameters before = states.GetText();
    TextParameters parameters = before;
    parameters.font = UseFont(text.GetFont(), shown);
    parameters.size = text.GetSize();
    parameters.characterSpacing = text.GetCharSpacing().value;
    parameters.wordSpacing = text.GetWordSpacing().value;
    parameters.mode = mode;
    states.SetText(parameters);
    // A reader takes for one text what nothing between tells apart.
    TextMark mark;
    mark.isNeeded = hasTextBefore && parameters.font == before.font &&
                    AreIdentical(parameters.size, before.size) &&
                    AreIdentical(parameters.characterSpacing, before.characterSpacing) &&
                    AreIdentical(parameters.wordSpacing, before.wordSpacing) && mode == before.mode;
    if (isUnderItsMatrix) {
        AppendShownText(out, shown, text.GetTextTransformation(), parameters, mark);
    } else {
        mark.ownMatrix = &text.GetTextTransformation();
        mark.objectMatrix = &text.GetTransformation();
        AppendShownText(out, shown, Plexa::Concatenate(*mark.ownMatrix, *mark.objectMatrix), parameters,
                        mark);
    }
    states.NoteText(parameters);
    hasTextBefore = true;
}

bool ContentWalk::Visit(const Text& text)
{
    const ShownText shown = GetShownText(text);
    ObjectPainting painting;
    if (const char* const problem = FindProblem(text, shown)) {
        return Refuse(text, problem);
    }
    if (!SetPainting(text, painting)) {
        return false;
    }
    if (HasSourcesOrFlags(text)) {
        Refuse(text, "sources and flags of characters are left out");
    }
    std::vector<const char*> flags = GetBlendingFlags(text, painting.blending);
    if (painting.halftones && !painting.IsPainted()) {
        flags.push_back(Tags::halftonesKey);
    }
    if (shown.IsEmpty()) {
        flags.push_back(Tags::emptyKey);
    }
    // Elsewhere a text object would be a text group.
    const bool isAlone = !isInTextObject && !containers.back().isTextGroup;
    const bool isMarked = BeginObject(text, flags, isAlone);
    if (!isInTextObject) {
        out.append("BT\n");
        hasTextBefore = false;
    }
    AppendText(text, shown, GetMode(painting));
    out.append(shown.IsEmpty() ? "() Tj\n" : "");
    out.append(isInTextObject ? "" : "ET\n");
    out.append(isMarked ? "EMC\n" : "");
    return false;
}

bool ContentWalk::TryTextObject(const TextGroup& group)
{
    TextSurroundings around(foreignObjects);
    if (group.IsClippingObject() || HasAttributesOfGroup(group) || containers.back().isTextGroup ||
        !FitsTextObject(group, around, maximumMarkDepth)) {
        return false;
    }
    if (around.object) {
        EnterForeignParameters(*around.object);
    }
    const Matrix wanted = around.object && IsFinite(around.matrix) ? around.matrix : states.GetMatrix();
    if (!LeaveMatrix(wanted, group)) {
        return true;
    }
    EnterMatrix(wanted);
    out.append("BT\n");
    hasTextBefore = false;
    Container container{group.children.first};
    container.endsTextObject = true;
    containers.push_back(container);
    isInTextObject = true;
    return true;
}

const Matrix* FindSharedMatrix(const TextGroup& group)
{
    const Matrix* matrix = nullptr;
    for (const ContentObject* object = group.children.first; object; object = object->next) {
        const auto* const text = dynamic_cast<const Text*>(object);
        if (!text || (matrix && !AreIdentical(*matrix, text->GetTransformation()))) {
            return nullptr;
        }
        matrix = &text->GetTransformation();
    }
    return matrix && Plexa::Inverse(*matrix) ? matrix : nullptr;
}

bool CanClip(const TextGroup& group)
{
    const bool isShared = FindSharedMatrix(group) != nullptr;
    for (const ContentObject* object = group.children.first; object; object = object->next) {
        const auto* const text = dynamic_cast<const Text*>(object);
        if (!text) {
            return false;
        }
        const ShownText shown = GetShownText(*text);
        const Matrix whole = Plexa::Concatenate(text->GetTextTransformation(), text->GetTransformation());
        if (FindProblem(*text, shown) || (!isShared && !(IsFinite(whole) && CanShow(shown, whole)))) {
            return false;
        }
    }
    return group.children.first && Plexa::IsIdentity(group.GetTransformation());
}

// All texts of one clip stand in one text object, under one matrix.
void ContentWalk::AppendTextClip(const TextGroup& group)
{
    const Matrix* const shared = FindSharedMatrix(group);
    if (shared && !AreIdentical(states.GetMatrix(), *shared)) {
        states.Concatenate(*shared);
    }
    const bool isMarked = HasAttributesOfGroup(group);
    if (isMarked) {
        AppendName(out, Tags::textGroup);
        out.append(" " + GetAttributes(group, Matrix(), 0) + " BDC\n");
    }
    out.append("BT\n");
    hasTextBefore = false;
    for (const ContentObject* object = group.children.first; object; object = object->next) {
        const auto& text = static_cast<const Text&>(*object);
        if (text.GetFillPaint() || text.GetStrokePaint() || text.GetTransparency() || text.GetHalftoneSet()) {
            Refuse(text,
                   "what texts of a clipping text group, which paint nothing, are painted with is left out");
        }
        const ShownText shown = GetShownText(text);
        std::vector<const char*> flags;
        if (shown.IsEmpty()) {
            flags.push_back(Tags::emptyKey);
        }
        const bool isMarkedText = BeginObject(text, flags);
        AppendText(text, shown, clipMode, shared != nullptr);
        out.append(shown.IsEmpty() ? "() Tj\n" : "");
        out.append(isMarkedText ? "EMC\n" : "");
    }
    out.append("ET\n");
    out.append(isMarked ? "EMC\n" : "");
}

} // namespace OrvPdf
