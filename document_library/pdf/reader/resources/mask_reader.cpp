#include "pdf/reader/resources/mask_reader.h"

#include <stdexcept>
#include <utility>

#include <orv_paint/flat_paint.h>
#include <orv_paint/function_definition.h>

#include "pdf/marked_content_tags.h"
#include "pdf/number_text.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/resources/document_resources.h"
#include "pdf/reader/resources/geometry_reader.h"
#include "pdf/reader/resources/nested_source.h"
#include "pdf/transfer_definition.h"

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

} // namespace

MaskDrawing::MaskDrawing(DocumentResources& givenDocument, QPDFObjectHandle givenStream,
                         QPDFObjectHandle around)
    : document(givenDocument), stream(givenDocument, givenStream, "soft mask", around)
{}

std::shared_ptr<OrvDoc::Content> MaskDrawing::Get(std::string& problem)
{
    if (content || !stream.MayRead(problem))
        return content;
    NestedStream::Reading reading = stream.Read(OrvDoc::Content::Type::SoftMaskContent, nullptr);
    if (HasLayer())
        reading.errors.Add("OC is left out: the drawing of a soft mask belongs to no layer");
    reading.content->SetSource(stream.MakeSource(reading));
    told = stream.Tell(reading);
    content = reading.content;
    return content;
}

bool MaskDrawing::HasLayer() const
{
    const SourceFile::Access access(document.GetFile());
    return !GetEntry(stream.GetStream(), "/OC").isNull();
}

PdfMask::PdfMask(DocumentResources& givenDocument, QPDFObjectHandle givenDictionary,
                 std::shared_ptr<MaskDrawing> givenDrawing)
    : document(givenDocument), dictionary(givenDictionary), drawing(std::move(givenDrawing))
{}

std::shared_ptr<const MaskUse> PdfMask::Use(const Matrix& matrix, std::string& problem)
{
    const MatrixKey key = MakeMatrixKey(matrix);
    if (!IsFinite(key)) {
        problem = "the matrix goes beyond all numbers";
        return nullptr;
    }
    const std::lock_guard<std::recursive_mutex> lock(document.GetNestedContents().mutex);
    const auto known = variants.find(key);
    if (known != variants.end())
        return known->second;
    const std::shared_ptr<OrvDoc::Content> content = drawing->Get(problem);
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
    use->reading = drawing->GetTold();
    variants.emplace(key, use);
    return use;
}

bool PdfMask::ReadFields(SoftMask::Factory& factory, std::string& problem)
{
    const SourceFile::Access access(document.GetFile());
    QPDFObjectHandle form = GetEntry(dictionary, "/G");
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
    if (backdrop.isNull())
        return true;
    if (!backdrop.isArray()) {
        problem = "BC is no array of numbers";
        return false;
    }
    std::vector<float> components;
    for (int index = 0; index < backdrop.getArrayNItems(); ++index) {
        std::string text;
        float value = 0.0F;
        if (!GetNumberText(backdrop.getArrayItem(index), text) || !ParseFloat(text, value)) {
            problem = "entry " + std::to_string(index + 1) + " of BC is no number";
            return false;
        }
        components.push_back(value);
    }
    QPDFObjectHandle definition = GetEntry(GetEntry(GetEntry(dictionary, "/G"), "/Group"), "/CS");
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
    if (!problem.empty()) {
        problem = "TR: " + problem;
        return false;
    }
    try {
        auto made = OrvPaint::MakeFunction(definition);
        if (!IsTransferFunction(*made))
            problem = "TR: it is no function from one number to one";
        else
            factory.SetTransferFunction(std::move(made));
    } catch (const std::logic_error& failure) {
        problem = std::string("TR: ") + failure.what();
    }
    return problem.empty();
}

Matrix PdfMask::FindTransformation(const Matrix& matrix)
{
    const SourceFile::Access access(document.GetFile());
    std::vector<std::string> problems;
    QPDFObjectHandle exact = GetEntry(dictionary, Tags::maskMatrixKey);
    QPDFObjectHandle expected = GetEntry(dictionary, Tags::maskSettingKey);
    if (!exact.isNull() && !expected.isNull() &&
        ReadMatrix(expected, Tags::maskSettingKey, problems) == matrix) {
        const Matrix stated = ReadMatrix(exact, Tags::maskMatrixKey, problems);
        if (problems.empty())
            return stated;
    }
    return Plexa::Concatenate(ReadMatrix(GetEntry(GetEntry(dictionary, "/G"), "/Matrix"), "Matrix", problems),
                              matrix);
}

} // namespace OrvPdf
