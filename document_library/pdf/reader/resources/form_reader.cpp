#include "pdf/reader/resources/form_reader.h"

#include <utility>

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_paint/form_paint.h>

#include "pdf/marked_content_tags.h"
#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/document/layer_membership.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/resources/document_resources.h"
#include "pdf/reader/resources/form_properties.h"
#include "pdf/reader/resources/geometry_reader.h"
#include "pdf/reader/resources/nested_source.h"

namespace OrvPdf
{

namespace
{

/// Real forms are painted under a handful of states that they depend on.
constexpr std::size_t maximumVariants = 1000;
/// Of all forms of a document: a small file could ask for any number of readings of a large one.
constexpr std::uint64_t maximumBytesReadAgain = UINT64_C(8) << 20;

} // namespace

PdfForm::PdfForm(DocumentResources& givenDocument, QPDFObjectHandle givenStream, QPDFObjectHandle around,
                 std::shared_ptr<PdfForm> givenSame)
    : document(givenDocument), stream(givenDocument, givenStream, "form", around), same(std::move(givenSame))
{
    if (auto membership = ReadLayerMembership(document, GetEntry(givenStream, "/OC"), layerProblem)) {
        layer = std::make_shared<const OrvDoc::Layer::Membership>(std::move(*membership));
    }
    QPDFObjectHandle group = GetEntry(givenStream, "/Group");
    isGroup = GetEntry(group, "/S").isNameAndEquals("/Transparency");
    isIsolated = isGroup && IsTrue(GetEntry(group, "/I"));
    isKnockout = isGroup && IsTrue(GetEntry(group, "/K"));
    isWrittenAsGroup = IsTrue(GetEntry(givenStream, Tags::groupFormKey));
    mayBeTaken = isGroup && isWrittenAsGroup;
    std::vector<std::string> problems;
    base = ReadMatrix(GetEntry(givenStream, Tags::baseKey), "OrvBase", problems);
}

PdfForm::PdfForm(DocumentResources& givenDocument, NestedStream givenStream)
    : document(givenDocument), stream(std::move(givenStream))
{}

// A mask from around stands where it is; what moves is the form that sees it.
GraphicsState PdfForm::Begin(const GraphicsState& state, const Matrix& matrix)
{
    GraphicsState initial = BeginForm(state, isGroup);
    const std::shared_ptr<const OrvBlend::SoftMask> mask = initial.blending.value.softMask;
    if (!mask) {
        return initial;
    }
    const MaskKey key(mask, MakeMatrixKey(matrix));
    const auto known = IsFinite(key.second) ? masks.find(key) : masks.end();
    if (known != masks.end()) {
        initial.blending.value.softMask = known->second;
        return initial;
    }
    std::vector<std::string> problems;
    Matrix placement;
    {
        const SourceFile::Access access(document.GetFile());
        placement = Plexa::Concatenate(
            ReadMatrix(GetEntry(stream.GetStream(), "/Matrix"), "Matrix", problems), matrix);
    }
    const auto inverse = Plexa::Inverse(placement);
    // A form without extent shows nothing.
    const Matrix transformation =
        inverse ? Plexa::Concatenate(mask->GetTransformation(), *inverse) : mask->GetTransformation();
    initial.blending.value.softMask =
        OrvBlend::SoftMask::Factory(*mask).SetTransformation(transformation).Get();
    if (IsFinite(key.second)) {
        masks.emplace(key, initial.blending.value.softMask);
    }
    return initial;
}

std::shared_ptr<const FormUse> PdfForm::Use(const GraphicsState& state, const Matrix& matrix,
                                            std::string& problem)
{
    const std::lock_guard<std::recursive_mutex> lock(document.GetNestedContents().mutex);
    if (same) {
        return UseSame(state, matrix, problem);
    }
    // Asked before what is known already, which would otherwise hide that the form is inside of itself.
    if (stream.IsOpen()) {
        stream.MayRead(problem);
        return nullptr;
    }
    Variant variant;
    variant.state = Begin(state, matrix);
    for (const Variant& candidate : variants) {
        if (Agree(candidate.state, variant.state, candidate.use->usedParameters)) {
            return candidate.use;
        }
    }
    if (variants.size() >= maximumVariants) {
        problem = "it depends on more than " + std::to_string(maximumVariants) + " graphics states around it";
        return nullptr;
    }
    std::uint64_t& bytesReadAgain = document.GetNestedContents().bytesReadAgain;
    if (!variants.empty() && bytesReadAgain + size > maximumBytesReadAgain) {
        problem = "it depends on the graphics state around it, and forms that do take more than " +
                  std::to_string(maximumBytesReadAgain) + " bytes";
        return nullptr;
    }
    if (!stream.MayRead(problem)) {
        return nullptr;
    }
    NestedStream::Reading reading = stream.Read(OrvDoc::Content::Type::FormContent, &variant.state);
    bytesReadAgain += variants.empty() ? 0 : reading.size;
    size = reading.size;
    variant.use = MakeUse(reading, variant.state);
    variants.push_back(std::move(variant));
    return variants.back().use;
}

std::shared_ptr<const FormUse> PdfForm::UseSame(const GraphicsState& state, const Matrix& matrix,
                                                std::string& problem)
{
    GraphicsState around = state;
    if (isGroup) {
        // What is in force applies to the group as a whole, whatever the other form is.
        around.blending = BlendSetting();
    }
    const std::shared_ptr<const FormUse> original = same->Use(around, matrix, problem);
    if (!original) {
        return nullptr;
    }
    auto use = std::make_shared<FormUse>(*original);
    use->isGroup = isGroup;
    use->isIsolated = isIsolated;
    use->isKnockout = isKnockout;
    return use;
}

std::shared_ptr<const FormUse> PdfForm::MakeUse(NestedStream::Reading& reading, const GraphicsState& state)
{
    const Interpretation& interpretation = reading.interpretation;
    auto use = std::make_shared<FormUse>();
    use->paint = MakePaint(reading);
    use->isGroup = isGroup;
    use->isIsolated = isIsolated;
    use->isKnockout = isKnockout;
    use->usedParameters = interpretation.usedParameters;

    std::unique_ptr<NestedSource> source = MakeSource(reading, state);
    use->isLossy = interpretation.hasUnmodelled && !source->isSelfContained;
    source->user = use->paint;
    source->isGroup = isGroup;
    source->isIsolated = isIsolated;
    source->isKnockout = isKnockout;
    source->usedParameters = interpretation.usedParameters;
    reading.content->SetSource(std::move(source));
    use->reading = stream.Tell(reading);
    return use;
}

std::unique_ptr<NestedSource> PdfForm::MakeSource(const NestedStream::Reading& reading,
                                                  const GraphicsState& state) const
{
    auto source = std::make_unique<NestedSource>();
    stream.Describe(reading, *source);
    // What speaks against a group, such as another use in front of this one, need not be there in a new file.
    source->isSelfContained = source->isSelfContained && !isWrittenAsGroup &&
                              !reading.dependsOnResourcesAround && !layer &&
                              FindPeculiar(state, reading.interpretation.usedParameters) == 0;
    return source;
}

void PdfForm::SetPlace(OrvPaint::FormPaint::Factory& factory, const NestedStream::Reading&,
                       std::vector<std::string>& problems)
{
    factory.SetFormTransformation(ReadMatrix(GetEntry(stream.GetStream(), "/Matrix"), "Matrix", problems))
        .SetFormBBox(ReadRectangle(GetEntry(stream.GetStream(), "/BBox"), "BBox", problems));
}

std::shared_ptr<const OrvPaint::FormPaint> PdfForm::MakePaint(NestedStream::Reading& reading)
{
    const SourceFile::Access access(document.GetFile());
    QPDFObjectHandle handle = stream.GetStream();
    std::vector<std::string> problems;
    if (!layerProblem.empty()) {
        problems.push_back("OC is left out: " + layerProblem);
    }
    OrvPaint::FormPaint::Factory factory(reading.content);
    SetPlace(factory, reading, problems);
    ReadFormProperties(handle, document, factory, problems);
    reading.errors.Add(std::move(problems));
    return factory.Get();
}

GroupUse PdfForm::TakeGroup(const GraphicsState& state, const Matrix& around)
{
    const std::lock_guard<std::recursive_mutex> lock(document.GetNestedContents().mutex);
    std::string problem;
    const bool isWhereItWas = Plexa::IsIdentity(base) || base == around;
    if (!mayBeTaken || !isWhereItWas || !stream.MayRead(problem)) {
        return {};
    }
    mayBeTaken = false;
    const GraphicsState initial = BeginForm(state, true);
    NestedStream::Reading reading = stream.Read(OrvDoc::Content::Type::FormContent, &initial, base);
    auto* const group = dynamic_cast<OrvDoc::Group*>(reading.content->GetChildren().first);
    const std::uint32_t usedParameters = reading.interpretation.usedParameters;
    // The transfer functions of the content around are those of the group's objects; all else it must set.
    const std::uint32_t expected = Inherited::transferFunctions;
    if (!group || group->next || reading.interpretation.hasUnmodelled ||
        reading.content->GetBlendColorSpace().GetColorSpace() ||
        FindPeculiar(initial, usedParameters & ~expected) != 0) {
        return {};
    }
    GroupUse use;
    use.reading = stream.Tell(reading);
    use.usedParameters = usedParameters;
    use.foreign = reading.interpretation.foreign;
    group->ExtractFromParent();
    use.group.reset(group);
    group->SetTransparency(
        OrvBlend::Transparency::Factory().SetIsolated(isIsolated).SetKnockout(isKnockout).Get());
    return use;
}

} // namespace OrvPdf
