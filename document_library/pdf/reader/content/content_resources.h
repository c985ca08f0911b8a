#pragma once

#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <orv_color/color_space.h>
#include <orv_doc/layer.h>
#include <orv_font/font.h>
#include <orv_sys/pdf_object.h>

#include "pdf/reader/content/nested_content.h"

namespace OrvPdf
{

class PictureResource;
class ShadingResource;

/// Stands for a value that no `PdfObject` can hold.
inline constexpr const char* unresolvedValue = "Unresolved";

/// What the interpreter of a content stream asks of the resource dictionary (ISO 32000-1, 7.8.3). Named
/// resources are looked up when an operator first needs them, once a name.
///
/// A look-up that finds nothing or something malformed returns an empty value and sets `problem` to the
/// reason, in words that can follow "resource /Cs8: ". A value may come with a problem too; it is used, and
/// the problem told.
class ContentResources
{
public:
    virtual ~ContentResources() = default;

    /// A colour space by its resource name; the names of the device spaces and `Pattern` are asked for as
    /// well, since a resource may stand in for them: `DefaultGray`, `DefaultRGB`, `DefaultCMYK` (8.6.5.6).
    virtual OrvColor::ColorSpace::Pointer FindColorSpace(const std::string& name, std::string& problem) = 0;

    /// A graphics state parameter dictionary (8.4.5), references resolved. Keys whose value can't stand in a
    /// `PdfObject` (a soft mask, a font) have the name `unresolvedValue` as their value.
    virtual OrvSys::PdfObject FindGraphicsState(const std::string& name, std::string& problem) = 0;

    /// A property list of marked content.
    struct PropertyList
    {
        OrvSys::PdfObject value;
        /// Object number of the list; 0 if it stands in the resource dictionary itself.
        int objectNumber = 0;
        /// Set if the list is an optional content group or membership dictionary.
        boost::optional<OrvDoc::Layer::Membership> layer;
    };

    /// A pattern (8.7). Of one kind exactly.
    struct Pattern
    {
        /// From the pattern's coordinates to those of the content.
        Matrix matrix;
        /// What a shading pattern paints.
        std::shared_ptr<const ShadingResource> shading;
        /// A tiling pattern, which has the matrix itself.
        std::shared_ptr<TilingDefinition> tiling;
        /// What the content calls it.
        std::string name;
    };

    /// Null if there is none. The same object of the file gives the same shading wherever it is named.
    virtual std::shared_ptr<const Pattern> FindPattern(const std::string& name, std::string& problem) = 0;
    virtual std::shared_ptr<const ShadingResource> FindShading(const std::string& name,
                                                               std::string& problem) = 0;

    /// A font (9.5). One that can't be had as the file means it is replaced, and the problem says by which.
    virtual std::shared_ptr<const OrvFont::Font> FindFont(const std::string& name, std::string& problem) = 0;

    /// A font with its size.
    struct SizedFont
    {
        std::shared_ptr<const OrvFont::Font> font;
        double size = 0.0;
    };

    /// That of a graphics state parameter dictionary; null if it has none.
    virtual SizedFont FindFontOfState(const std::string& state, std::string& problem) = 0;
    /// Whether the glyphs of a font that was found here are contents.
    virtual bool HasGlyphContents(const OrvFont::Font& font) = 0;
    /// Such a glyph, the same one for one character. Null if the font has none for it, and then nothing is
    /// painted, or if `problem` says why it can't be had.
    virtual std::shared_ptr<FormDefinition> FindGlyph(const std::shared_ptr<const OrvFont::Font>& font,
                                                      const OrvFont::Character& character,
                                                      std::string& problem) = 0;

    virtual boost::optional<PropertyList> FindPropertyList(const std::string& name, std::string& problem) = 0;

    /// An external object (8.8).
    struct XObject
    {
        enum class Kind
        {
            None,
            Picture,
            Form
        };

        Kind kind = Kind::None;
        /// Whether a picture is a mask that the current colour is poured through.
        bool isStencil = false;
        /// Of a picture; null if it can't be read.
        std::shared_ptr<PictureResource> picture;
        /// Of a form; null if it can't be read.
        std::shared_ptr<FormDefinition> form;
    };

    virtual XObject FindXObject(const std::string& name, std::string& problem) = 0;

    /// The picture of an inline image (8.9.7): a stream with keys and names in full. The space is null for a
    /// stencil. Null if it can't be read.
    virtual std::shared_ptr<PictureResource> ReadInlinePicture(const OrvSys::PdfObject& stream,
                                                               const OrvColor::ColorSpace::Pointer& space,
                                                               std::string& problem) = 0;

    /// The soft mask of a graphics state parameter dictionary; null if it has none.
    virtual std::shared_ptr<MaskDefinition> FindMask(const std::string& state, std::string& problem) = 0;
};

} // namespace OrvPdf
