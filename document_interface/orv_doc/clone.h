#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include <orv_sys/export.h>

namespace OrvBlend
{
struct Transparency;
}

namespace OrvPaint
{
class Paint;
}

namespace OrvDoc
{

namespace Detail
{
class NestedClones;
}

class Content;
class Document;
class LayerProperties;

/// How objects are copied into a document. Remembers what was copied already, so that what the sources share
/// the copies share too; lives for the length of one copy.
class ORV_EXPORT CloneStrategy
{
public:
    enum class CloneFlags : std::uint32_t
    {
        Full = 0, ///< Everything that the objects refer to comes along.
    };

    CloneStrategy(Document& target, CloneFlags flags);
    ~CloneStrategy();
    CloneStrategy(const CloneStrategy&) = delete;
    CloneStrategy& operator=(const CloneStrategy&) = delete;

    // For makers of documents.

    Document& GetDocument() { return target; }
    CloneFlags GetFlags() const { return flags; }
    /// The layer of the target document that stands for a layer of a source: the same one in the same
    /// document, a layer of equal properties if the target has one, otherwise a new one.
    std::shared_ptr<LayerProperties> CloneLayer(const std::shared_ptr<LayerProperties>& layer);
    /// The paint that stands for a paint of a source. A pattern or a form is copied with its content, blend
    /// colour space and transfer functions included, also inside the same document; any other paint belongs
    /// to no document and stands for itself. A content that several paints share is copied once. Contents may
    /// be nested as deep as memory allows and may hold themselves. Null for null.
    std::shared_ptr<const OrvPaint::Paint> ClonePaint(const std::shared_ptr<const OrvPaint::Paint>& paint);
    /// The same for a transparency: one with a soft mask is copied with the mask and its content.
    std::shared_ptr<const OrvBlend::Transparency>
    CloneTransparency(const std::shared_ptr<const OrvBlend::Transparency>& transparency);

private:
    Document& target;
    CloneFlags flags;
    std::map<const LayerProperties*, std::shared_ptr<LayerProperties>> layers;
    std::unique_ptr<Detail::NestedClones> nested;
};

/// Copies all objects of a content on top of those of another, which lies in the strategy's document, with
/// all that they refer to. The destination needs nothing of the source's document afterwards. The blend
/// colour space and the transfer functions are not copied.
ORV_EXPORT void CloneContent(const Content& source, Content& destination, CloneStrategy& strategy);

} // namespace OrvDoc
