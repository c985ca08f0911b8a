#include <harrow_support/factories.h>

#include <cstdint>
#include <utility>

#include <plexa/geometry.h>

namespace HarrowSupport
{

namespace
{

constexpr std::uint32_t nineLowFlags = 0x1FF;
constexpr std::uint32_t madeByUser = 0x40000000;

} // namespace

std::unique_ptr<OrvDoc::Path> CreateFormInstance(std::shared_ptr<const OrvPaint::FormPaint> form)
{
    std::unique_ptr<OrvDoc::Path> path =
        CreatePath(form->GetFormTransformation() * Plexa::GetRectangleCompound(form->GetFormBBox()));
    path->SetFillPaint(std::move(form));
    return path;
}

std::unique_ptr<OrvDoc::Group> CreateGroup()
{
    return std::make_unique<OrvDoc::Group>(OrvDoc::Group::Flags{nineLowFlags});
}

std::unique_ptr<OrvDoc::Group> CreateUserGroup()
{
    return std::make_unique<OrvDoc::Group>(OrvDoc::Group::Flags{nineLowFlags | madeByUser});
}

std::unique_ptr<OrvDoc::Path>
CreatePath(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& rectangle)
{
    return CreatePath(Plexa::GetRectangleCompound(rectangle));
}

std::unique_ptr<OrvDoc::Path> CreatePath(std::shared_ptr<const Plexa::Compound> compound)
{
    return std::make_unique<OrvDoc::Path>(std::move(compound));
}

std::unique_ptr<OrvDoc::TextGroup> CreateTextGroup()
{
    return std::make_unique<OrvDoc::TextGroup>();
}

} // namespace HarrowSupport
