// Each limit of the record, on files that ask for as much as it allows and for one more.

#include "every_limit.h"

#include "support/limit_files.h"
#include "support/temporary_folder.h"

#include <orv_color/color_list.h>
#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/group.h>
#include <orv_doc/image.h>
#include <orv_doc/layer_configuration.h>
#include <orv_doc/layers.h>
#include <orv_doc/marked_content.h>
#include <orv_doc/page.h>
#include <orv_doc/path.h>
#include <orv_doc/read_options.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>
#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/flat_paint.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/whole_function.h>
#include <orv_sys/error.h>
#include <plexa/geometry.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

/// What a page paints, groups left out of account.
std::vector<const OrvDoc::ContentObject*> ListObjects(const OrvDoc::Content& content)
{
    std::vector<const OrvDoc::ContentObject*> found;
    std::vector<const OrvDoc::ContentObject*> open{content.GetChildren().first};
    while (!open.empty()) {
        const OrvDoc::ContentObject* const object = open.back();
        open.pop_back();
        if (!object)
            continue;
        open.push_back(object->next);
        if (const auto* const group = dynamic_cast<const OrvDoc::Group*>(object))
            open.push_back(group->children.first);
        else
            found.push_back(object);
    }
    return found;
}

OrvDoc::Content& FirstContent(OrvDoc::Document& document)
{
    return document.GetPagesBegin()->GetContent();
}

const OrvDoc::Path& FirstPath(OrvDoc::Document& document)
{
    return dynamic_cast<const OrvDoc::Path&>(*ListObjects(FirstContent(document)).at(0));
}

std::size_t CountPages(OrvDoc::Document& document)
{
    std::size_t count = 0;
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page)
        ++count;
    return count;
}

std::vector<std::string> TellErrors(OrvDoc::Document& document)
{
    std::vector<std::string> texts;
    const auto add = [&texts](const OrvDoc::Errors& errors) {
        for (const auto& error : errors.GetAllErrors())
            texts.push_back(error->GetText());
    };
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page)
        add(page->GetContent().GetActiveErrors());
    add(document.GetActiveErrors());
    return texts;
}

// Whether all that the file asks for was read.

bool HasDepthOfProperties(OrvDoc::Document& document, std::size_t levels)
{
    const auto& group = dynamic_cast<const OrvDoc::Group&>(*FirstContent(document).GetChildren().first);
    OrvSys::PdfObject inside = group.GetMarkedContent()->properties.Find("Key");
    std::size_t depth = 1;
    for (; inside.IsArray(); ++depth)
        inside = inside.GetItems().empty() ? OrvSys::PdfObject() : inside.GetItems().front();
    return depth == levels;
}

bool HasDepthOfGroups(OrvDoc::Document& document, std::size_t levels)
{
    std::size_t depth = 0;
    const OrvDoc::ContentObject* object = FirstContent(document).GetChildren().first;
    while (const auto* const group = dynamic_cast<const OrvDoc::Group*>(object)) {
        ++depth;
        object = group->children.first;
    }
    return depth == levels;
}

bool HasDepthOfForms(OrvDoc::Document& document, std::size_t levels)
{
    std::size_t depth = 0;
    const OrvDoc::Content* content = &FirstContent(document);
    while (content->GetChildren().first) {
        const auto& path = dynamic_cast<const OrvDoc::Path&>(*content->GetChildren().first);
        const auto* const form = dynamic_cast<const OrvPaint::FormPaint*>(path.GetFillPaint().get());
        if (!form)
            return depth == levels;
        ++depth;
        content = &form->GetContent();
    }
    return false;
}

bool HasDepthOfLayers(OrvDoc::Document& document, std::size_t levels)
{
    const std::vector<OrvDoc::LayerConfiguration::Node>* nodes =
        &document.GetLayers().GetDefaultConfiguration().GetOrder();
    std::size_t depth = 0;
    for (; !nodes->empty(); nodes = &nodes->front().children)
        ++depth;
    return depth == levels;
}

bool HasPages(OrvDoc::Document& document, std::size_t pages)
{
    return CountPages(document) == pages;
}

bool HasOnePage(OrvDoc::Document& document, std::size_t)
{
    return CountPages(document) == 1;
}

bool HasPaths(OrvDoc::Document& document, std::size_t paths)
{
    return ListObjects(FirstContent(document)).size() == paths;
}

bool HasPathOfEachEightBytes(OrvDoc::Document& document, std::size_t bytes)
{
    return HasPaths(document, bytes / 8);
}

bool HasOnePath(OrvDoc::Document& document, std::size_t)
{
    return HasPaths(document, 1);
}

