#include "image_catalogue/decode_pair.h"

namespace HarrowSupport::GenerateImage
{

std::array<double, 2> GetDecodePair(DecodeKind kind)
{
    switch (kind) {
    case DecodeKind::DecodeIdentity:
        return {0.0, 1.0};
    case DecodeKind::DecodeInvert:
        return {1.0, 0.0};
    case DecodeKind::DecodeWeird:
        return {0.1, 0.6};
    }
    return {0.0, 0.0};
}

} // namespace HarrowSupport::GenerateImage
