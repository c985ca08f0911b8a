#pragma once

#include <memory>
#include <string>

#include <boost/variant.hpp>

#include <orv_doc/group.h>
#include <orv_doc/logical_layer_expression.h>

namespace OrvDoc
{

class LayerProperties;

/// The objects of one layer, or of one logical expression of layers, on a page (`/OC` marked content, ISO
/// 32000-1, 8.11.3.2).
class ORV_EXPORT Layer : public Group
{
public:
    using Membership = boost::variant<std::shared_ptr<LayerProperties>, LogicalLayerExpression>;

    explicit Layer(const Membership& membership);
    ~Layer() override;

    /// Renames the layer itself, for all objects that stand for it. With a logical expression, names this
    /// object.
    void SetName(const std::string& name) override;
    /// The name of the layer; with a logical expression, the name of this object.
    const std::string& GetName() const override;

    Layer* Clone(CloneStrategy& strategy) const override;
    std::pair<std::string, std::string> DumpInfo() const override;
    void Accept(ConstVisitorBase& visitor) const override;
    void Accept(VisitorBase& visitor) override;

    // For makers of documents.

    const Membership& GetMembership() const { return membership; }

protected:
    void ContentChangedSelf(Content* oldContent, Content* newContent) override;

private:
    Membership membership;
};

} // namespace OrvDoc
