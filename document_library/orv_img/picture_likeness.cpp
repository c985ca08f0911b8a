#include <orv_img/picture_likeness.h>

#include <orv_img/buffered_picture_source.h>

#include "orv_img/stored_samples.h"

namespace OrvImg
{

Likeness CompareStoredSamples(const PictureSource& left, const PictureSource& right)
{
    if (&left == &right)
        return Likeness::Alike;
    const auto* const leftStored = dynamic_cast<const Detail::StoredSamples*>(&left);
    const auto* const rightStored = dynamic_cast<const Detail::StoredSamples*>(&right);
    if (leftStored && rightStored && leftStored->IsStoredLike(*rightStored))
        return Likeness::Alike;
    if ((leftStored && leftStored->IsUndecodable()) || (rightStored && rightStored->IsUndecodable()))
        return Likeness::Different;
    const auto* const leftBuffered = dynamic_cast<const BufferedPictureSource*>(&left);
    const auto* const rightBuffered = dynamic_cast<const BufferedPictureSource*>(&right);
    if (leftBuffered && rightBuffered &&
        leftBuffered->GetPictureBuffer() == rightBuffered->GetPictureBuffer())
        return Likeness::Alike;
    return Likeness::Unknown;
}

} // namespace OrvImg