/// The clip is there once more for each copy.
bool HasPathsOfOverlaps(OrvDoc::Document& document, std::size_t copies)
{
    return HasPaths(document, 2 * (copies + 1));
}

bool HasGroupMatrix(OrvDoc::Document& document, std::size_t)
{
    const auto& group = dynamic_cast<const OrvDoc::Group&>(*FirstContent(document).GetChildren().last);
    return !Plexa::IsIdentity(group.GetTransformation());
}

const OrvPaint::FlatPaint* FlatPaintOf(const OrvDoc::Path& path)
{
    return dynamic_cast<const OrvPaint::FlatPaint*>(path.GetFillPaint().get());
}

/// The colour that was there before all states were saved.
bool HasBlackPath(OrvDoc::Document& document, std::size_t)
{
    return FlatPaintOf(FirstPath(document))->GetColor().entries.at(0).value == 1.0f;
}

bool HasWidth(OrvDoc::Document& document, std::size_t width)
{
    const auto objects = ListObjects(FirstContent(document));
    const auto* const image = objects.empty() ? nullptr : dynamic_cast<const OrvDoc::Image*>(objects[0]);
    return image && image->GetPaintedPicture()->GetPictureData(false)->GetWidth() == width;
}

bool HasColorants(OrvDoc::Document& document, std::size_t colorants)
{
    const auto* const paint = FlatPaintOf(FirstPath(document));
    if (!paint)
        return false;
    const auto& entries = paint->GetColor().entries;
    return entries.size() == colorants && entries.front().name.rfind("Ink", 0) == 0 &&
           entries.front().value == 0.5f;
}

bool HasInk(OrvDoc::Document& document, std::size_t)
{
    return HasColorants(document, 1);
}

bool HasFunctionOfBytes(OrvDoc::Document& document, std::size_t bytes)
{
    const auto& paint = dynamic_cast<const OrvPaint::AxialShadingPaint&>(*FirstPath(document).GetFillPaint());
    const auto& function = dynamic_cast<const OrvPaint::WholeFunction&>(*paint.GetFunction());
    return function.GetDefinition().GetRawBytes().size() == bytes;
}

bool HasDashes(OrvDoc::Document& document, std::size_t elements)
{
    return FirstPath(document).GetStrokeProperties().dashArray.size() == elements;
}

bool HasNameOfBytes(OrvDoc::Document& document, std::size_t bytes)
{
    return FirstPath(document).GetName().size() == bytes;
}

bool HasSegments(OrvDoc::Document& document, std::size_t segments)
{
    std::size_t count = 0;
    for (const auto& subpath : FirstPath(document).TransformedCompound(nullptr)->GetSubpaths())
        count += static_cast<std::size_t>(std::distance(subpath->BeginSegment(), subpath->EndSegment()));
    return count == segments;
}

bool HasErrors(OrvDoc::Document& document, std::size_t errors)
{
    const std::vector<std::string> texts = TellErrors(document);
    const auto isOfOperator = [](const std::string& text) {
        return text.find("unknown operator") != std::string::npos;
    };
    return static_cast<std::size_t>(std::count_if(texts.begin(), texts.end(), isOfOperator)) == errors;
}

struct Row
{
    const char* name;
    const char* of; // Tells rows of one limit apart.
    std::size_t limit;
    std::string (*makeFile)(std::size_t);
    bool (*isWhole)(OrvDoc::Document&, std::size_t);
    const char* place; // What the error says of where it is.
};

void PrintTo(const Row& row, std::ostream* stream)
{
    *stream << row.name << row.of;
}

