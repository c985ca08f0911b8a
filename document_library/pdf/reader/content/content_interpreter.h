#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <orv_doc/read_options.h>
#include <plexa/coordinate_systems.h>
#include <plexa/rectangle.h>
#include <plexa/transformation.h>

namespace OrvDoc
{
class Content;
}

namespace OrvPdf
{

class ContentResources;
class ForeignObjects;
struct GraphicsState;
struct NestedReading;

/// A run of bytes of a content stream.
struct ByteRange
{
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// What came out of the interpretation of a content stream, beside the objects.
struct Interpretation
{
    /// Texts of the active errors, in order of their first occurrence, without the place of the content
    /// ("page 3"); one for each kind of problem and operator, with a count, so that a damaged stream can't
    /// flood the list.
    std::vector<std::string> errors;
    /// Whether valid operators were left out that the model has no place for. Such a content is kept as it
    /// stands in the file as long as nobody changes it.
    bool hasUnmodelled = false;
    /// The parts that no reader can make sense of, in order, with something between any two. A content that
    /// is kept is written with a blank in the place of each, lest what stands on both sides runs together.
    std::vector<ByteRange> damaged;
    /// The parameters of the state that the content began with that its objects depend on.
    std::uint32_t usedParameters = 0;
    /// What a glyph without a colour of its own says that it paints; initial for others.
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> glyphBox;
    /// Null if no object has foreign parameters.
    std::shared_ptr<const ForeignObjects> foreign;
    /// The contents inside of this one that have something to tell, each once, in order of their first use.
    std::vector<std::shared_ptr<const NestedReading>> nested;
};

/// What a content stream is read in.
struct ContentFrame
{
    /// The state that it begins with; null stands for that of a page.
    const GraphicsState* initial = nullptr;
    /// What can be seen of the content, in its coordinates: it is what an operator paints that paints
    /// everything.
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> box;
    /// From the coordinates of the container that the objects are for to those of the content, where the two
    /// differ. The stream begins with a `cm` of it, which leads into the container.
    Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem> base;
    /// The content is a glyph of a Type 3 font (ISO 32000-1, 9.6.5).
    bool isGlyph = false;
};

/// Interprets a decoded content stream into the empty content (ISO 32000-1, 7.8.2 and 8). Throws nothing for
/// what the stream holds.
Interpretation InterpretContent(std::string_view stream, ContentResources& resources,
                                const OrvDoc::ReadOptions::Limits& limits, OrvDoc::Content& content,
                                const ContentFrame& frame = {});

} // namespace OrvPdf
