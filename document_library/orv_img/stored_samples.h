#pragma once

#include <orv_img/picture_likeness.h>

namespace OrvImg::Detail
{

/// A source that keeps its samples in another form than rows. Sources derive from it besides PictureSource.
class StoredSamples
{
public:
    virtual ~StoredSamples() = default;

    /// Whether the samples can't be had.
    virtual bool IsUndecodable() const = 0;

    /// Whether the other one stores the same bytes in the same form.
    virtual bool IsStoredLike(const StoredSamples& other) const = 0;
};

} // namespace OrvImg::Detail
