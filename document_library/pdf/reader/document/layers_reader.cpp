#include "pdf/reader/document/layers_reader.h"

#include <string>
#include <vector>

#include <orv_doc/layer_configuration.h>
#include <orv_doc/layer_properties.h>

#include "pdf/reader/document/layer_order_reader.h"
#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

namespace
{

using OrvDoc::LayerConfiguration;
using LayerPointer = std::shared_ptr<OrvDoc::LayerProperties>;

class LayersReader
{
public:
    LayersReader(DocumentResources& givenDocument, OrvDoc::Layers& givenLayers, ErrorList& givenErrors)
        : document(givenDocument), layers(givenLayers), errors(givenErrors)
    {}

    void ReadLayerList(QPDFObjectHandle groups)
    {
        if (!groups.isArray()) {
            errors.Add("OCProperties: OCGs is no array");
            return;
        }
        for (QPDFObjectHandle group : groups.getArrayAsVector()) {
            const std::string name = "OCProperties: OCGs: " + DescribeObject(group);
            if (!group.isDictionary() || !group.isIndirect()) {
                errors.Add(name + " is no layer");
                continue;
            }
            if (document.FindLayer(group)) {
                errors.Add(name + " is listed twice");
                continue;
            }
            ReadLayer(group);
        }
    }

    void ReadConfiguration(QPDFObjectHandle configuration)
    {
        if (!configuration.isDictionary()) {
            errors.Add("OCProperties: D is no dictionary");
            return;
        }
        QPDFObjectHandle base = configuration.getKey("/BaseState");
        const bool isSeen = !base.isNameAndEquals("/OFF");
        if (isSeen && !base.isNull() && !base.isNameAndEquals("/ON"))
            errors.Add("OCProperties: D: BaseState is neither ON nor OFF; the layers are taken to be on");
        for (const LayerPointer& layer : layers.GetAllLayers())
            Target().SetLayerVisible(layer, isSeen);
        ForEachLayer(configuration.getKey("/ON"), "ON", [this](const LayerPointer& layer, QPDFObjectHandle) {
            Target().SetLayerVisible(layer, true);
        });
        ForEachLayer(
            configuration.getKey("/OFF"), "OFF",
            [this](const LayerPointer& layer, QPDFObjectHandle) { Target().SetLayerVisible(layer, false); });
        ReadUsage(configuration.getKey("/AS"));
        Target().SetOrder(ReadLayerOrder(configuration.getKey("/Order"), document, layers, errors));
    }

private:
    LayerConfiguration& Target() { return layers.GetDefaultConfiguration(); }

    void ReadLayer(QPDFObjectHandle group)
    {
        QPDFObjectHandle name = group.getKey("/Name");
        if (!name.isString())
            errors.Add(DescribeObject(group) + ": a layer has no Name");
        const LayerPointer layer = layers.AddUnorderedLayer(GetTextString(name));
        layer->SetSourceObject(group.getObjectID());
        document.AddLayer(group.getObjGen(), layer);

        QPDFObjectHandle step = group.getKey("/GTS_Metadata");
        if (step.isDictionary()) {
            layer->SetProcessingStep(GetNameText(step.getKey("/GTS_ProcStepsGroup")),
                                     GetNameText(step.getKey("/GTS_ProcStepsType")));
        } else if (!step.isNull()) {
            errors.Add(DescribeObject(group) + ": GTS_Metadata is no dictionary");
        }
    }

    template <typename Function>
    void ForEachLayer(QPDFObjectHandle array, const std::string& key, Function function)
    {
        if (array.isNull())
            return;
        if (!array.isArray()) {
            errors.Add("OCProperties: D: " + key + " is no array");
            return;
        }
        for (QPDFObjectHandle group : array.getArrayAsVector()) {
            if (const LayerPointer layer = document.FindLayer(group))
                function(layer, group);
            else
                errors.Add("OCProperties: D: " + key + ": " + DescribeObject(group) +
                           " is no layer of the document");
        }
    }

    // What happens to layers when the page is printed is told by each layer, and takes effect for those that
    // the configuration lists (8.11.4.4).
    void ReadUsage(QPDFObjectHandle usages)
    {
        if (usages.isNull())
            return;
        if (!usages.isArray()) {
            errors.Add("OCProperties: D: AS is no array");
            return;
        }
        for (QPDFObjectHandle usage : usages.getArrayAsVector()) {
            QPDFObjectHandle event = GetEntry(usage, "/Event");
            if (!event.isName()) {
                errors.Add("OCProperties: D: AS: " + DescribeObject(usage) + " has no Event");
                continue;
            }
            if (event.isNameAndEquals("/Print") && GetEntry(usage, "/Category").isOrHasName("/Print"))
                ForEachLayer(usage.getKey("/OCGs"), "AS",
                             [this](const LayerPointer& layer, QPDFObjectHandle group) {
                                 ReadPrinting(layer, group);
                             });
        }
    }

    void ReadPrinting(const LayerPointer& layer, QPDFObjectHandle group)
    {
        QPDFObjectHandle state = GetEntry(GetEntry(GetEntry(group, "/Usage"), "/Print"), "/PrintState");
        if (state.isNameAndEquals("/ON"))
            Target().SetLayerPrintState(layer, LayerConfiguration::PrintState::Printing);
        else if (state.isNameAndEquals("/OFF"))
            Target().SetLayerPrintState(layer, LayerConfiguration::PrintState::NotPrinting);
        else if (!state.isNull())
            errors.Add(DescribeObject(group) + ": PrintState is neither ON nor OFF");
    }

    DocumentResources& document;
    OrvDoc::Layers& layers;
    ErrorList& errors;
};

} // namespace

void ReadLayers(QPDFObjectHandle catalogue, DocumentResources& document, OrvDoc::Layers& layers,
                ErrorList& errors)
{
    QPDFObjectHandle properties = GetEntry(catalogue, "/OCProperties");
    if (properties.isNull())
        return;
    if (!properties.isDictionary()) {
        errors.Add("the catalogue's OCProperties is no dictionary");
        return;
    }
    LayersReader reader(document, layers, errors);
    reader.ReadLayerList(properties.getKey("/OCGs"));
    reader.ReadConfiguration(properties.getKey("/D"));
}

} // namespace OrvPdf
