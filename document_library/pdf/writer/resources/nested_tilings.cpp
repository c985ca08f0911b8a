#include "pdf/writer/resources/nested_writer.h"

#include <algorithm>

#include <orv_color/color_space.h>
#include <orv_doc/content.h>
#include <orv_paint/pattern_paint.h>

#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/reader/resources/nested_source.h"
#include "pdf/writer/file/matrix_object.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

namespace
{

using OrvPaint::PatternPaint;
using PaintPointer = std::shared_ptr<const PatternPaint>;

/// Whether the object of one pattern can be that of the other too.
bool DifferInColorAlone(const PatternPaint& left, const PatternPaint& right)
{
    return left.GetColor() && right.GetColor() && *left.GetColor() != *right.GetColor() &&
           left.GetNativeColor() && right.GetNativeColor() &&
           AreIdentical(left.GetTransformation(), right.GetTransformation()) &&
           left.GetCellClip() == right.GetCellClip() && left.GetStep() == right.GetStep() &&
           left.GetTilingType() == right.GetTilingType();
}

} // namespace

QPDFObjectHandle NestedWriter::GetTiling(const PaintPointer& paint)
{
    const auto known = tilings.find(paint);
    if (known != tilings.end()) {
        return known->second;
    }
    QPDFObjectHandle unchanged = FindKeptTiling(paint);
    if (unchanged.isStream()) {
        Keep(paint->GetContent());
        tilings.emplace(paint, unchanged);
        return unchanged;
    }
    std::vector<TilingObject>& objects = tilingObjects[&paint->GetContent()];
    auto fitting = std::find_if(objects.begin(), objects.end(), [&paint](const TilingObject& candidate) {
        return std::all_of(
            candidate.paints.begin(), candidate.paints.end(),
            [&paint](const PaintPointer& other) { return DifferInColorAlone(*other, *paint); });
    });
    if (fitting == objects.end()) {
        QPDFObjectHandle object = MakeTiling(*paint);
        // Whatever stays in the file as it is has the cell of the object there.
        QPDFObjectHandle other = FindKeptStream(paint->GetContent());
        if (!other.isStream() && !objects.empty()) {
            other = objects.front().object;
        }
        if (other.isStream()) {
            object.getDict().replaceKey(Tags::sameCellKey, other);
        }
        objects.push_back({object, {}});
        fitting = objects.end() - 1;
    }
    fitting->paints.push_back(paint);
    tilings.emplace(paint, fitting->object);
    return fitting->object;
}

QPDFObjectHandle NestedWriter::FindKeptTiling(const PaintPointer& paint)
{
    const NestedSource* const source = FindSource(paint->GetContent());
    const int object = source ? source->FindPattern(paint) : 0;
    return object != 0 && FindKeptStream(paint->GetContent()).isStream() ? maker.FindSourceObject(object)
                                                                         : QPDFObjectHandle::newNull();
}

QPDFObjectHandle NestedWriter::MakeTiling(const PatternPaint& paint)
{
    QPDFObjectHandle stream = AddContent(paint.GetSharedContent());
    QPDFObjectHandle dictionary = stream.getDict();
    for (const char* const key : {"/BBox", "/Matrix", Tags::sameCellKey}) {
        dictionary.removeKey(key);
    }
    SetTilingProperties(dictionary, paint);
    const auto space = paint.GetContent().GetBlendColorSpace().GetColorSpace();
    dictionary.removeKey(Tags::blendSpaceKey);
    if (space) {
        dictionary.replaceKey(Tags::blendSpaceKey, maker.MakeShared(space->GetDefinition()));
    }
    return stream;
}

void NestedWriter::SetTilingProperties(QPDFObjectHandle dictionary, const PatternPaint& paint)
{
    const auto setNumber = [&dictionary](const char* key, long long number) {
        dictionary.replaceKey(key, QPDFObjectHandle::newInteger(number));
    };
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/Pattern"));
    setNumber("/PatternType", 1);
    setNumber("/PaintType", paint.GetColor() ? 2 : 1);
    setNumber("/TilingType", static_cast<long long>(paint.GetTilingType()));
    SetBox(dictionary, paint.GetCellClip());
    dictionary.replaceKey("/XStep", ObjectMaker::MakeLength(paint.GetStep().width.value));
    dictionary.replaceKey("/YStep", ObjectMaker::MakeLength(paint.GetStep().height.value));
    if (!Plexa::IsIdentity(paint.GetTransformation())) {
        dictionary.replaceKey("/Matrix", MakeMatrixObject(paint.GetTransformation()));
    }
}

} // namespace OrvPdf
