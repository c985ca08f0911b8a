#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <orv_color/color_space.h>
#include <orv_paint/function.h>
#include <orv_paint/shading_paint.h>
#include <orv_sys/pdf_object.h>

#include "pdf/reader/content/group_recipe.h"
#include "pdf/shading_mapping.h"

namespace OrvPdf
{

/// How a shading is painted: what its dictionary doesn't say.
struct ShadingUse
{
    Matrix transformation;
    /// A pattern paints its background, the operator `sh` doesn't (ISO 32000-1, 8.7.4.2).
    bool paintsBackground = true;
    bool overprint = false;
    bool nonzeroOverprint = false;
};

/// A shading of a file (ISO 32000-1, 8.7.4.3), from which the paints of all its uses are made.
class ShadingResource
{
public:
    /// Takes the dictionary or stream with its references resolved, and the colour space that it names.
    /// Throws `std::invalid_argument` that names the key that is malformed, `std::length_error` if functions
    /// are nested too deeply.
    ShadingResource(const OrvSys::PdfObject& givenDefinition, OrvColor::ColorSpace::Pointer givenSpace);

    /// Equal uses get the same paint. May be called from several threads.
    std::shared_ptr<const OrvPaint::ShadingPaint> GetPaint(const ShadingUse& use) const;

private:
    /// Six numbers bit by bit, and the flags.
    using Key = std::array<std::uint64_t, 7>;

    static Key MakeKey(const ShadingUse& use);

    void ReadCommon();
    void ReadGradient(std::size_t coordinateCount);
    void CheckMesh() const;
    std::shared_ptr<const OrvPaint::Function> ReadFunction(std::size_t inputs) const;
    std::shared_ptr<const OrvPaint::ShadingPaint> MakePaint(const ShadingUse& use) const;
    template <typename Factory>
    void SetCommon(Factory& factory, const ShadingUse& use) const;

    /// Of a shading that is kept whole, without what the fields below hold.
    OrvSys::PdfObject definition;
    OrvColor::ColorSpace::Pointer space;
    std::int64_t type = 0;
    SeparationMapping mapping;
    boost::optional<std::vector<OrvColor::Component>> background;
    Plexa::RectangleBase<Plexa::PdfCoordinateSystem> boundingBox;
    bool antiAliased = false;

    /// Of axial and radial shadings, in milli-points.
    std::vector<double> coordinates;
    std::pair<bool, bool> extends{false, false};
    std::array<double, 2> parameterRange{0.0, 1.0};
    std::shared_ptr<const OrvPaint::Function> function;

    mutable std::mutex mutex;
    mutable std::map<Key, std::shared_ptr<const OrvPaint::ShadingPaint>> paints;
};

} // namespace OrvPdf
