#include <orv_doc/dump.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <sstream>
#include <string>

#include <orv_doc/content_object.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/layers.h>
#include <orv_doc/page.h>
#include <orv_doc/visitor.h>

#include "orv_doc/info_text.h"
#include "orv_doc/text_form.h"

namespace OrvDoc
{

namespace
{

using Detail::InfoText;

/// Deeper lines would fill the text with blanks: with a hundred thousand levels, ten gigabytes of them.
constexpr std::uint64_t maxIndent = 50;

const char* GetTypeName(Content::Type type)
{
    switch (type) {
    case Content::Type::PageContent:
        return "PageContent";
    case Content::Type::FormContent:
        return "FormContent";
    case Content::Type::ColoredPatternContent:
        return "ColoredPatternContent";
    case Content::Type::UncoloredPatternContent:
        return "UncoloredPatternContent";
    case Content::Type::SoftMaskContent:
        return "SoftMaskContent";
    }
    return "Content";
}

std::string GetInfo(const Content& content)
{
    InfoText info;
    if (content.GetBlendColorSpace().GetColorSpace()) {
        std::ostringstream space;
        space << "blend colour space " << content.GetBlendColorSpace();
        info.Add(space.str());
    }
    if (content.GetTransferFunctionSet())
        info.Add("transfer functions");
    if (const std::size_t errors = content.GetActiveErrors().GetAllErrors().size())
        info.AddCount(errors, "error");
    return info.Get();
}

std::string GetInfo(const Page& page)
{
    static constexpr std::array<const char*, 5> boxNames = {"media", "crop", "bleed", "trim", "art"};
    InfoText info;
    for (std::size_t index = 0; index < boxNames.size(); ++index) {
        const auto& box = page.GetPageBox(static_cast<PageBox>(index));
        if (box.isInitial)
            continue;
        std::string text = std::string(boxNames[index]) + " box ";
        Detail::AppendRectangle(text, box);
        info.Add(text);
    }
    return info.Get();
}

std::string GetInfo(const Document& document)
{
    InfoText info;
    info.AddCount(document.GetNumberOfPages(), "page");
    if (const std::size_t layers = document.GetLayers().GetAllLayers().size())
        info.AddCount(layers, "layer");
    if (const std::size_t separations = document.GetSeparationInfo().size())
        info.AddCount(separations, "separation");
    if (document.GetOutputIntent())
        info.AddQuoted("output intent", document.GetOutputIntent()->GetOutputConditionIdentifier());
    if (const std::size_t errors = document.GetActiveErrors().GetAllErrors().size())
        info.AddCount(errors, "error");
    return info.Get();
}

class DumpVisitor : public ConstVisitorBase
{
public:
    DumpVisitor(std::ostream& givenStream, bool givenWithBelow, std::uint64_t givenIndent)
        : stream(givenStream), withBelow(givenWithBelow), level(givenIndent)
    {}

    using ConstVisitorBase::EndVisit;
    using ConstVisitorBase::Visit;

    bool Visit(const ContentObject& object) override
    {
        const std::pair<std::string, std::string> info = object.DumpInfo();
        return Begin(info.first + '#' + std::to_string(object.GetID()), info.second);
    }
    bool Visit(const Content& content) override
    {
        return Begin(GetTypeName(content.GetType()) + ('#' + std::to_string(content.GetID())),
                     GetInfo(content));
    }
    bool Visit(const Page& page) override
    {
        return Begin("Page " + std::to_string(page.GetPageIndex()), GetInfo(page));
    }
    bool Visit(const Document& document) override { return Begin("Document", GetInfo(document)); }

    void EndVisit(const ContentObject&) override { --level; }
    void EndVisit(const Content&) override { --level; }
    void EndVisit(const Page&) override { --level; }
    void EndVisit(const Document&) override { --level; }

private:
    /// Writes the line of an item. Returns whether to go on to what is below it.
    bool Begin(const std::string& item, const std::string& info)
    {
        std::string line(2 * static_cast<std::size_t>(std::min(level, maxIndent)), ' ');
        if (level > maxIndent)
            line += "[" + std::to_string(level) + "] ";
        line += item;
        if (!info.empty())
            line += ' ' + info;
        line += '\n';
        stream.write(line.data(), static_cast<std::streamsize>(line.size()));
        ++level;
        return withBelow;
    }

    std::ostream& stream;
    bool withBelow;
    std::uint64_t level;
};

} // namespace

void Dump(const Visitable& item, std::ostream& stream, DumpOption option, std::uint64_t indent)
{
    const auto bits = static_cast<std::uint32_t>(option);
    const bool withBelow = (bits & static_cast<std::uint32_t>(DumpOption::WithBelow)) != 0;
    DumpVisitor visitor(stream, withBelow, indent);
    item.Accept(visitor);
}

} // namespace OrvDoc
