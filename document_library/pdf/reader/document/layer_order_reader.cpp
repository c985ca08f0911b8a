#include "pdf/reader/document/layer_order_reader.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>

#include <orv_doc/layer_properties.h>

#include "pdf/limit_text.h"
#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

namespace
{

using Nodes = std::vector<OrvDoc::LayerConfiguration::Node>;

// As many as the model takes.
constexpr std::uint32_t MostLevels = 100;
// Arrays that are referred to many times over can make a small file a tree without end.
constexpr std::size_t MostNodes = 1'000'000;

class OrderReader
{
public:
    OrderReader(DocumentResources& givenDocument, const OrvDoc::Layers& givenLayers, ErrorList& givenErrors)
        : document(givenDocument),
          layers(givenLayers),
          errors(givenErrors),
          levels(std::min(MostLevels, givenDocument.GetFile().GetOptions().limits.layerOrderNesting))
    {}

    // `depth` counts the arrays around; at most as many levels of nodes come out. Items before `begin` are
    // left out.
    void Read(QPDFObjectHandle array, std::size_t depth, std::ptrdiff_t begin, Nodes& nodes)
    {
        if (depth >= levels) {
            errors.Add("OCProperties: D: Order: " +
                       LimitText("layerOrderNesting", levels, "what lies deeper is left out"));
            return;
        }
        if (array.isIndirect() && !open.insert(array.getObjGen()).second) {
            errors.Add("OCProperties: D: Order: " + DescribeObject(array) + " lies within itself");
            return;
        }
        bool follows = false; // Whether a layer stands right before, whose sublayers an array would be.
        const std::vector<QPDFObjectHandle> items = array.getArrayAsVector();
        for (auto place = items.begin() + begin; place != items.end() && size < MostNodes; ++place) {
            ++size;
            QPDFObjectHandle item = *place;
            if (item.isArray()) {
                ReadArray(item, depth, follows, nodes);
                follows = false;
            } else if (const auto layer = document.FindLayer(item)) {
                nodes.push_back({layer, {}});
                follows = true;
            } else {
                errors.Add("OCProperties: D: Order: " + DescribeObject(item) +
                           " is no layer of the document");
                follows = false;
            }
        }
        if (array.isIndirect())
            open.erase(array.getObjGen());
    }

    bool IsTooLarge() const { return size >= MostNodes; }

private:
    void ReadArray(QPDFObjectHandle array, std::size_t depth, bool follows, Nodes& nodes)
    {
        QPDFObjectHandle first =
            array.getArrayNItems() > 0 ? array.getArrayItem(0) : QPDFObjectHandle::newNull();
        if (first.isString()) {
            nodes.push_back({layers.CreateGroup(GetTextString(first)), {}});
            Read(array, depth + 1, 1, nodes.back().children);
        } else if (follows) {
            Read(array, depth + 1, 0, nodes.back().children);
        } else {
            Read(array, depth + 1, 0, nodes);
        }
    }

    DocumentResources& document;
    const OrvDoc::Layers& layers;
    ErrorList& errors;
    std::size_t levels;
    std::size_t size = 0;
    std::set<QPDFObjGen> open;
};

} // namespace

Nodes ReadLayerOrder(QPDFObjectHandle order, DocumentResources& document, const OrvDoc::Layers& layers,
                     ErrorList& errors)
{
    Nodes nodes;
    if (order.isNull())
        return nodes;
    if (!order.isArray()) {
        errors.Add("OCProperties: D: Order is no array");
        return nodes;
    }
    OrderReader reader(document, layers, errors);
    reader.Read(order, 0, 0, nodes);
    if (reader.IsTooLarge())
        errors.Add("OCProperties: D: Order has more than " + std::to_string(MostNodes) +
                   " entries; the rest is left out");
    return nodes;
}

} // namespace OrvPdf
