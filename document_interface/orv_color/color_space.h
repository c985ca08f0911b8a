#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <orv_color/color_list.h>
#include <orv_color/icc_profile.h>
#include <orv_color/representation.h>
#include <orv_sys/export.h>
#include <orv_sys/pdf_object.h>

namespace OrvColor
{

// For makers of documents.

/// A colour space as a PDF file defines it (ISO 32000-1, 8.6). Immutable; handed around as shared pointer to
/// const. It knows its components and which colorants they stand for; it doesn't convert colours.
class ORV_EXPORT ColorSpace
{
public:
    enum class Family : std::uint32_t
    {
        DeviceGray,
        DeviceRGB,
        DeviceCMYK,
        CalGray,
        CalRGB,
        Lab,
        ICCBased,
        Separation,
        DeviceN,
        Indexed,
        Pattern
    };

    using Pointer = std::shared_ptr<const ColorSpace>;

    /// A colorant and what it looks like at full tint.
    struct Alternate
    {
        std::string name;
        Representation representation;
    };

    /// Most colorants that a DeviceN space may name; ISO 32000-1, Annex C asks for 32.
    static constexpr std::size_t MaxColorants = 256;

    /// Reads a definition: a name, or an array that begins with one. References must be resolved. The
    /// abbreviations of inline images (G, RGB, CMYK, I) are understood. Throws std::invalid_argument that
    /// tells which family and what is wrong with it. Keys that the standard doesn't know are kept.
    static Pointer FromDefinition(const OrvSys::PdfObject& definition);

    /// The three device spaces are one object each.
    static Pointer DeviceGray();
    static Pointer DeviceRGB();
    static Pointer DeviceCMYK();

    /// White points are XYZ with Y = 1. Throws std::invalid_argument if X or Z is not positive or Y not 1.
    static Pointer CalGray(const std::array<double, 3>& whitePoint, double gamma = 1.0);
    static Pointer CalRGB(const std::array<double, 3>& whitePoint,
                          const std::array<double, 3>& gamma = {1.0, 1.0, 1.0},
                          const std::array<double, 9>& matrix = {1, 0, 0, 0, 1, 0, 0, 0, 1});

    /// The range holds the bounds of a, then those of b.
    static Pointer Lab(const std::array<double, 3>& whitePoint,
                       const std::array<double, 4>& range = {-100, 100, -100, 100});

    /// The profile must have 1, 3 or 4 components; otherwise, or if it is null, throws std::invalid_argument.
    static Pointer ICCBased(const std::shared_ptr<const ICCProfile>& profile);

    /// "All" stands for every separation and "None" for no ink.
    static Pointer Separation(std::string name, const Pointer& alternate,
                              const OrvSys::PdfObject& tintTransform);

    static Pointer DeviceN(const std::vector<std::string>& names, const Pointer& alternate,
                           const OrvSys::PdfObject& tintTransform,
                           const OrvSys::PdfObject& attributes = OrvSys::PdfObject());

    /// Table of highestIndex + 1 colours of `base`, one byte for a component.
    static Pointer Indexed(const Pointer& base, std::size_t highestIndex, std::string table);

    /// Patterns; `underlying` is the space of uncoloured ones and may be null.
    static Pointer Pattern(const Pointer& underlying = nullptr);

    ~ColorSpace();
    ColorSpace(const ColorSpace&) = delete;
    ColorSpace& operator=(const ColorSpace&) = delete;

    Family GetFamily() const;

    /// As it goes into a file. A device space is its bare name, whatever form it was read from.
    const OrvSys::PdfObject& GetDefinition() const;

    /// Number of operands of a colour: 1 for Indexed; for Pattern that of the underlying space, or 0.
    std::size_t GetComponentCount() const;

    /// Low and high of each component.
    const std::vector<std::array<double, 2>>& GetRanges() const;

    /// The colour that is current when the space has just been chosen (ISO 32000-1, 8.6.5 to 8.6.6).
    const std::vector<float>& GetInitialComponents() const;

    /// Exactly the CIE-based spaces: CalGray, CalRGB, Lab and ICCBased.
    bool IsDeviceIndependent() const;

    /// Colorants of Separation and DeviceN as the file has them, None among them; otherwise empty.
    const std::vector<std::string>& GetColorantNames() const;

    /// Base of Indexed, alternate of Separation and DeviceN, underlying space of Pattern, or null.
    const Pointer& GetBase() const;

    /// A colour of this space as a list of separations with tints from 0 to 1.
    ///
    /// - DeviceCMYK gives Cyan, Magenta, Yellow, Black. With both flags set, that is overprint mode 1, tints
    /// of zero are left out, since they leave what is below them untouched (ISO 32000-1, 8.6.7).
    /// - DeviceGray gives Black at one minus the gray.
    /// - Separation and DeviceN give their names; All sets the all flag, None is left out.
    /// - Other spaces give colorants that are named for the space and the component, such as "DeviceRGB Red"
    /// or "Lab(6f0c31d2a4b8e975) L", so that no two spaces share a colorant by accident. The value is the
    ///   component brought from its range to 0..1. The digits are a digest of the definition, of an ICCBased
    ///   space those of its profile, component count and ranges.
    /// - Indexed gives what its base gives for the colour looked up; Pattern what its underlying space gives.
    ///
    /// Components outside their range are brought to its nearer end; missing ones count as the initial
    /// ones, surplus ones are not looked at.
    ColorList<ColorPolicy> ToColorList(const std::vector<float>& components, bool overprint,
                                       bool nonzeroOverprint) const;

    /// For Separation and DeviceN each colorant but All and None, with what it looks like at full tint as far
    /// as the tint transform can be evaluated; an empty representation if it can't. Evaluated at each call.
    std::vector<Alternate> GetAlternates() const;

    /// Same definition.
    friend ORV_EXPORT bool operator==(const ColorSpace& left, const ColorSpace& right);
    friend bool operator!=(const ColorSpace& left, const ColorSpace& right) { return !(left == right); }

    /// Known to the library alone.
    struct State;
    explicit ColorSpace(std::unique_ptr<const State> givenState);

private:
    std::unique_ptr<const State> state;
};

} // namespace OrvColor
