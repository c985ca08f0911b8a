// Any bytes as the optional content properties of a file. The first line is their dictionary, and each line
// behind it an object, numbered from 5:
//
//     << /OCGs [5 0 R] /D << /Order [5 0 R] /OFF [5 0 R] >> >>
//     << /Type /OCG /Name (Cutting) >>
//     << /Type /OCMD /VE [/Not 5 0 R] >>
//
// The page shows something in each of the objects, as a layer.
//
// Laws:
// - the layers, their order and states are the same when they are read a second time, when the file is
//   saved, when all of its contents are written anew, and when a document that a program made, with the same
//   layers and a copy of the page, is saved;
// - what comes back of the latter is read without errors.

#include "fuzz_target.h"

#include "laws/document_trip.h"
#include "laws/equal_documents.h"
#include "laws/scratch_folder.h"
#include "laws/small_limits.h"
#include "support/all_contents.h"
#include "support/pdf_text.h"

#include <orv_doc/clone.h>
#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/page.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace HarrowSupport::Fuzzing
{

namespace
{

using DocumentPointer = std::unique_ptr<OrvDoc::Document>;
using LayerPointer = std::shared_ptr<OrvDoc::LayerProperties>;
using Node = OrvDoc::LayerConfiguration::Node;

constexpr std::size_t firstObject = 5;
/// More would only take time.
constexpr std::size_t maximalObjects = 50;

std::string MakeFile(const std::string& input)
{
    std::istringstream lines(input);
    std::string properties;
    std::getline(lines, properties);
    std::vector<std::string> objects;
    for (std::string line; objects.size() < maximalObjects && std::getline(lines, line);)
        objects.push_back(line);

    std::string content;
    std::string lists;
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const std::string number = std::to_string(firstObject + i);
        content += "/OC /o" + number + " BDC 0 0 m 9 9 l S EMC\n";
        lists += "/o" + number + " " + number + " 0 R ";
    }
    return Testing::PdfFileOfPages({content}, "/OCProperties " + properties, "/Properties << " + lists + ">>",
                                   objects);
}

void DescribeNodes(std::ostream& stream, const std::vector<Node>& nodes)
{
    for (const Node& node : nodes) {
        stream << node.layer << (node.layer->GetIsGroup() ? " group {" : " {");
        DescribeNodes(stream, node.children);
        stream << "}\n";
    }
}

/// All that there is to say about the layers of a document, of which the comparison looks at a part.
std::string Describe(const OrvDoc::Document& document)
{
    const OrvDoc::Layers& layers = document.GetLayers();
    const OrvDoc::LayerConfiguration& configuration = layers.GetDefaultConfiguration();
    std::ostringstream stream;
    for (const LayerPointer& layer : layers.GetAllLayers()) {
        stream << layer << (configuration.IsLayerVisible(layer) ? " seen, " : " hidden, ")
               << static_cast<int>(configuration.GetLayerPrintState(layer)) << "\n";
    }
    DescribeNodes(stream, configuration.GetOrder());
    return stream.str();
}

void RequireSame(const OrvDoc::Document& left, const OrvDoc::Document& right, const char* law)
{
    const std::string before = Describe(left);
    const std::string after = Describe(right);
    if (before != after)
        std::cerr << before << "versus\n" << after;
    Require(before == after, law);
    RequireEqual(left, right, law);
}

std::vector<Node> CopyNodes(const std::vector<Node>& nodes,
                            const std::map<LayerPointer, LayerPointer>& copies, OrvDoc::Layers& target)
{
    std::vector<Node> copied;
    for (const Node& node : nodes) {
        const LayerPointer layer =
            node.layer->GetIsGroup() ? target.CreateGroup(node.layer->GetName()) : copies.at(node.layer);
        copied.push_back({layer, CopyNodes(node.children, copies, target)});
    }
    return copied;
}

void CopyLayers(const OrvDoc::Layers& source, OrvDoc::Layers& target)
{
    std::map<LayerPointer, LayerPointer> copies;
    const OrvDoc::LayerConfiguration& given = source.GetDefaultConfiguration();
    OrvDoc::LayerConfiguration& made = target.GetDefaultConfiguration();
    for (const LayerPointer& layer : source.GetAllLayers()) {
        const LayerPointer copy = target.AddUnorderedLayer(layer->GetName());
        copy->SetProcessingStep(layer->GetProcessingStepGroup(), layer->GetProcessingStepType());
        made.SetLayerVisible(copy, given.IsLayerVisible(layer));
        made.SetLayerPrintState(copy, given.GetLayerPrintState(layer));
        copies.emplace(layer, copy);
    }
    made.SetOrder(CopyNodes(given.GetOrder(), copies, target));
}

/// The same document, but for where it comes from.
DocumentPointer MakeAnew(OrvDoc::Document& document)
{
    DocumentPointer made = OrvDoc::Document::CreateNew();
    CopyLayers(document.GetLayers(), made->GetLayers());
    OrvDoc::Page& page = *document.GetPagesBegin();
    OrvDoc::Content& content = made->AddPage(page.GetPageBox(OrvDoc::PageBox::Media)).GetContent();
    OrvDoc::CloneStrategy strategy(*made, OrvDoc::CloneStrategy::CloneFlags::Full);
    OrvDoc::CloneContent(page.GetContent(), content, strategy);
    return made;
}

void RequireNoErrors(OrvDoc::Document& document)
{
    for (const auto& error : document.GetActiveErrors().GetAllErrors())
        std::cerr << error->GetText() << "\n";
    Require(document.GetActiveErrors().GetAllErrors().empty(), "what a program made is read without errors");
}

void RequireSameAfterTrip(const OrvDoc::Document& original, OrvDoc::Document& document, const char* name,
                          const char* law)
{
    if (const DocumentPointer back = SaveAndRead(document, name))
        RequireSame(original, *back, law);
}

void RequireLayers(const std::string& input)
{
    const std::string file = ScratchFolder().Write("layers.pdf", MakeFile(input));
    const OrvDoc::ReadOptions limits = SmallLimits();
    const DocumentPointer original = Open(file, limits);
    // What ends the catalogue's dictionary early can leave no file.
    if (original == nullptr || original->GetNumberOfPages() == 0)
        return;
    const DocumentPointer changed = OrvDoc::Document::Create(file, limits);
    RequireWithin(limits.limits, *original);
    RequireSame(*original, *changed, "layers that are read twice are the same");
    RequireSameAfterTrip(*original, *changed, "kept.pdf", "layers that are kept come back");
    Examples::MarkAllContentsChanged(*changed);
    RequireSameAfterTrip(*original, *changed, "changed.pdf",
                         "layers of contents that are written anew come back");
    const DocumentPointer back = SaveAndRead(*MakeAnew(*original), "made.pdf");
    Require(back != nullptr, "a document that a program made can be saved");
    RequireSame(*original, *back, "layers that a program made come back");
    RequireNoErrors(*back);
}

} // namespace

} // namespace HarrowSupport::Fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    HarrowSupport::Fuzzing::RequireLayers(std::string(data, data + size));
    return 0;
}
