#include "pdf/writer/document/layers_writer.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include <qpdf/QPDF.hh>

#include <orv_doc/document.h>
#include <orv_doc/layer_properties.h>

#include "pdf/reader/document/layers_reader.h"
#include "pdf/reader/document/pdf_document_source.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/resources/document_resources.h"
#include "pdf/writer/document/layer_objects.h"

namespace OrvPdf
{

namespace
{

using OrvDoc::LayerConfiguration;
using OrvDoc::LayerProperties;
using LayerPointer = std::shared_ptr<LayerProperties>;
using Node = LayerConfiguration::Node;
using PrintState = LayerConfiguration::PrintState;

bool AreSameNodes(const std::vector<Node>& left, const std::vector<Node>& right)
{
    return std::equal(
        left.begin(), left.end(), right.begin(), right.end(), [](const Node& one, const Node& other) {
            const bool isSame = one.layer->GetIsGroup() == other.layer->GetIsGroup() &&
                                (one.layer->GetIsGroup()
                                     ? one.layer->GetName() == other.layer->GetName()
                                     : one.layer->GetSourceObject() != 0 &&
                                           one.layer->GetSourceObject() == other.layer->GetSourceObject());
            return isSame && AreSameNodes(one.children, other.children);
        });
}

void ReadFresh(const PdfDocumentSource& source, OrvDoc::Layers& layers)
{
    // Of the same file: nothing is wrong that was not told when it was opened.
    ErrorList errors(0);
    const SourceFile::Access access(source.GetFile());
    // A reference that nobody owns: the resources don't outlive this call.
    const std::shared_ptr<const SourceFile> file(std::shared_ptr<const SourceFile>(), &source.GetFile());
    DocumentResources resources(file);
    try {
        ReadLayers(access.GetQpdf().getRoot(), resources, layers, errors);
    } catch (const QPDFExc&) {
        // What could not be read is as good as missing.
    }
}

class LayersWriter
{
public:
    LayersWriter(const OrvDoc::Layers& givenLayers, const OrvDoc::Layers& givenFresh,
                 LayerObjects& givenObjects)
        : layers(givenLayers), fresh(givenFresh), objects(givenObjects)
    {
        for (const LayerPointer& layer : fresh.GetAllLayers()) {
            freshLayers.emplace(layer->GetSourceObject(), layer);
        }
    }

    void Write(QPDFObjectHandle catalogue)
    {
        QPDFObjectHandle properties = RequireDictionary(catalogue, "/OCProperties");
        WriteList(properties);
        QPDFObjectHandle configuration = RequireDictionary(properties, "/D");
        if (!AreSameNodes(Model().GetOrder(), fresh.GetDefaultConfiguration().GetOrder())) {
            configuration.replaceKey("/Order", MakeOrder(Model().GetOrder()));
        }
        // The base state may be one that a new layer must not begin with.
        if (HasNewLayers() || Differs(&LayerConfiguration::IsLayerVisible)) {
            WriteVisibility(configuration);
        }
        if (Differs(&LayerConfiguration::GetLayerPrintState)) {
            WritePrinting(configuration);
        }
    }

private:
    const LayerConfiguration& Model() const { return layers.GetDefaultConfiguration(); }

    static QPDFObjectHandle RequireDictionary(QPDFObjectHandle parent, const char* key)
    {
        if (!parent.getKey(key).isDictionary()) {
            parent.replaceKey(key, QPDFObjectHandle::newDictionary());
        }
        return parent.getKey(key);
    }

    void WriteList(QPDFObjectHandle properties)
    {
        const std::vector<QPDFObjectHandle> groups = objects.GetAllGroups();
        QPDFObjectHandle listed = properties.getKey("/OCGs");
        if (listed.isArray()) {
            const std::vector<QPDFObjectHandle> before = listed.getArrayAsVector();
            if (std::equal(groups.begin(), groups.end(), before.begin(), before.end(),
                           [](QPDFObjectHandle one, QPDFObjectHandle other) {
                               return one.getObjGen() == other.getObjGen();
                           })) {
                return;
            }
        }
        properties.replaceKey("/OCGs", QPDFObjectHandle::newArray(groups));
    }

    bool HasNewLayers() const
    {
        const auto& all = layers.GetAllLayers();
        return std::any_of(all.begin(), all.end(), [this](const LayerPointer& layer) {
            return freshLayers.find(layer->GetSourceObject()) == freshLayers.end();
        });
    }

    /// Whether a state of a layer is not what a reader of the file as it stands would find.
    template <typename State>
    bool Differs(State (LayerConfiguration::*get)(const LayerPointer&) const) const
    {
        for (const LayerPointer& layer : layers.GetAllLayers()) {
            const auto found = freshLayers.find(layer->GetSourceObject());
            const LayerPointer before = found == freshLayers.end() ? nullptr : found->second;
            const State state = (Model().*get)(layer);
            // A layer that the configuration doesn't know is in the state of a new one.
            if (state != (fresh.GetDefaultConfiguration().*get)(before)) {
                return true;
            }
        }
        return false;
    }