const Row rows[] = {
    {"objectNesting", "InContent", 4, LimitFiles::NestedProperties, HasDepthOfProperties, "page 1: "},
    {"objectNesting", "InResources", 4, LimitFiles::NestedColorSpace, HasInk, "page 1: "},
    {"contentNesting", "OfMarks", 3, LimitFiles::NestedMarks, HasDepthOfGroups, "byte 27"},
    {"contentNesting", "OfStates", 3, LimitFiles::NestedStates, HasBlackPath, "byte 6"},
    {"formNesting", "", 3, LimitFiles::NestedForms, HasDepthOfForms, "form 7 0: operator Do: form /Next"},
    {"pageTreeNesting", "", 3, LimitFiles::NestedPageTree, HasPages, "object 6 0"},
    {"layerOrderNesting", "", 3, LimitFiles::NestedLayers, HasDepthOfLayers, "OCProperties: D: Order"},
    {"pages", "", 3, LimitFiles::Pages, HasPages, "object 9 0"},
    {"indirectObjects", "", 5, LimitFiles::Objects, HasOnePage, "file.pdf"},
    {"contentStreamBytes", "", 80, LimitFiles::ContentBytes, HasPathOfEachEightBytes, "object 4 0"},
    {"contentStreamBytes", "InParts", 80, LimitFiles::ContentPartsOfBytes, HasOnePath, "object 5 0"},
    {"contentBytes", "", 80, LimitFiles::ContentBytesBeyondTheFile, HasPathOfEachEightBytes, "object 5 0"},
    {"streamBytes", "", 80, LimitFiles::PictureOfBytes, HasWidth, "Im"},
    {"resourceBytes", "", 80, LimitFiles::FunctionOfBytes, HasFunctionOfBytes, "object 5 0"},
    {"documentBytes", "", 80, LimitFiles::ContentBytes, HasPathOfEachEightBytes, "object 4 0"},
    {"contentObjects", "", 3, LimitFiles::Paths, HasPaths, "byte 32"},
    {"groupCopies", "", 3, LimitFiles::OverlappingGroups, HasPathsOfOverlaps, "page 1: "},
    {"groupCorrections", "", 3, LimitFiles::OverlappingMatrices, HasGroupMatrix, "byte "},
    {"operands", "", 64, LimitFiles::Operands, HasColorants, "byte "},
    {"operandElements", "", 5, LimitFiles::OperandElements, HasDashes, "byte "},
    {"operandBytes", "", 20, LimitFiles::NameOfBytes, HasNameOfBytes, "byte "},
    {"pathSegments", "", 5, LimitFiles::PathOfSegments, HasSegments, "byte "},
    {"dashElements", "", 5, LimitFiles::DashOfElements, HasDashes, "byte 0"},
    {"pictureSamples", "", 5, LimitFiles::PictureOfSamples, HasWidth, "Im"},
    {"colorants", "", 5, LimitFiles::Colorants, HasColorants, "Inks"},
    {"functionSamples", "", 5, LimitFiles::SampledFunction, HasInk, "Tinted"},
    {"functionNesting", "", 3, LimitFiles::NestedFunctions, HasInk, "Tinted"},
    {"functionNesting", "OfBraces", 3, LimitFiles::NestedBraces, HasInk, "Tinted"},
    {"calculatorTokens", "", 5, LimitFiles::CalculatorOfTokens, HasInk, "Tinted"},
    {"errors", "", 3, LimitFiles::UnknownOperators, HasErrors, "page 1: "},
};

class Limits : public ::testing::TestWithParam<Row>
{
protected:
    /// Opens a file that asks for so much, under the limit of the row.
    std::unique_ptr<OrvDoc::Document> Open(std::size_t size) const
    {
        OrvDoc::ReadOptions options;
        for (const NamedLimit& limit : ListEveryLimit(options.limits)) {
            if (limit.name == GetParam().name)
                limit.Set(GetParam().limit);
        }
        return OrvDoc::Document::Create(folder.Write("file.pdf", GetParam().makeFile(size)), options);
    }

    const TemporaryFolder folder;
};

std::string NameOfRow(const ::testing::TestParamInfo<Row>& info)
{
    return std::string(info.param.name) + info.param.of;
}

INSTANTIATE_TEST_SUITE_P(Each, Limits, ::testing::ValuesIn(rows), NameOfRow);

TEST_P(Limits, AreTheLargestThatIsReadWithoutAnError)
{
    const auto document = Open(GetParam().limit);
    EXPECT_THAT(TellErrors(*document), Not(Contains(HasSubstr("limit "))));
    EXPECT_TRUE(GetParam().isWhole(*document, GetParam().limit));
}

TEST_P(Limits, LeaveOutWhatGoesBeyondAndTellNameValueAndPlace)
{
    const std::string text =
        "limit " + std::string(GetParam().name) + ": " + std::to_string(GetParam().limit) + " reached";
    std::unique_ptr<OrvDoc::Document> document;
    try {
        document = Open(GetParam().limit + 1);
    } catch (const std::runtime_error& error) {
        EXPECT_THAT(error.what(), AllOf(HasSubstr(text), HasSubstr(GetParam().place)));
        return;
    }
    EXPECT_THAT(TellErrors(*document), Contains(AllOf(HasSubstr(text), HasSubstr(GetParam().place))));
    EXPECT_FALSE(GetParam().isWhole(*document, GetParam().limit + 1));
}

TEST(LimitRows, EachFieldOfTheRecordHasOne)
{
    OrvDoc::ReadOptions::Limits limits;
    std::set<std::string> tested;
    for (const Row& row : rows)
        tested.insert(row.name);
    for (const NamedLimit& limit : ListEveryLimit(limits))
        EXPECT_EQ(tested.count(limit.name), 1U) << "add a row for " << limit.name << " above";
}

} // namespace
} // namespace HarrowSupport::Testing
