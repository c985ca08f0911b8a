#pragma once

#include <map>
#include <memory>
#include <set>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/layer.h>

#include "pdf/writer/file/object_maker.h"
#include "pdf/writer/file/writing_problems.h"

namespace OrvDoc
{
class Layers;
}

namespace OrvPdf
{

/// The objects of a document's layers in a file that is being written (ISO 32000-1, 8.11.2). A layer that was
/// read from the file keeps its object, which annotations and other parts refer to.
class LayerObjects
{
public:
    /// `catalogue` is that of the file as it was read.
    LayerObjects(ObjectMaker& givenMaker, QPDFObjectHandle catalogue, const OrvDoc::Layers& givenLayers);

    /// The layer's own object, an optional content group.
    QPDFObjectHandle GetGroup(const std::shared_ptr<OrvDoc::LayerProperties>& layer);

    /// What a layer object on a page names: a group, or a membership dictionary.
    QPDFObjectHandle GetMembership(const OrvDoc::Layer::Membership& membership);

    /// The groups of all layers in their order, and behind them those that only objects on pages name.
    std::vector<QPDFObjectHandle> GetAllGroups();

    /// Layers of pages that are none of the document's.
    const WritingProblems& GetProblems() const { return problems; }

private:
    QPDFObjectHandle MakeGroup(const OrvDoc::LayerProperties& layer);
    void UpdateGroup(QPDFObjectHandle group, const OrvDoc::LayerProperties& layer);
    QPDFObjectHandle MakeExpression(const OrvDoc::LogicalLayerExpression& expression);
    QPDFObjectHandle MakeDictionary(const OrvDoc::LogicalLayerExpression& expression);
    void AddPolicy(QPDFObjectHandle dictionary, const OrvDoc::LogicalLayerExpression& expression);

    ObjectMaker& maker;
    const OrvDoc::Layers& layers;
    std::map<int, QPDFObjectHandle> sourceGroups;
    std::map<const OrvDoc::LayerProperties*, QPDFObjectHandle> groups;
    std::map<std::string, QPDFObjectHandle> memberships;
    std::vector<QPDFObjectHandle> foreignGroups;
    bool isComplete = false;
    WritingProblems problems;
};

} // namespace OrvPdf
