#include "pdf/writer/content/content_walk.h"

#include <orv_doc/layer.h>
#include <orv_doc/text_group.h>
#include <orv_sys/pdf_object.h>

#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/writer/content/content_text.h"

namespace OrvPdf
{

using OrvDoc::ContentObject;
using OrvDoc::Path;

namespace
{

/// Far enough to see past the groups that programs nest around every object.
constexpr int lookAheadDepth = 8;

/// The matrix that the first object of a group stands under, seen from where the group stands. Null if that
/// can't be told at once.
const Matrix* FindFirstMatrix(const OrvDoc::Group& group)
{
    const OrvDoc::Group* inner = &group;
    for (int depth = 0; inner && depth < lookAheadDepth; ++depth) {
        const ContentObject* const first = inner->children.first;
        const auto* const placed = dynamic_cast<const OrvDoc::Transformable*>(first);
        inner = dynamic_cast<const OrvDoc::Group*>(first);
        if (placed && (!inner || !Plexa::IsIdentity(placed->GetTransformation()))) {
            static const Matrix identity;
            return inner ? &identity : &placed->GetTransformation();
        }
    }
    return nullptr;
}

/// The matrix that all of a group stands under, seen from where the group stands. Null if there are several,
/// or if that can't be told at once.
const Matrix* FindOnlyMatrix(const OrvDoc::Group& group)
{
    const OrvDoc::Group* inner = &group;
    for (int depth = 0; depth < lookAheadDepth; ++depth) {
        if (!Plexa::IsIdentity(inner->GetTransformation())) {
            return nullptr;
        }
        if (const auto* const texts = dynamic_cast<const OrvDoc::TextGroup*>(inner)) {
            return FindSharedMatrix(*texts);
        }
        const ContentObject* const only = inner->children.first;
        if (!only || only->next) {
            return nullptr;
        }
        inner = dynamic_cast<const OrvDoc::Group*>(only);
        if (!inner) {
            const auto* const placed = dynamic_cast<const OrvDoc::Transformable*>(only);
            return placed && Plexa::Inverse(placed->GetTransformation()) ? &placed->GetTransformation()
                                                                         : nullptr;
        }
    }
    return nullptr;
}

/// Whether a text stands for what the group shows (ISO 32000-1, 14.9.4).
bool HasActualText(const OrvDoc::MarkedContent& mark)
{
    const OrvSys::PdfObject& list = mark.properties.IsName() ? mark.resource : mark.properties;
    return list.IsDictionary() && list.GetEntries().count("ActualText") > 0;
}

} // namespace

void ContentWalk::PrepareGroup(const OrvDoc::Group& group)
{
    // What is in the group has parameters of its own, or none.
    if (containers.back().foreignParameters) {
        LeaveForeignParameters();
    }
    const Matrix* const first = FindFirstMatrix(group);
    const bool isOther = first && !AreIdentical(*first, states.GetMatrix());
    // Inside of the group there is no way out of a matrix without inverse.
    if (isOther || !Plexa::Inverse(states.GetMatrix())) {
        LeaveSharedMatrix();
    }
}

bool ContentWalk::GetGroupMatrix(const OrvDoc::Group& group, Matrix& matrix)
{
    matrix = group.GetTransformation();
    if (!IsFinite(matrix)) {
        Refuse(group, "groups with infinite numbers in their matrix are written without it");
        matrix = Matrix();
    }
    if (Plexa::IsIdentity(matrix)) {
        return true;
    }
    return LeaveMatrix(Matrix(), group);
}

std::string ContentWalk::GetAttributes(const OrvDoc::Group& group, const Matrix& matrix,
                                       std::size_t clipCount) const
{
    std::string attributes;
    const auto add = [&attributes](const char* key) {
        attributes.append(attributes.empty() ? "/" : " /").append(key).push_back(' ');
    };
    if (const auto* const textGroup = dynamic_cast<const OrvDoc::TextGroup*>(&group)) {
        if (textGroup->IsClippingObject()) {
            add(Tags::clipKey);
            attributes.append("true");
        }
    }
    if (group.GetFlags() != OrvDoc::Group::Flags::Default) {
        add(Tags::flagsKey);
        attributes.append(std::to_string(static_cast<std::uint32_t>(group.GetFlags())));
    }
    if (!Plexa::IsIdentity(matrix)) {
        add(Tags::matrixKey);
        attributes.push_back('[');
        AppendMatrix(attributes, matrix);
        attributes.push_back(']');
    }
    const auto* const layer = dynamic_cast<const OrvDoc::Layer*>(&group);
    const bool isNamedElsewhere = layer && layer->GetMembership().which() == 0;
    if (!isNamedElsewhere && !group.GetName().empty()) {
        add(Tags::nameKey);
        attributes.append(OrvSys::PdfObject::String(group.GetName()).Serialize());
    }
    if (clipCount > 0) {
        add(Tags::ownClipsKey);
        attributes.append(std::to_string(clipCount));
    }
    return attributes.empty() ? attributes : "<<" + attributes + ">>";
}

void ContentWalk::BeginInside(const OrvDoc::Group& group, const Matrix& matrix,
                              const std::vector<Clip>& clips)
{
    Container container{group.children.first, true};
    container.endsMark = true;
    container.endsLevel = !Plexa::IsIdentity(matrix) || !clips.empty();
    containers.push_back(container);
    if (container.endsLevel) {
        states.Save();
    }
    if (!Plexa::IsIdentity(matrix)) {
        states.Concatenate(matrix);
        states.SetBase();
    }
    AppendClips(clips);
}

void ContentWalk::BeginGroup(const OrvDoc::Group& group, const char* tag)
{
    PrepareGroup(group);
    Matrix matrix;
    if (!GetGroupMatrix(group, matrix)) {
        return;
    }
    const std::vector<Clip> clips = MakeClips(group.children.first);
    const std::string attributes = GetAttributes(group, matrix, clips.size());
    AppendName(out, tag);
    out.append(attributes.empty() ? " BMC\n" : " " + attributes + " BDC\n");
    BeginInside(group, matrix, clips);
    containers.back().isTextGroup = tag == Tags::textGroup;
}

bool ContentWalk::TryClipGroup(const OrvDoc::Group& group)
{
    const ContentObject* const first = group.children.first;
    const bool isPlain = group.GetFlags() == OrvDoc::Group::Flags::Default && group.GetName().empty() &&
                         !group.GetTransparency() && Plexa::IsIdentity(group.GetTransformation());
    if (!isPlain || !first || !IsClip(*first) || !first->GetName().empty()) {
        return false;
    }
    for (const ContentObject* object = first->next; object; object = object->next) {
        if (object->IsClippingObject()) {
            return false;
        }
    }
    Clip clip;
    clip.texts = dynamic_cast<const OrvDoc::TextGroup*>(first);
    if (clip.texts) {
        if (HasAttributesOfGroup(*clip.texts)) {
            return false;
        }
    } else {
        clip.path = static_cast<const Path*>(first);
        if (!MakePath(*clip.path)) {
            return false;
        }
        clip.operators = pathOperators;
    }
    if (containers.back().foreignParameters) {
        LeaveForeignParameters();
    }
    if (!LeaveMatrix(clip.GetMatrix(), group)) {
        return true;
    }
    Container container{first->next};
    container.endsLevel = true;
    containers.push_back(container);
    states.Save();
    AppendClip(clip);
    return true;
}

void ContentWalk::BeginMarkedGroup(const OrvDoc::Group& group, const OrvDoc::MarkedContent& mark)
{
    PrepareGroup(group);
    Matrix matrix;
    if (!GetGroupMatrix(group, matrix)) {
        return;
    }
    const std::vector<Clip> clips = MakeClips(group.children.first);
    const std::string attributes = GetAttributes(group, matrix, clips.size());
    const bool isPoint = mark.isPoint && !group.children.first && attributes.empty();
    if (mark.isPoint && !isPoint) {
        Refuse(group, "marked-content points that hold something are written as marked content");
    }
    if (HasActualText(mark) && Plexa::IsIdentity(matrix) && clips.empty()) {
        // Programs place that text by the matrix that is in force at its end.
        const Matrix* const only = FindOnlyMatrix(group);
        if (only && LeaveMatrix(*only, group)) {
            EnterMatrix(*only);
        }
    }
    AppendName(out, mark.tag);
    const bool isNamed = mark.properties.IsName() || mark.properties.ContainsStream();
    bool hasProperties = !mark.properties.IsNull();
    if (isNamed && mark.properties.IsName() && mark.resource.IsNull() && mark.resourceObject == 0) {
        Refuse(group, "marked contents whose property list is missing are written without it");
        hasProperties = false;
    } else if (isNamed) {
        out.append(" /mc" + std::to_string(propertyLists.Add(mark)));
    } else if (hasProperties) {
        out.append(" " + mark.properties.Serialize());
    }
    out.append(isPoint ? (hasProperties ? " DP\n" : " MP\n") : (hasProperties ? " BDC\n" : " BMC\n"));
    if (isPoint) {
        return;
    }
    if (!attributes.empty()) {
        AppendName(out, Tags::attributes);
        out.append(" " + attributes + " DP\n");
    }
    BeginInside(group, matrix, clips);
}

bool ContentWalk::Visit(const OrvDoc::Group& group)
{
    if (WriteAsForm(group)) {
        return false;
    }
    if (const OrvDoc::MarkedContent* const mark = group.GetMarkedContent()) {
        BeginMarkedGroup(group, *mark);
    } else if (!TryClipGroup(group)) {
        BeginGroup(group, Tags::group);
    }
    return false;
}

bool ContentWalk::Visit(const OrvDoc::TextGroup& group)
{
    if (WriteAsForm(group)) {
        return false;
    }
    if (group.IsClippingObject() && group.children.first) {
        Refuse(group,
               "text groups with a matrix of their own, or with other objects than texts, do not clip in the "
               "file");
    }
    if (!TryTextObject(group)) {
        BeginGroup(group, Tags::textGroup);
    }
    return false;
}

bool ContentWalk::Visit(const OrvDoc::Layer& layer)
{
    if (WriteAsForm(layer)) {
        return false;
    }
    const auto* const single = boost::get<std::shared_ptr<OrvDoc::LayerProperties>>(&layer.GetMembership());
    if (single && !*single) {
        Refuse(layer, "layer objects without a layer are written as groups");
        BeginGroup(layer, Tags::group);
        return false;
    }
    PrepareGroup(layer);
    Matrix matrix;
    if (!GetGroupMatrix(layer, matrix)) {
        return false;
    }
    const std::vector<Clip> clips = MakeClips(layer.children.first);
    out.append("/OC /oc" + std::to_string(memberships.Add(layer.GetMembership())) + " BDC\n");
    const std::string attributes = GetAttributes(layer, matrix, clips.size());
    if (!attributes.empty()) {
        AppendName(out, Tags::attributes);
        out.append(" " + attributes + " DP\n");
    }
    BeginInside(layer, matrix, clips);
    return false;
}

} // namespace OrvPdf
