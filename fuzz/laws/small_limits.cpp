#include "laws/small_limits.h"

#include "fuzz_target.h"

#include "support/all_contents.h"

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/group.h>
#include <orv_doc/path.h>
#include <plexa/compound.h>

#include <cstdint>
#include <iterator>
#include <vector>

namespace HarrowSupport::Fuzzing
{

namespace
{

using Limits = OrvDoc::ReadOptions::Limits;

/// The objects of a content that are not in objects of it, then those in them, and so on.
std::vector<const OrvDoc::ContentObject*> ListObjects(const OrvDoc::Content& content)
{
    std::vector<const OrvDoc::ContentObject*> objects;
    const auto add = [&objects](const OrvDoc::ContentObject* object) {
        for (; object != nullptr; object = object->next)
            objects.push_back(object);
    };
    add(content.GetChildren().first);
    for (std::size_t i = 0; i < objects.size(); ++i) {
        if (const auto* const group = dynamic_cast<const OrvDoc::Group*>(objects[i]))
            add(group->children.first);
    }
    return objects;
}

std::uint64_t CountSegments(const OrvDoc::Path& path)
{
    std::uint64_t count = 0;
    if (path.DefiningCompound()) {
        for (const auto& subpath : path.DefiningCompound()->GetSubpaths()) {
            const auto& segments = subpath->GetDrawnSegments();
            count += static_cast<std::uint64_t>(std::distance(segments.begin(), segments.end()));
        }
    }
    return count;
}

void RequireContentWithin(const Limits& limits, const OrvDoc::Content& content)
{
    const std::vector<const OrvDoc::ContentObject*> objects = ListObjects(content);
    Require(objects.size() <= limits.contentObjects, "a content has no more objects than the limit");
    // The last one tells how many more there were.
    Require(content.GetActiveErrors().GetAllErrors().size() <= limits.errors + 1,
            "a content keeps no more errors than the limit");
    for (const OrvDoc::ContentObject* const object : objects) {
        const auto* const path = dynamic_cast<const OrvDoc::Path*>(object);
        if (path == nullptr)
            continue;
        Require(CountSegments(*path) <= limits.pathSegments, "a path has no more segments than the limit");
        Require(path->GetStrokeProperties().dashArray.size() <= limits.dashElements,
                "a dash pattern has no more lengths than the limit");
    }
}

} // namespace

OrvDoc::ReadOptions SmallLimits()
{
    OrvDoc::ReadOptions options;
    Limits& limits = options.limits;
    limits.objectNesting = 40;
    limits.contentNesting = 30;
    limits.formNesting = 6;
    limits.pageTreeNesting = 20;
    limits.layerOrderNesting = 8;
    limits.pages = 20;
    limits.indirectObjects = 5000;
    limits.contentStreamBytes = 100000;
    limits.streamBytes = 1000000;
    limits.documentBytes = 100000000;
    limits.contentObjects = 300;
    limits.operands = 40;
    limits.operandElements = 100;
    limits.operandBytes = 1000;
    limits.pathSegments = 100;
    limits.dashElements = 8;
    limits.pictureSamples = 100000;
    limits.colorants = 8;
    limits.functionSamples = 10000;
    limits.functionNesting = 5;
    limits.calculatorTokens = 200;
    limits.errors = 20;
    return options;
}

OrvDoc::ReadOptions LimitsOfWritten()
{
    const Limits usual;
    OrvDoc::ReadOptions options = SmallLimits();
    Limits& limits = options.limits;
    limits.objectNesting = usual.objectNesting;
    limits.contentNesting = usual.contentNesting;
    limits.formNesting = usual.formNesting;
    limits.indirectObjects = usual.indirectObjects;
    limits.contentStreamBytes = usual.contentStreamBytes;
    limits.contentObjects = usual.contentObjects;
    limits.operands = usual.operands;
    limits.operandElements = usual.operandElements;
    limits.operandBytes = usual.operandBytes;
    limits.pathSegments = usual.pathSegments;
    limits.errors = usual.errors;
    return options;
}

void RequireWithin(const Limits& limits, OrvDoc::Document& document)
{
    Require(document.GetNumberOfPages() <= limits.pages, "a document has no more pages than the limit");
    // Those of the structure, those of the page tree, which is read later, and those that are found after
    // reading have a last one each.
    Require(document.GetActiveErrors().GetAllErrors().size() <= 2 * limits.errors + 3,
            "a document keeps no more errors than the limit");
    for (const OrvDoc::Content* const content : Examples::ListAllContents(document))
        RequireContentWithin(limits, *content);
}

} // namespace HarrowSupport::Fuzzing
