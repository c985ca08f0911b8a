// Pictures, with their exact fields, signatures and places in the tables of virtual operations.

#include "document_interface/signature.h"

#include <array>
#include <memory>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/document.h>
#include <orv_img/buffered_picture_source.h>
#include <orv_img/mask_kind.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_link.h>
#include <plexa/compound.h>

namespace
{

using namespace InterfaceTests;
using namespace OrvImg;
using testing::ElementsAre;

using Decode = std::array<double, 2>;
using Three = std::array<double, 3>;
using Mapping = OrvColor::ColorList<OrvColor::ChannelMappingPolicy>;
using MappingValue = OrvColor::ChannelMappingPolicy::Value;
using BufferPointer = std::shared_ptr<const PictureBuffer>;
using TablePointer = std::shared_ptr<const ColorTable>;
using PathPointer = std::shared_ptr<const Plexa::Compound>;
using SourcePointer = std::shared_ptr<const PictureSource>;
using DataPointer = std::shared_ptr<const PictureData>;
using PaintedPointer = std::shared_ptr<const PaintedPicture>;
using ProfilePointer = std::shared_ptr<const OrvColor::ICCProfile>;

// The samples.
static_assert(std::is_same_v<decltype(PictureBuffer::height), std::size_t>);
static_assert(std::is_same_v<decltype(PictureBuffer::width), std::size_t>);
static_assert(std::is_same_v<decltype(PictureBuffer::channels), std::size_t>);
static_assert(std::is_same_v<decltype(PictureBuffer::bitsPerChannel), std::size_t>);
static_assert(Has<const unsigned char* (PictureBuffer::*)(std::size_t) const>(&PictureBuffer::GetRowPtr));
static_assert(std::is_destructible_v<PictureBuffer>);
static_assert(
    std::is_constructible_v<PictureBuffer::Factory, std::size_t, std::size_t, std::size_t, std::size_t>);
static_assert(
    Has<unsigned char* (PictureBuffer::Factory::*)(std::size_t)>(&PictureBuffer::Factory::GetRowPtr));
static_assert(Has<std::size_t (PictureBuffer::Factory::*)() const>(&PictureBuffer::Factory::GetBytesPerRow));
static_assert(Has<std::unique_ptr<const PictureBuffer> (PictureBuffer::Factory::*)()>(
    &PictureBuffer::Factory::GetResult));

// The colour space and its channels.
static_assert(
    std::is_same_v<ColorSpace,
                   boost::variant<DeviceN, DeviceGray, DeviceRGB, CalGray, CalRGB, Lab, ProfilePointer>>);
static_assert(std::is_same_v<decltype(CalGray::whitePoint), Three>);
static_assert(std::is_same_v<decltype(CalGray::blackPoint), Three>);
static_assert(std::is_same_v<decltype(CalGray::gamma), double>);
static_assert(std::is_same_v<decltype(CalRGB::gamma), Three>);
static_assert(std::is_same_v<decltype(CalRGB::matrix), std::array<double, 9>>);
static_assert(std::is_same_v<decltype(Lab::range), std::array<double, 4>>);
static_assert(sizeof(CalGray) == 7 * sizeof(double));
static_assert(sizeof(CalRGB) == 18 * sizeof(double));
static_assert(sizeof(Lab) == 10 * sizeof(double));
static_assert(Has<bool (*)(const ColorSpace&)>(&IsDeviceIndependentColorSpace));
static_assert(Has<std::size_t (*)(const ColorSpace&)>(&NumSourceChannelsForColorConversion));
static_assert(Has<std::vector<ChannelInfo> (*)(const ColorSpace&)>(&GetChannelInfosForColorSpace));
static_assert(Has<std::ostream& (*)(std::ostream&, const ColorSpace&)>(&OrvImg::operator<<));

static_assert(std::is_same_v<std::underlying_type_t<ChannelInfo::ChannelType>, std::uint32_t>);
static_assert(static_cast<std::uint32_t>(ChannelInfo::ChannelType::Color) == 0);
static_assert(static_cast<std::uint32_t>(ChannelInfo::ChannelType::Alpha) == 1);
static_assert(static_cast<std::uint32_t>(ChannelInfo::ChannelType::Stencil) == 4);
static_assert(
    std::is_constructible_v<ChannelInfo, const std::string&, ChannelInfo::ChannelType, const Decode&>);
static_assert(std::is_copy_constructible_v<ChannelInfo> && std::is_copy_assignable_v<ChannelInfo>);
static_assert(std::is_nothrow_move_constructible_v<ChannelInfo> &&
              std::is_nothrow_move_assignable_v<ChannelInfo>);
static_assert(Has<ChannelInfo::ChannelType (ChannelInfo::*)() const>(&ChannelInfo::GetType));
static_assert(Has<const std::string& (ChannelInfo::*)() const>(&ChannelInfo::GetName));
static_assert(Has<const Decode& (ChannelInfo::*)() const>(&ChannelInfo::GetDecode));
static_assert(Has<void (ChannelInfo::*)(const Decode&)>(&ChannelInfo::SetDecode));
static_assert(Has<void (ChannelInfo::*)(const OrvColor::Representation&)>(&ChannelInfo::SetRepresentation));

// The colour table.
static_assert(std::is_constructible_v<ColorTable, const unsigned char*, std::size_t, std::size_t, std::size_t,
                                      const Decode&>);
static_assert(Has<std::size_t (ColorTable::*)() const>(&ColorTable::GetChannelCount));
static_assert(Has<const Decode& (ColorTable::*)() const>(&ColorTable::GetDecode));
static_assert(
    Has<void (ColorTable::*)(std::size_t, std::size_t, unsigned char*) const>(&ColorTable::GetColor));
static_assert(Has<void (ColorTable::*)(unsigned char*, const unsigned char*, std::size_t, std::size_t,
                                       std::size_t) const>(&ColorTable::MapIndexedBuffer));
static_assert(
    std::is_same_v<decltype(std::declval<const ColorTable&>() == std::declval<const ColorTable&>()), bool>);

// The source.
static_assert(std::is_abstract_v<PictureSource> && std::has_virtual_destructor_v<PictureSource>);
static_assert(Has<BufferPointer (PictureSource::*)() const>(&PictureSource::GetPictureBuffer));
static_assert(
    Has<std::unique_ptr<PictureStream> (PictureSource::*)() const>(&PictureSource::GetPictureStream));
static_assert(Has<PictureStream::Type (PictureSource::*)() const>(&PictureSource::GetStreamType));
static_assert(Has<TablePointer (PictureSource::*)() const>(&PictureSource::GetColorTable));
static_assert(Has<const ColorSpace& (PictureSource::*)() const>(&PictureSource::GetColorSpace));
static_assert(Has<std::size_t (PictureSource::*)() const>(&PictureSource::GetWidth));
static_assert(Has<std::size_t (PictureSource::*)() const>(&PictureSource::GetHeight));
static_assert(Has<double (PictureSource::*)() const>(&PictureSource::GetXDpi));
static_assert(Has<double (PictureSource::*)() const>(&PictureSource::GetYDpi));
static_assert(Has<std::size_t (PictureSource::*)() const>(&PictureSource::GetBitsPerChannel));
static_assert(
    Has<const std::vector<ChannelInfo>& (PictureSource::*)() const>(&PictureSource::GetChannelInfos));
static_assert(Has<PathPointer (PictureSource::*)() const>(&PictureSource::GetClippingPath));
static_assert(std::is_base_of_v<PictureSource, BufferedPictureSource>);
static_assert(!std::is_abstract_v<BufferedPictureSource>);
static_assert(std::is_constructible_v<BufferedPictureSource, BufferPointer, const ColorSpace&,
                                      std::vector<ChannelInfo>, TablePointer, double, double, PathPointer>);

// The picture.
static_assert(Has<std::size_t (PictureData::*)() const>(&PictureData::GetWidth));
static_assert(Has<std::size_t (PictureData::*)() const>(&PictureData::GetHeight));
static_assert(Has<const boost::optional<PictureLink>& (PictureData::*)() const>(&PictureData::GetLink));
static_assert(Has<const SourcePointer& (PictureData::*)() const>(&PictureData::GetPictureSource));
static_assert(Has<std::vector<ChannelInfo> (PictureData::*)() const>(&PictureData::GetChannelInfos));
static_assert(Has<Mapping (PictureData::*)(bool) const>(&PictureData::GetDefaultChannelMapping));
static_assert(Has<MappingValue (PictureData::*)() const>(&PictureData::GetDefaultSoftMaskMapping));
static_assert(std::is_constructible_v<PictureData::Factory, const OrvDoc::Document&, SourcePointer>);
static_assert(Has<DataPointer (PictureData::Factory::*)()>(&PictureData::Factory::Get));

static_assert(std::is_same_v<decltype(PictureLink::uri), std::string>);
static_assert(Has<bool (*)(const PictureLink&, const PictureLink&)>(&OrvImg::operator==));
static_assert(Has<std::ostream& (*)(std::ostream&, const PictureLink&)>(&OrvImg::operator<<));

// The picture as an image shows it.
static_assert(std::is_same_v<std::underlying_type_t<MaskKind>, std::uint32_t>);
static_assert(static_cast<std::uint32_t>(MaskKind::SoftMask) == 1);
static_assert(static_cast<std::uint32_t>(MaskKind::StencilMask) == 2);
static_assert(Has<std::ostream& (*)(std::ostream&, MaskKind)>(&OrvImg::operator<<));
static_assert(Has<const DataPointer& (PaintedPicture::*)(bool) const>(&PaintedPicture::GetPictureData));
static_assert(Has<const Mapping& (PaintedPicture::*)(bool) const>(&PaintedPicture::GetChannelMapping));
static_assert(Has<MaskKind (PaintedPicture::*)(bool) const>(&PaintedPicture::GetMaskKind));
static_assert(Has<const DataPointer& (PaintedPicture::*)(bool) const>(&PaintedPicture::GetMaskData));
static_assert(Has<const MappingValue& (PaintedPicture::*)(bool) const>(&PaintedPicture::GetSoftMaskMapping));
static_assert(
    Has<OrvColor::RenderingIntent (PaintedPicture::*)() const>(&PaintedPicture::GetRenderingIntent));
using Painter = PaintedPicture::Factory;
static_assert(std::is_constructible_v<Painter, const OrvDoc::Document&, const DataPointer&, bool>);
static_assert(Has<Painter& (Painter::*)(MaskKind)>(&Painter::SetMaskKind));
static_assert(Has<Painter& (Painter::*)(DataPointer)>(&Painter::SetMaskData));
static_assert(Has<Painter& (Painter::*)(const MappingValue&)>(&Painter::SetSoftMaskMapping));
static_assert(Has<Painter& (Painter::*)(OrvColor::RenderingIntent)>(&Painter::SetRenderingIntent));
static_assert(Has<PaintedPointer (Painter::*)()>(&Painter::Get));

TEST(PictureOperations, ASourceHasItsOperationsInOrderBehindItsDestructor)
{
    EXPECT_EQ(GetSlots(&PictureSource::GetPictureBuffer, &PictureSource::GetPictureStream,
                       &PictureSource::GetStreamType, &PictureSource::GetColorTable,
                       &PictureSource::GetColorSpace, &PictureSource::GetWidth, &PictureSource::GetHeight,
                       &PictureSource::GetXDpi, &PictureSource::GetYDpi, &PictureSource::GetBitsPerChannel,
                       &PictureSource::GetChannelInfos, &PictureSource::GetClippingPath),
              CountFrom(2, 12));
}

TEST(PictureOperations, ABufferHasItsFieldsInOrder)
{
    const auto buffer = PictureBuffer::Factory(2, 3, 4, 8).GetResult();
    const auto* const first = static_cast<const void*>(buffer.get());
    EXPECT_EQ(static_cast<const void*>(&buffer->height), first);
    EXPECT_EQ(&buffer->width, &buffer->height + 1);
    EXPECT_EQ(&buffer->channels, &buffer->height + 2);
    EXPECT_EQ(&buffer->bitsPerChannel, &buffer->height + 3);
}

TEST(PictureOperations, CalibratedSpacesHaveTheirFieldsInOrder)
{
    const CalRGB rgb{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12, 13, 14, 15, 16, 17, 18}};
    EXPECT_THAT(rgb.whitePoint, ElementsAre(1, 2, 3));
    EXPECT_THAT(rgb.blackPoint, ElementsAre(4, 5, 6));
    EXPECT_THAT(rgb.gamma, ElementsAre(7, 8, 9));
    EXPECT_EQ(rgb.matrix.back(), 18);
    const CalGray gray{{1, 2, 3}, {4, 5, 6}, 7};
    EXPECT_EQ(gray.gamma, 7);
    const Lab lab{{1, 2, 3}, {4, 5, 6}, {7, 8, 9, 10}};
    EXPECT_THAT(lab.range, ElementsAre(7, 8, 9, 10));
}

TEST(PictureOperations, ALinkBeginsWithItsUri)
{
    const PictureLink link{"a.tif", {}};
    EXPECT_EQ(static_cast<const void*>(&link.uri), static_cast<const void*>(&link));
}

TEST(PictureOperations, ADefaultColorSpaceIsDeviceN)
{
    EXPECT_EQ(ColorSpace().which(), 0);
}

TEST(PictureOperations, SourcesAreKnownAcrossTheLibraryByTheirClass)
{
    const SourcePointer source = std::make_shared<BufferedPictureSource>(
        PictureBuffer::Factory(1, 1, 1, 8).GetResult(), DeviceGray(),
        GetChannelInfosForColorSpace(DeviceGray()), nullptr, 72.0, 72.0, nullptr);
    EXPECT_NE(std::dynamic_pointer_cast<const BufferedPictureSource>(source), nullptr);
}

} // namespace
