#include "pdf/writer/content/content_walk.h"

#include <orv_doc/content.h>
#include <plexa/compound.h>

#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/writer/content/path_operators.h"

namespace OrvPdf
{

using OrvDoc::ContentObject;
using OrvDoc::Path;

bool IsClip(const ContentObject& object)
{
    if (!object.IsClippingObject()) {
        return false;
    }
    const auto* const texts = dynamic_cast<const OrvDoc::TextGroup*>(&object);
    return texts ? CanClip(*texts) : dynamic_cast<const Path*>(&object) != nullptr;
}

const OrvDoc::Transformable& Clip::GetObject() const
{
    return path ? static_cast<const OrvDoc::Transformable&>(*path) : *texts;
}

const Matrix& Clip::GetMatrix() const
{
    if (path) {
        return path->GetTransformation();
    }
    static const Matrix identity;
    const Matrix* const shared = FindSharedMatrix(*texts);
    return shared ? *shared : identity;
}

bool ContentWalk::Refuse(const ContentObject& object, const char* reason)
{
    result.problems.Add(reason, object.GetID());
    return false;
}

void ContentWalk::LeaveSharedMatrix()
{
    bool& isMatrixShared = containers.back().isMatrixShared;
    if (isMatrixShared) {
        states.Restore();
        isMatrixShared = false;
    }
}

bool ContentWalk::LeaveMatrix(const Matrix& wanted, const ContentObject& object)
{
    if (AreIdentical(states.GetMatrix(), wanted)) {
        return true;
    }
    LeaveSharedMatrix();
    if (AreIdentical(states.GetMatrix(), wanted) || Plexa::IsIdentity(states.GetMatrix()) || states.Reset()) {
        return true;
    }
    return Refuse(object,
                  "objects that a clipping path with a matrix without inverse clips cannot be placed");
}

void ContentWalk::EnterMatrix(const Matrix& wanted)
{
    if (!AreIdentical(states.GetMatrix(), wanted)) {
        states.Save();
        states.Concatenate(wanted);
        containers.back().isMatrixShared = true;
    }
}

bool ContentWalk::MakePath(const Path& path)
{
    pathOperators.clear();
    if (!IsFinite(path.GetTransformation())) {
        return Refuse(path, "objects with infinite numbers in their matrix cannot be written");
    }
    const PathLosses losses = AppendPath(pathOperators, *path.DefiningCompound());
    if (losses.notFinite) {
        return Refuse(path, "paths with infinite coordinates cannot be written");
    }
    if (losses.leftOut) {
        Refuse(
            path,
            "parts of paths that draw nothing, or move and draw nothing before another part, are left out");
    }
    if (losses.empty) {
        return Refuse(path, "paths without any point cannot be written");
    }
    return true;
}

std::vector<Clip> ContentWalk::MakeClips(const ContentObject* first)
{
    std::vector<Clip> clips;
    for (const ContentObject* object = first; object; object = object->next) {
        if (!IsClip(*object)) {
            continue;
        }
        if (const auto* const group = dynamic_cast<const OrvDoc::TextGroup*>(object)) {
            clips.push_back({nullptr, {}, group});
            continue;
        }
        const auto& path = static_cast<const Path&>(*object);
        if (!MakePath(path)) {
            continue;
        }
        if (!Plexa::Inverse(path.GetTransformation())) {
            Refuse(path, "clipping paths with a matrix without inverse cannot be written");
            continue;
        }
        clips.push_back({&path, pathOperators, nullptr});
    }
    return clips;
}

void ContentWalk::AppendClip(const Clip& clip)
{
    if (clip.texts) {
        AppendTextClip(*clip.texts);
        return;
    }
    const bool isEvenOdd = clip.path->DefiningCompound()->GetWindingRule() == Plexa::WindingRule::EvenOdd;
    const Matrix& matrix = clip.path->GetTransformation();
    if (!AreIdentical(states.GetMatrix(), matrix)) {
        states.Concatenate(matrix);
    }
    if (clip.path->GetTransparency() || clip.path->GetHalftoneSet()) {
        Refuse(*clip.path,
               "what clipping paths, which paint nothing, have of transparency and halftones is left out");
    }
    const bool isNamed = BeginObject(*clip.path, {});
    out.append(clip.operators);
    out.append(isEvenOdd ? "W* n\n" : "W n\n");
    out.append(isNamed ? "EMC\n" : "");
}

void ContentWalk::AppendClips(const std::vector<Clip>& clips)
{
    for (const Clip& clip : clips) {
        if (LeaveMatrix(clip.GetMatrix(), clip.GetObject())) {
            AppendClip(clip);
        }
    }
}

void ContentWalk::BeginContent(const OrvDoc::Content& content)
{
    const ContentObject* const first = content.GetChildren().first;
    const std::vector<Clip> clips = MakeClips(first);
    Container container{first, true};
    bool isAnyNamed = false;
    for (const Clip& clip : clips) {
        isAnyNamed = isAnyNamed || !clip.GetObject().GetName().empty();
    }
    if (isAnyNamed) {
        // A clip keeps its name only as one that its group owns.
        out.append(std::string("/") + Tags::group + " <</" + Tags::ownClipsKey + ' ' +
                   std::to_string(clips.size()) + ">> BDC\n");
        container.endsMark = true;
    }
    container.endsLevel = !clips.empty();
    containers.push_back(container);
    if (container.endsLevel) {
        states.Save();
        AppendClips(clips);
    }
}

void ContentWalk::EndContainer()
{
    LeaveForeignParameters();
    const Container container = containers.back();
    containers.pop_back();
    if (container.endsTextObject) {
        out.append("ET\n");
        isInTextObject = false;
    }
    if (container.endsLevel) {
        states.Restore();
    }
    if (container.endsMark) {
        out.append("EMC\n");
    }
}

void ContentWalk::Write(const OrvDoc::Content& content)
{
    foreignObjects = FindForeignObjects(content);
    BeginTransferFunctions(content);
    BeginContent(content);
    WriteContainers();
    Finish();
}

void ContentWalk::Write(const OrvDoc::Group& group, const Matrix& base)
{
    groupOfForm = &group;
    foreignObjects = group.GetContent() ? FindForeignObjects(*group.GetContent()) : nullptr;
    if (!Plexa::IsIdentity(base)) {
        states.Concatenate(base);
        states.SetBase();
    }
    containers.push_back(Container{nullptr});
    group.Accept(*this);
    WriteContainers();
    Finish();
}

void ContentWalk::WriteContainers()
{
    while (!containers.empty()) {
        Container& container = containers.back();
        if (!container.next) {
            EndContainer();
            continue;
        }
        const ContentObject& object = *container.next;
        container.next = object.next;
        if (!container.skipsClips || !IsClip(object)) {
            object.Accept(*this);
        }
    }
}

void ContentWalk::Finish()
{
    result.colorSpaces = colors.GetSpaces();
    result.patterns = patterns.TakeAll();
    result.graphicsStates = states.GetExtGStates();
    result.layers = memberships.TakeAll();
    result.propertyLists = propertyLists.TakeAll();
}

} // namespace OrvPdf
