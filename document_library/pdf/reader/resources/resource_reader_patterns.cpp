#include "pdf/reader/resources/resource_reader.h"

#include <stdexcept>

#include "pdf/reader/content/neutral_parameters.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/resources/object_numbers.h"
#include "pdf/reader/resources/resource_guard.h"

namespace OrvPdf
{

namespace
{

enum PatternType : long long
{
    Tiling = 1,
    Shading = 2
};

std::string WithKey(const char* key, const std::string& problem)
{
    return std::string(key) + ": " + problem;
}

} // namespace

std::shared_ptr<const ShadingResource> ResourceReader::ReadShading(QPDFObjectHandle definition,
                                                                   QPDFObjGen owner, std::string& problem)
{
    if (!definition.isDictionary() && !definition.isStream()) {
        problem = "it is no shading dictionary";
        return nullptr;
    }
    QPDFObjectHandle spaceDefinition = GetEntry(definition, "/ColorSpace");
    if (spaceDefinition.isNull()) {
        problem = "ColorSpace: it is missing";
        return nullptr;
    }
    std::string spaceProblem;
    const OrvColor::ColorSpace::Pointer space = ResolveColorSpace(spaceDefinition, spaceProblem);
    if (!spaceProblem.empty())
        problem = WithKey("ColorSpace", spaceProblem);
    return space ? document.GetShading(definition, owner, space, problem) : nullptr;
}

std::shared_ptr<const ShadingResource> ResourceReader::FindShading(const std::string& name,
                                                                   std::string& problem)
{
    std::shared_ptr<const ShadingResource> shading;
    GuardLookUp(problem, [&] {
        const SourceFile::Access access(document.GetFile());
        QPDFObjectHandle definition = FindResource("/Shading", name, problem);
        if (!definition.isNull())
            shading = ReadShading(definition, definition.getObjGen(), problem);
    });
    return shading;
}

std::shared_ptr<const ContentResources::Pattern>
ResourceReader::ReadShadingPattern(QPDFObjectHandle dictionary, std::string& problem)
{
    auto pattern = std::make_shared<Pattern>();
    std::string matrixProblem;
    const OrvSys::PdfObject matrix =
        document.GetConverter().Convert(dictionary.getKey("/Matrix"), matrixProblem);
    try {
        pattern->matrix = ReadMatrix(matrix);
    } catch (const std::invalid_argument& failure) {
        matrixProblem = failure.what();
    }
    // Other readers paint it all the same, as if there were none.
    if (!matrixProblem.empty())
        problem = WithKey("Matrix", matrixProblem);
    QPDFObjectHandle definition = dictionary.getKey("/Shading");
    std::string shadingProblem;
    pattern->shading =
        ReadShading(definition, definition.isIndirect() ? definition.getObjGen() : dictionary.getObjGen(),
                    shadingProblem);
    if (!shadingProblem.empty())
        problem = WithKey("Shading", shadingProblem);
    if (!pattern->shading)
        return nullptr;
    QPDFObjectHandle state = dictionary.getKey("/ExtGState");
    if (state.isDictionary()) {
        const OrvSys::PdfObject parameters = ConvertState(state);
        for (const auto& [key, value] : parameters.GetEntries()) {
            if (!IsNeutralParameter(key, value))
                problem = WithKey("ExtGState", "parameter " + key + " of a pattern is not modelled");
        }
    }
    return pattern;
}

std::shared_ptr<const ContentResources::Pattern> ResourceReader::ReadTiling(QPDFObjectHandle stream,
                                                                            const std::string& name)
{
    auto pattern = std::make_shared<Pattern>();
    pattern->name = name;
    pattern->tiling = document.GetTiling(stream, resources);
    return pattern;
}

std::shared_ptr<const ContentResources::Pattern> ResourceReader::FindPattern(const std::string& name,
                                                                             std::string& problem)
{
    std::shared_ptr<const Pattern> pattern;
    GuardLookUp(problem, [&] {
        const SourceFile::Access access(document.GetFile());
        QPDFObjectHandle object = FindResource("/Pattern", name, problem);
        if (object.isNull())
            return;
        QPDFObjectHandle type = GetEntry(object, "/PatternType");
        if (object.isDictionary() && type.isInteger() && type.getIntValue() == Shading)
            pattern = ReadShadingPattern(object, problem);
        else if (object.isStream() && type.isInteger() && type.getIntValue() == Tiling)
            pattern = ReadTiling(object, name);
        else
            problem = "PatternType: it is no type of pattern";
    });
    return pattern;
}

} // namespace OrvPdf
