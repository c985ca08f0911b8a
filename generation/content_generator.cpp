#include <harrow_support/content_generator.h>

#include <string>
#include <utility>

#include <boost/variant.hpp>

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_doc/layer.h>
#include <orv_doc/layers.h>
#include <orv_doc/logical_layer_expression.h>

namespace HarrowSupport
{

ContentGenerator::ContentGenerator(OrvDoc::Content& contentToFill) : content(contentToFill) {}

ContentGenerator::ContentGenerator(const ContentGenerator& other) = default;

ContentGenerator::~ContentGenerator() = default;

ContentGenerator& ContentGenerator::Add(std::unique_ptr<OrvDoc::ContentObject> object)
{
    // Released before the call: a container that throws may have taken the object already.
    if (!insertionStack.empty()) {
        OrvDoc::Group* const container = insertionStack.top().container;
        container->AddOnTop(object.release());
    } else {
        content.AddOnTop(object.release());
    }
    return *this;
}

ContentGenerator& ContentGenerator::BeginGroup(std::unique_ptr<OrvDoc::Group> group)
{
    OrvDoc::Group* const opened = group.get();
    Add(std::move(group));
    insertionStack.push({opened, false});
    return *this;
}

ContentGenerator& ContentGenerator::BeginLayer(boost::string_view name)
{
    using Membership =
        boost::variant<std::shared_ptr<OrvDoc::LayerProperties>, OrvDoc::LogicalLayerExpression>;

    std::shared_ptr<OrvDoc::LayerProperties> properties =
        content.GetDocument().GetLayers().AddLayer(std::string(name.data(), name.size()));
    auto layer = std::make_unique<OrvDoc::Layer>(Membership(std::move(properties)));
    OrvDoc::Layer* const opened = layer.get();
    Add(std::move(layer));
    insertionStack.push({opened, true});
    return *this;
}

ContentGenerator& ContentGenerator::EndGroup()
{
    insertionStack.pop();
    return *this;
}

ContentGenerator& ContentGenerator::EndLayer()
{
    return EndGroup();
}

OrvDoc::ContentObject& ContentGenerator::Current()
{
    return insertionStack.empty() ? *content.GetChildren().last
                                  : *insertionStack.top().container->children.last;
}

OrvDoc::Document& ContentGenerator::GetDocument()
{
    return content.GetDocument();
}

} // namespace HarrowSupport
