// What a dump tells of each class of objects.

#include <sstream>

#include <orv_doc/halftone_set.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/layer.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/path.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>
#include <orv_font/font.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>
#include <plexa/compound.h>

#include "orv_doc/info_text.h"
#include "orv_doc/text_form.h"

namespace OrvDoc
{

namespace
{

using Info = std::pair<std::string, std::string>;
using Detail::InfoText;

void AddHalftones(InfoText& info, const std::shared_ptr<HalftoneSet>& halftones)
{
    if (!halftones)
        return;
    std::ostringstream text;
    text << "halftones " << *halftones;
    info.Add(text.str());
}

std::string GetSize(const OrvImg::PictureData& picture)
{
    return std::to_string(picture.GetWidth()) + " x " + std::to_string(picture.GetHeight());
}

/// Its size, depth and colour space, without asking for a sample.
void AddPicture(InfoText& info, const OrvImg::PictureData& picture)
{
    const OrvImg::PictureSource& source = *picture.GetPictureSource();
    info.Add(GetSize(picture) + " pixels");
    info.AddCount(source.GetBitsPerChannel(), "bit");
    std::ostringstream space;
    space << (source.GetColorTable() ? "indexed " : "") << source.GetColorSpace();
    info.Add(space.str());
    if (picture.GetLink())
        info.AddQuoted("link", picture.GetLink()->uri);
}

void AddMask(InfoText& info, const OrvImg::PaintedPicture& picture)
{
    if (picture.GetMaskKind(false) == OrvImg::MaskKind::None)
        return;
    std::ostringstream text;
    text << "mask " << picture.GetMaskKind(false);
    if (picture.GetMaskData(false) && picture.GetMaskData(false) != picture.GetPictureData(false))
        text << ' ' << GetSize(*picture.GetMaskData(false));
    info.Add(text.str());
}

void AddStroke(InfoText& info, const Strokable& object)
{
    info.AddPaint("stroke", object.GetStrokePaint().get());
    if (!object.GetStrokePaint())
        return;
    std::string width = "width ";
    Detail::AppendNumber(width, object.GetStrokeProperties().width);
    info.Add(width);
}

/// Nothing for zero.
void AddNumber(InfoText& info, const char* label, double number)
{
    if (number == 0.0)
        return;
    std::string text = label;
    text += ' ';
    Detail::AppendNumber(text, number);
    info.Add(text);
}

std::size_t CountSegments(const Plexa::Compound& compound)
{
    std::size_t count = 0;
    for (const std::shared_ptr<const Plexa::Subpath>& subpath : compound.GetSubpaths())
        count += subpath->GetDrawnSegmentCount();
    return count;
}

} // namespace

Info Group::DumpInfo() const
{
    return {"Group", InfoText().AddGroup(*this).AddObject(*this).Get()};
}

Info TextGroup::DumpInfo() const
{
    return {"TextGroup", InfoText().AddGroup(*this).AddObject(*this).Get()};
}

Info Layer::DumpInfo() const
{
    std::ostringstream text;
    if (const auto* layer = boost::get<std::shared_ptr<LayerProperties>>(&membership))
        text << *layer;
    else
        text << boost::get<LogicalLayerExpression>(membership);
    return {"Layer", InfoText().Add(text.str()).AddGroup(*this).AddObject(*this).Get()};
}

Info Path::DumpInfo() const
{
    InfoText info;
    info.Add(compound->GetWindingRule() == Plexa::WindingRule::EvenOdd ? "even-odd" : "non-zero");
    info.AddCount(CountSegments(*compound), "segment").AddPaint("fill", GetFillPaint().get());
    AddStroke(info, *this);
    if (isClipping)
        info.Add("clipping");
    AddHalftones(info, GetHalftoneSet());
    return {"Path", info.AddObject(*this).Get()};
}

Info Text::DumpInfo() const
{
    InfoText info;
    info.AddCount(GetCharacterCount(), "character").AddQuoted("font", font->GetName());
    std::string sizeText = "size ";
    Detail::AppendNumber(sizeText, size);
    info.Add(sizeText);
    AddNumber(info, "character spacing", charSpacing.value);
    AddNumber(info, "word spacing", wordSpacing.value);
    if (!Plexa::IsIdentity(textTransformation)) {
        std::string matrix = "text transformation ";
        Detail::AppendTransformation(matrix, textTransformation);
        info.Add(matrix);
    }
    if (HasOwnCharacterTransformations())
        info.Add("characters placed one by one");
    info.AddPaint("fill", GetFillPaint().get());
    AddStroke(info, *this);
    AddHalftones(info, GetHalftoneSet());
    return {"Text", info.AddObject(*this).Get()};
}

Info Image::DumpInfo() const
{
    InfoText info;
    if (picture) {
        AddPicture(info, *picture->GetPictureData(false));
        AddMask(info, *picture);
    }
    AddHalftones(info, halftoneSet);
    return {"Image", info.AddObject(*this).Get()};
}

Info ImageMask::DumpInfo() const
{
    InfoText info;
    if (data) {
        info.Add(GetSize(*data) + " pixels");
    }
    info.AddPaint("fill", GetFillPaint().get());
    AddHalftones(info, GetHalftoneSet());
    return {"ImageMask", info.AddObject(*this).Get()};
}

} // namespace OrvDoc