    QPDFObjectHandle MakeOrder(const std::vector<Node>& nodes)
    {
        std::vector<QPDFObjectHandle> items;
        for (const Node& node : nodes) {
            if (!node.layer->GetIsGroup()) {
                items.push_back(objects.GetGroup(node.layer));
            }
            if (node.children.empty() && !node.layer->GetIsGroup()) {
                continue;
            }
            QPDFObjectHandle below = MakeOrder(node.children);
            if (node.layer->GetIsGroup()) {
                below.insertItem(0, ObjectMaker::MakeText(node.layer->GetName()));
            }
            items.push_back(below);
        }
        return QPDFObjectHandle::newArray(items);
    }

    std::vector<QPDFObjectHandle> FindGroups(const std::function<bool(const LayerPointer&)>& isWanted)
    {
        std::vector<QPDFObjectHandle> found;
        for (const LayerPointer& layer : layers.GetAllLayers()) {
            if (isWanted(layer)) {
                found.push_back(objects.GetGroup(layer));
            }
        }
        return found;
    }

    void WriteVisibility(QPDFObjectHandle configuration)
    {
        configuration.removeKey("/BaseState");
        configuration.removeKey("/ON");
        const auto hidden =
            FindGroups([this](const LayerPointer& layer) { return !Model().IsLayerVisible(layer); });
        if (hidden.empty()) {
            configuration.removeKey("/OFF");
        } else {
            configuration.replaceKey("/OFF", QPDFObjectHandle::newArray(hidden));
        }
    }

    /// The usage dictionaries of the configuration without what they say about printing.
    static std::vector<QPDFObjectHandle> GetOtherUsages(QPDFObjectHandle usages)
    {
        std::vector<QPDFObjectHandle> others;
        if (!usages.isArray()) {
            return others;
        }
        for (QPDFObjectHandle usage : usages.getArrayAsVector()) {
            QPDFObjectHandle categories = GetEntry(usage, "/Category");
            if (!GetEntry(usage, "/Event").isNameAndEquals("/Print") || !categories.isOrHasName("/Print")) {
                others.push_back(usage);
                continue;
            }
            std::vector<QPDFObjectHandle> left;
            if (categories.isArray()) {
                left = categories.getArrayAsVector();
            }
            left.erase(std::remove_if(left.begin(), left.end(),
                                      [](QPDFObjectHandle name) { return name.isNameAndEquals("/Print"); }),
                       left.end());
            if (!left.empty()) {
                QPDFObjectHandle copy = usage.shallowCopy();
                copy.replaceKey("/Category", QPDFObjectHandle::newArray(left));
                others.push_back(copy);
            }
        }
        return others;
    }

    void WritePrinting(QPDFObjectHandle configuration)
    {
        std::vector<QPDFObjectHandle> usages = GetOtherUsages(configuration.getKey("/AS"));
        std::vector<QPDFObjectHandle> governed;
        for (const LayerPointer& layer : layers.GetAllLayers()) {
            const PrintState state = Model().GetLayerPrintState(layer);
            if (state == PrintState::AsSeen) {
                continue;
            }
            QPDFObjectHandle group = objects.GetGroup(layer);
            QPDFObjectHandle print = RequireDictionary(RequireDictionary(group, "/Usage"), "/Print");
            print.replaceKey("/PrintState",
                             QPDFObjectHandle::newName(state == PrintState::Printing ? "/ON" : "/OFF"));
            governed.push_back(group);
        }
        if (!governed.empty()) {
            QPDFObjectHandle usage = QPDFObjectHandle::newDictionary();
            usage.replaceKey("/Event", QPDFObjectHandle::newName("/Print"));
            usage.replaceKey("/Category", QPDFObjectHandle::newArray({QPDFObjectHandle::newName("/Print")}));
            usage.replaceKey("/OCGs", QPDFObjectHandle::newArray(governed));
            usages.push_back(usage);
        }
        if (usages.empty()) {
            configuration.removeKey("/AS");
        } else {
            configuration.replaceKey("/AS", QPDFObjectHandle::newArray(usages));
        }
    }

    const OrvDoc::Layers& layers;
    const OrvDoc::Layers& fresh;
    LayerObjects& objects;
    std::map<int, LayerPointer> freshLayers;
};

} // namespace

void WriteLayers(const OrvDoc::Document& document, const PdfDocumentSource* source,
                 QPDFObjectHandle catalogue, LayerObjects& objects)
{
    const OrvDoc::Layers& layers = document.GetLayers();
    if (objects.GetAllGroups().empty() && layers.GetDefaultConfiguration().GetOrder().empty()) {
        return;
    }
    OrvDoc::Layers fresh(document);
    if (source) {
        ReadFresh(*source, fresh);
    }
    LayersWriter(layers, fresh, objects).Write(catalogue);
}

} // namespace OrvPdf
