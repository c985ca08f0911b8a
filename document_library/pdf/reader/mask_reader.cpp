#include "pdf/reader/mask_reader.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include <orv_paint/flat_paint.h>
#include <orv_paint/function_definition.h>

#include "pdf/marked_content_tags.h"
#include "pdf/number_text.h"
#include "pdf/reader/document_resources.h"
#include "pdf/reader/geometry_reader.h"
#include "pdf/reader/nested_source.h"
#include "pdf/reader/qpdf_text.h"

namespace OrvPdf
{

namespace
{

using OrvBlend::SoftMask;
using OrvColor::ColorSpace;

/// A mask is set under a handful of matrices; each more makes another mask.
constexpr std::size_t maximumVariants = 10000;

ColorSpace::Pointer SpaceOfComponents(std::size_t count)
{
    switch (count) {
    case 1:
        return ColorSpace::DeviceGray();
    case 3:
        return ColorSpace::DeviceRGB();
    case 4:
        return ColorSpace::DeviceCMYK();
    default:
        return nullptr;
    }
}

bool IsClose(double left, double right)
{
    return std::fabs(left - right) <= 1e-9 * std::max({1.0, std::fabs(left), std::fabs(right)});
}

/// Whether two matrices differ by rounding alone.
bool AreClose(const Matrix& left, const Matrix& right)
{
    return IsClose(left.a, right.a) && IsClose(left.b, right.b) && IsClose(left.c, right.c) &&
           IsClose(left.d, right.d) && IsClose(left.x.value, right.x.value) &&
           IsClose(left.y.value, right.y.value);
}

} // namespace

PdfMask::PdfMask(DocumentResources& givenDocument, QPDFObjectHandle givenDictionary, QPDFObjectHandle around)
    : document(givenDocument),
      dictionary(givenDictionary),
      stream(givenDocument, GetEntry(givenDictionary, "/G"), "soft mask", around)
{}

std::shared_ptr<const MaskUse> PdfMask::Use(const Matrix& matrix, std::string& problem)
{
    const std::lock_guard<std::recursive_mutex> lock(document.GetNestedContents().mutex);
    for (auto variant = variants.rbegin(); variant != variants.rend(); ++variant) {
        if (variant->matrix == matrix)
            return variant->use;
    }
    const std::shared_ptr<OrvDoc::Content> content = GetDrawing(problem);
    if (!content)
        return nullptr;
    if (variants.size() >= maximumVariants) {
        problem = "it is set under more than " + std::to_string(maximumVariants) + " matrices";
        return nullptr;
    }
    if (!fields) {
        auto made = std::make_unique<SoftMask::Factory>(content);
        if (!ReadFields(*made, problem))
            return nullptr;
        fields = std::move(made);
    }
    auto use = std::make_shared<MaskUse>();
    use->mask = fields->SetTransformation(FindTransformation(matrix)).Get();
    use->reading = told;
    variants.push_back({matrix, use});
    return use;
}

std::shared_ptr<OrvDoc::Content> PdfMask::GetDrawing(std::string& problem)
{
    if (drawing || !stream.MayRead(problem))
        return drawing;
    NestedStream::Reading reading = stream.Read(OrvDoc::Content::Type::SoftMaskContent, nullptr);
    auto source = std::make_unique<NestedSource>();
    source->object = stream.GetStream().getObjectID();
    source->hasUnmodelled = reading.interpretation.hasUnmodelled;
    source->baseRevision = reading.content->GetRevision();
    reading.content->SetSource(std::move(source));
    told = stream.Tell(reading);
    drawing = reading.content;
    return drawing;
}

bool PdfMask::ReadFields(SoftMask::Factory& factory, std::string& problem)
{
    const SourceFile::Access access(document.GetFile());
    QPDFObjectHandle form = stream.GetStream();
    std::vector<std::string> problems;
    const std::string kind = GetNameText(GetEntry(dictionary, "/S"));
    if (kind != "Alpha" && kind != "Luminosity")
        problems.push_back("S is neither /Alpha nor /Luminosity");
    factory.SetAlpha(kind == "Alpha")
        .SetBoundingBox(ReadRectangle(GetEntry(form, "/BBox"), "BBox", problems))
        .SetKnockout(IsTrue(GetEntry(GetEntry(form, "/Group"), "/K")));
    ReadMatrix(GetEntry(form, "/Matrix"), "Matrix", problems);
    if (!problems.empty()) {
        problem = problems.front();
        return false;
    }
    return ReadBackdrop(factory, problem) && ReadTransferFunction(factory, problem);
}

bool PdfMask::ReadBackdrop(SoftMask::Factory& factory, std::string& problem)
{
    QPDFObjectHandle backdrop = GetEntry(dictionary, "/BC");
    if (!backdrop.isArray())
        return true;
    std::vector<float> components;
    for (int index = 0; index < backdrop.getArrayNItems(); ++index) {
        std::string text;
        double value = 0.0;
        if (!GetNumberText(backdrop.getArrayItem(index), text) || !ParseNumber(text, 0, value)) {
            problem = "entry " + std::to_string(index + 1) + " of BC is no number";
            return false;
        }
        components.push_back(static_cast<float>(value));
    }
    QPDFObjectHandle definition = GetEntry(GetEntry(stream.GetStream(), "/Group"), "/CS");
    const ColorSpace::Pointer space = definition.isNull() ? SpaceOfComponents(components.size())
                                                          : document.GetColorSpace(definition, problem);
    if (!space || space->GetComponentCount() != components.size()) {
        problem = "BC has no colour of the group's colour space";
        return false;
    }
    factory.SetBackdropColor(OrvPaint::FlatPaint::Factory(space, std::move(components), false, false).Get());
    return true;
}

bool PdfMask::ReadTransferFunction(SoftMask::Factory& factory, std::string& problem)
{
    QPDFObjectHandle function = GetEntry(dictionary, "/TR");
    if (function.isNull() || function.isNameAndEquals("/Identity")) {
        factory.SetTransferFunction(!function.isNull());
        return true;
    }
    const OrvSys::PdfObject definition = document.GetConverter().Convert(function, problem);
    if (!problem.empty())
        return false;
    try {
        factory.SetTransferFunction(OrvPaint::MakeFunction(definition));
    } catch (const std::logic_error& failure) {
        problem = std::string("TR: ") + failure.what();
    }
    return problem.empty();
}

Matrix PdfMask::FindTransformation(const Matrix& matrix)
{
    const SourceFile::Access access(document.GetFile());
    std::vector<std::string> problems;
    const Matrix product =
        Plexa::Concatenate(ReadMatrix(GetEntry(stream.GetStream(), "/Matrix"), "Matrix", problems), matrix);
    QPDFObjectHandle stated = GetEntry(dictionary, Tags::maskMatrixKey);
    if (stated.isNull())
        return product;
    const Matrix exact = ReadMatrix(stated, "OrvMatrix", problems);
    return problems.empty() && AreClose(exact, product) ? exact : product;
}

} // namespace OrvPdf
