#pragma once

#include <cstdint>

#include <orv_sys/export.h>

namespace OrvImg
{

class PictureSource;

// For makers of documents.

enum class Likeness : std::uint32_t
{
    Unknown,  ///< The samples have to be looked at.
    Alike,    ///< Both surely have the same samples, of the same depth in as many channels.
    Different ///< The samples of one of them can't be had, and its data are not those of the other.
};

/// What can be said of the samples of two pictures without decoding one: what a file stores alike decodes
/// alike.
ORV_EXPORT Likeness CompareStoredSamples(const PictureSource& left, const PictureSource& right);

} // namespace OrvImg
