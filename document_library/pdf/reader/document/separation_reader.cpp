#include "pdf/reader/document/separation_reader.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>

#include "pdf/reader/document/separation_list.h"
#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

namespace
{

/// Walks resources and what they hold, with a stack of its own: forms lie in forms as deeply as a file wants.
class ResourceWalk
{
public:
    explicit ResourceWalk(SeparationList& givenList) : list(givenList) {}

    void Run(QPDFObjectHandle resources)
    {
        Push(resources, &ResourceWalk::VisitResources);
        while (!stack.empty()) {
            const Step step = stack.back();
            stack.pop_back();
            const std::size_t below = stack.size();
            (this->*step.visit)(step.object);
            // The step named first is to be taken first.
            std::reverse(stack.begin() + static_cast<std::ptrdiff_t>(below), stack.end());
        }
    }

private:
    using Visit = void (ResourceWalk::*)(QPDFObjectHandle);

    struct Step
    {
        QPDFObjectHandle object;
        Visit visit;
    };

    // Direct objects need no record: they can't lead back to themselves.
    void Push(QPDFObjectHandle object, Visit visit)
    {
        if (object.isInitialized() && (!object.isIndirect() || visited.insert(object.getObjGen()).second))
            stack.push_back({object, visit});
    }

    void PushEntries(QPDFObjectHandle dictionary, Visit visit)
    {
        if (!dictionary.isDictionary())
            return;
        for (const auto& entry : dictionary.getDictAsMap())
            Push(entry.second, visit);
    }

    void VisitResources(QPDFObjectHandle resources)
    {
        if (!resources.isDictionary())
            return;
        QPDFObjectHandle spaces = resources.getKey("/ColorSpace");
        if (spaces.isDictionary()) {
            for (const auto& entry : spaces.getDictAsMap())
                list.AddSpace(entry.second);
        }
        PushEntries(resources.getKey("/ExtGState"), &ResourceWalk::VisitGraphicsState);
        PushEntries(resources.getKey("/Font"), &ResourceWalk::VisitContent);
        PushEntries(resources.getKey("/Pattern"), &ResourceWalk::VisitPattern);
        PushEntries(resources.getKey("/Shading"), &ResourceWalk::VisitColored);
        PushEntries(resources.getKey("/XObject"), &ResourceWalk::VisitContent);
    }

    // A form, a picture, or a font whose glyphs are contents.
    void VisitContent(QPDFObjectHandle object)
    {
        VisitColored(object);
        Push(GetEntry(object, "/Resources"), &ResourceWalk::VisitResources);
    }

    void VisitColored(QPDFObjectHandle object) { list.AddSpace(GetEntry(object, "/ColorSpace")); }

    void VisitPattern(QPDFObjectHandle pattern)
    {
        Push(GetEntry(pattern, "/Resources"), &ResourceWalk::VisitResources);
        Push(GetEntry(pattern, "/Shading"), &ResourceWalk::VisitColored);
        Push(GetEntry(pattern, "/ExtGState"), &ResourceWalk::VisitGraphicsState);
    }

    void VisitGraphicsState(QPDFObjectHandle state)
    {
        Push(GetEntry(GetEntry(state, "/SMask"), "/G"), &ResourceWalk::VisitContent);
    }

    SeparationList& list;
    std::vector<Step> stack;
    std::set<QPDFObjGen> visited;
};

} // namespace

std::vector<OrvDoc::Separation::Entry> CollectSeparations(QPDFObjectHandle catalogue,
                                                          const std::vector<QPDFObjectHandle>& pageResources,
                                                          DocumentResources& document)
{
    SeparationList list(document);
    list.AddListed(GetEntry(catalogue, "/OrvSeparations"));
    ResourceWalk walk(list);
    for (const QPDFObjectHandle& resources : pageResources)
        walk.Run(resources);
    return list.Take();
}

} // namespace OrvPdf
