#pragma once

#include <string>

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/reader/content/content_resources.h"
#include "pdf/reader/resources/document_resources.h"

namespace OrvPdf
{

/// The resources of one content stream in the file that it comes from. Each look-up takes access to the file
/// for itself. A colour space, a pattern or a property list that is read only in part is given together with
/// a problem.
class ResourceReader : public ContentResources
{
public:
    /// A handle that holds no dictionary stands for an empty one.
    ResourceReader(DocumentResources& givenDocument, QPDFObjectHandle givenResources)
        : document(givenDocument), resources(givenResources)
    {}

    OrvColor::ColorSpace::Pointer FindColorSpace(const std::string& name, std::string& problem) override;
    OrvSys::PdfObject FindGraphicsState(const std::string& name, std::string& problem) override;
    std::shared_ptr<const Pattern> FindPattern(const std::string& name, std::string& problem) override;
    std::shared_ptr<const ShadingResource> FindShading(const std::string& name,
                                                       std::string& problem) override;
    std::shared_ptr<const OrvFont::Font> FindFont(const std::string& name, std::string& problem) override;
    SizedFont FindFontOfState(const std::string& state, std::string& problem) override;
    bool HasGlyphContents(const OrvFont::Font& font) override;
    std::shared_ptr<FormDefinition> FindGlyph(const std::shared_ptr<const OrvFont::Font>& font,
                                              const OrvFont::Character& character,
                                              std::string& problem) override;
    boost::optional<PropertyList> FindPropertyList(const std::string& name, std::string& problem) override;
    XObject FindXObject(const std::string& name, std::string& problem) override;
    std::shared_ptr<PictureResource> ReadInlinePicture(const OrvSys::PdfObject& stream,
                                                       const OrvColor::ColorSpace::Pointer& space,
                                                       std::string& problem) override;
    std::shared_ptr<MaskDefinition> FindMask(const std::string& state, std::string& problem) override;

    /// Whether any resource was asked for and found.
    bool HasFound() const { return hasFound; }

private:
    QPDFObjectHandle FindResource(const char* category, const std::string& name, std::string& problem);
    OrvSys::PdfObject ConvertState(QPDFObjectHandle dictionary);
    std::shared_ptr<const OrvFont::Font> ReadFont(QPDFObjectHandle dictionary, std::string& problem);
    OrvColor::ColorSpace::Pointer ResolveColorSpace(QPDFObjectHandle definition, std::string& problem);
    std::shared_ptr<const ShadingResource> ReadShading(QPDFObjectHandle definition, QPDFObjGen owner,
                                                       std::string& problem);
    std::shared_ptr<const Pattern> ReadShadingPattern(QPDFObjectHandle dictionary, std::string& problem);
    std::shared_ptr<const Pattern> ReadTiling(QPDFObjectHandle stream, const std::string& name);
    OrvColor::ColorSpace::Pointer FindDefault(const std::string& deviceName, std::string& problem);

    DocumentResources& document;
    QPDFObjectHandle resources;
    bool hasFound = false;
};

} // namespace OrvPdf
