#pragma once

#include <orv_sys/export.h>

namespace OrvDoc
{

class Text;

// For makers of documents.

/// Whether two texts surely show the same at the same places, with outlines of finite coordinates: seen
/// without a list of characters, places or outlines, and without an outline where the fonts say that theirs
/// are the same. Other fonts are asked for the outlines of the characters. False says nothing.
ORV_EXPORT bool AreSurelyAlike(const Text& left, const Text& right);

} // namespace OrvDoc
