#include "object_list.h"

#include "line_reporter.h"

#include <orv_doc/content_object.h>
#include <orv_doc/document.h>
#include <orv_doc/fillable.h>
#include <orv_doc/page.h>
#include <orv_doc/visitor.h>
#include <orv_paint/flat_paint.h>

#include <cstdint>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace Examples
{

namespace
{

std::string Describe(const OrvColor::ColorList<OrvColor::ColorPolicy>& color)
{
    std::ostringstream text;
    const char* separator = "";
    if (color.all)
        text << "All " << color.valueForAll;
    for (const auto& entry : color.entries) {
        text << separator << entry.name << ' ' << entry.value;
        separator = ", ";
    }
    if (!color.all && color.entries.empty())
        text << "(no ink)";
    if (color.overprint)
        text << " overprint";
    return text.str();
}

std::string DescribeFill(const OrvDoc::ContentObject& object)
{
    const auto* const fillable = dynamic_cast<const OrvDoc::Fillable*>(&object);
    if (fillable == nullptr || fillable->GetFillPaint() == nullptr)
        return "-";
    const OrvPaint::Paint& paint = *fillable->GetFillPaint();
    if (paint.GetType() == OrvPaint::Paint::Type::Flat)
        return Describe(static_cast<const OrvPaint::FlatPaint&>(paint).GetColor());
    std::ostringstream text;
    text << paint.GetType();
    return text.str();
}

class ListWriter : public OrvDoc::ConstVisitorBase
{
public:
    explicit ListWriter(std::ostream& streamToWrite) : stream(streamToWrite) {}

    using OrvDoc::ConstVisitorBase::EndVisit;
    using OrvDoc::ConstVisitorBase::Visit;

    bool Visit(const OrvDoc::Page& page) override
    {
        positions = {page.GetPageIndex() + 1, 0};
        return true;
    }

    /// Comes for groups as well: the operations of all classes lead here unless they are overridden.
    bool Visit(const OrvDoc::ContentObject& object) override
    {
        ++positions.back();
        const char* separator = "";
        for (const std::uint64_t position : positions) {
            stream << separator << position;
            separator = ".";
        }
        stream << '\t' << object.DumpInfo().first << '\t' << EscapeField(object.GetName()) << '\t'
               << EscapeField(DescribeFill(object)) << '\n';
        positions.push_back(0);
        return true;
    }

    void EndVisit(const OrvDoc::ContentObject&) override { positions.pop_back(); }

private:
    std::ostream& stream;
    /// The page, and then the objects of each open level so far.
    std::vector<std::uint64_t> positions;
};

} // namespace

void WriteObjectList(std::ostream& stream, const OrvDoc::Document& document)
{
    ListWriter writer(stream);
    document.Accept(writer);
}

} // namespace Examples
