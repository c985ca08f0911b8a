#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <orv_color/color_list.h>
#include <orv_color/color_space.h>
#include <orv_color/rendering_intent.h>
#include <orv_img/mask_kind.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>

#include "orv_img/stored_samples.h"

namespace OrvPdf
{

class SourceFile;

/// The mask of an image XObject as its file has it.
struct FileMask
{
    OrvImg::MaskKind kind = OrvImg::MaskKind::None;
    /// The picture is its own mask, and `data` is null.
    bool isOwn = false;
    std::shared_ptr<const OrvImg::PictureData> data;
    OrvColor::ChannelMappingPolicy::Value softMaskMapping;
    std::vector<std::array<std::size_t, 2>> colorKey;
};

/// A picture that was read from a file. Keeps its file open. Samples are decoded when somebody asks for them.
class FilePicture : public OrvImg::PictureSource, public OrvImg::Detail::StoredSamples
{
public:
    /// The object number of the image XObject if it was read from this file and may be painted as it stands
    /// under any resources; 0 otherwise, and for inline images.
    virtual int GetObjectNumber(const SourceFile& file) const = 0;

    /// The image XObject as a stream without references, with the colour space that counts, masks and private
    /// keys included. Made anew at each call. Null, with the reason in `problem`, if it refers to itself or
    /// is too large.
    virtual OrvSys::PdfObject Convert(std::string& problem) const = 0;

    /// The space that the samples are given in. Null for a stencil, and for a JPX picture that says it
    /// itself.
    virtual const OrvColor::ColorSpace::Pointer& GetNativeSpace() const = 0;

    /// The intent that the dictionary names; none if it is that of the graphics state.
    virtual boost::optional<OrvColor::RenderingIntent> GetOwnIntent() const = 0;

    virtual const FileMask& GetMask() const = 0;

    /// Whether it was read from this file.
    virtual bool IsFrom(const SourceFile& file) const = 0;

    /// What decoding the samples found wrong, with the object and its file; empty as long as nobody asked for
    /// them. The document of that file is told as well, but it may be gone.
    virtual std::string GetDamage() const = 0;
};

} // namespace OrvPdf
