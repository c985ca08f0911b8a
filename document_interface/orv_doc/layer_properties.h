#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <utility>

#include <orv_sys/export.h>

namespace OrvDoc
{

class Document;

/// A layer of a document (an optional content group, ISO 32000-1, 8.11.2.1), or a labelled group of layers in
/// the order of a configuration. Shared by the layer collection, its configurations and the objects on the
/// pages; must not be used after its document is gone.
class ORV_EXPORT LayerProperties
{
public:
    const Document& GetDocument() const { return document; }
    /// UTF-8.
    const std::string& GetName() const { return name; }
    /// Label of the group of layers that this entry stands in; empty outside of any.
    const std::string& GetGroupName() const { return groupName; }
    /// Whether this entry is a labelled group and no layer of its own.
    bool GetIsGroup() const { return isGroup; }
    /// Group and type of the processing step (ISO 19593-1) that the layer holds; empty if it holds none.
    const std::string& GetProcessingStepGroup() const { return processingStepGroup; }
    const std::string& GetProcessingStepType() const { return processingStepType; }

    // For makers of documents.

    LayerProperties(const Document& document, std::string name, bool isGroup);
    void SetName(std::string value) { name = std::move(value); }
    void SetProcessingStep(std::string group, std::string type);
    /// Object number of the layer in the file that it was read from; 0 for one that a program made.
    int GetSourceObject() const { return sourceObject; }
    void SetSourceObject(int value) { sourceObject = value; }

private:
    friend class LayerConfiguration;

    const Document& document;
    std::string name;
    std::string groupName;
    bool isGroup;
    std::string processingStepGroup;
    std::string processingStepType;
    int sourceObject = 0;
};

/// Prints a layer in one line, such as `"Cutting" (in "Dies", processing step Structural/Cutting, not
/// printing)`, where the last word tells what its document's default configuration says; a null pointer
/// prints as
/// `(no layer)`.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const std::shared_ptr<LayerProperties>& layer);

} // namespace OrvDoc
