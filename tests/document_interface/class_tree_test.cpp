// The tree of content objects, and its run-time type information where objects, casts and exceptions cross
// from the document library into a program.

#include <memory>
#include <type_traits>
#include <typeinfo>

#include <gtest/gtest.h>

#include <orv_doc/clone.h>
#include <orv_doc/content_object.h>
#include <orv_doc/document.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/layer.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/page_content.h>
#include <orv_doc/path.h>
#include <orv_doc/scratch_document.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>
#include <orv_doc/visitor.h>
#include <plexa/geometry.h>
#include <vantry/uri.h>
#include <vantry/uri_exception.h>

namespace
{

using namespace OrvDoc;

// Single inheritance below ContentObject, which has two bases.
static_assert(std::is_base_of_v<Detail::ListItem<ContentObject>, ContentObject>);
static_assert(std::is_base_of_v<Visitable, ContentObject>);
static_assert(std::is_base_of_v<ContentObject, Transformable>);
static_assert(std::is_base_of_v<Transformable, Clippable>);
static_assert(std::is_base_of_v<Clippable, Blendable>);
static_assert(std::is_base_of_v<Blendable, Group>);
static_assert(std::is_base_of_v<Group, TextGroup>);
static_assert(std::is_base_of_v<Group, Layer>);
static_assert(std::is_base_of_v<Blendable, Image> && !std::is_base_of_v<Fillable, Image>);
static_assert(std::is_base_of_v<Blendable, Fillable>);
static_assert(std::is_base_of_v<Fillable, ImageMask> && !std::is_base_of_v<Strokable, ImageMask>);
static_assert(std::is_base_of_v<Fillable, Strokable>);
static_assert(std::is_base_of_v<Strokable, Path>);
static_assert(std::is_base_of_v<Strokable, Text>);
static_assert(std::is_base_of_v<Content, PageContent>);
static_assert(std::is_base_of_v<Visitable, Content>);
static_assert(std::is_base_of_v<Visitable, Page>);
static_assert(std::is_base_of_v<Visitable, Document>);

static_assert(std::is_abstract_v<Visitable>);
static_assert(std::is_abstract_v<ContentObject>);
static_assert(std::is_abstract_v<Transformable>);
static_assert(std::is_abstract_v<Clippable>);
static_assert(std::is_abstract_v<Blendable>);
static_assert(std::is_abstract_v<Fillable>);
static_assert(std::is_abstract_v<Strokable>);
static_assert(!std::is_destructible_v<Detail::ListItem<ContentObject>>, "a base, never an object of its own");

// Objects are made in the program and destroyed through their base.
static_assert(std::has_virtual_destructor_v<ContentObject>);
static_assert(std::has_virtual_destructor_v<Document>);
static_assert(std::is_destructible_v<Group> && std::is_destructible_v<TextGroup>);
static_assert(std::is_destructible_v<Layer> && std::is_destructible_v<Image>);
static_assert(std::is_destructible_v<ImageMask> && std::is_destructible_v<Path>);
static_assert(std::is_destructible_v<Text> && std::is_destructible_v<Document>);

static_assert(std::is_constructible_v<Group, Group::Flags>);
static_assert(std::is_default_constructible_v<TextGroup>);
static_assert(std::is_constructible_v<
              Layer, const boost::variant<std::shared_ptr<LayerProperties>, LogicalLayerExpression>&>);
static_assert(std::is_constructible_v<Image, std::shared_ptr<const OrvImg::PaintedPicture>>);
static_assert(std::is_constructible_v<ImageMask, std::shared_ptr<const OrvImg::PictureData>>);
static_assert(std::is_constructible_v<Path, std::shared_ptr<const Plexa::Compound>>);
static_assert(
    std::is_constructible_v<Text, std::vector<TextCharacter>, std::shared_ptr<const OrvFont::Font>, double>);

std::unique_ptr<Path> MakePath()
{
    return std::make_unique<Path>(Plexa::GetRectangleCompound({0.0, 0.0, 1000.0, 1000.0}));
}

/// A copy that the library makes: neither its memory nor its type are the program's.
template <typename Object>
std::unique_ptr<ContentObject> CopyInLibrary(const Object& object)
{
    CloneStrategy strategy(GetScratchDocument(), CloneStrategy::CloneFlags{0});
    return std::unique_ptr<ContentObject>(static_cast<const ContentObject&>(object).Clone(strategy));
}

TEST(ClassTree, TypesOfTheLibrarysObjectsAreThoseOfTheProgram)
{
    const std::unique_ptr<ContentObject> group = CopyInLibrary(Group(Group::Flags{0x1FF}));
    const std::unique_ptr<ContentObject> textGroup = CopyInLibrary(TextGroup());
    const std::unique_ptr<ContentObject> path = CopyInLibrary(*MakePath());
    EXPECT_TRUE(typeid(*group) == typeid(Group));
    EXPECT_TRUE(typeid(*textGroup) == typeid(TextGroup));
    EXPECT_FALSE(typeid(*textGroup) == typeid(Group));
    EXPECT_TRUE(typeid(*path) == typeid(Path));
}

TEST(ClassTree, CastsOfTheLibrarysObjectsFollowTheTree)
{
    const std::unique_ptr<ContentObject> textGroup = CopyInLibrary(TextGroup());
    EXPECT_NE(dynamic_cast<Group*>(textGroup.get()), nullptr);
    EXPECT_NE(dynamic_cast<Blendable*>(textGroup.get()), nullptr);
    EXPECT_EQ(dynamic_cast<Layer*>(textGroup.get()), nullptr);
    EXPECT_EQ(dynamic_cast<Fillable*>(textGroup.get()), nullptr);

    const std::unique_ptr<ContentObject> path = CopyInLibrary(*MakePath());
    EXPECT_NE(dynamic_cast<Strokable*>(path.get()), nullptr);
    EXPECT_NE(dynamic_cast<Fillable*>(path.get()), nullptr);
    EXPECT_NE(dynamic_cast<Transformable*>(path.get()), nullptr);
    EXPECT_EQ(dynamic_cast<Text*>(path.get()), nullptr);
    EXPECT_EQ(dynamic_cast<Group*>(path.get()), nullptr);
}

TEST(ClassTree, CastsLeadFromOneBaseToTheOther)
{
    const std::unique_ptr<ContentObject> path = CopyInLibrary(*MakePath());
    Visitable* const visitable = path.get();
    EXPECT_EQ(dynamic_cast<ContentObject*>(visitable), path.get());
    EXPECT_EQ(dynamic_cast<Path*>(visitable), path.get());
    EXPECT_EQ(dynamic_cast<Content*>(visitable), nullptr);
}

TEST(ClassTree, AnObjectOfAProgramsOwnClassKeepsItsTypeInTheLibrary)
{
    class Marked : public Group
    {
    public:
        Marked() : Group(Flags{0x1FF}) {}
    };
    class Finder : public VisitorBase
    {
    public:
        using VisitorBase::Visit;
        bool Visit(Group& group) override
        {
            found = dynamic_cast<Marked*>(&group) != nullptr;
            return true;
        }

        bool found = false;
    };
    Group outer(Group::Flags{0x1FF});
    outer.AddOnTop(new Marked);
    Finder finder;
    outer.Accept(finder);
    EXPECT_TRUE(finder.found);
}

TEST(ClassTree, APagesContentIsAPageContentAndAContent)
{
    Content& content = GetScratchDocument().GetPagesBegin()->GetContent();
    EXPECT_TRUE(typeid(content) == typeid(PageContent));
    EXPECT_NE(dynamic_cast<Visitable*>(&content), nullptr);
}

TEST(ClassTree, AnExceptionOfTheLibraryIsCaughtByItsName)
{
    EXPECT_THROW(Vantry::ToURI(boost::filesystem::path()), Vantry::URIException);
    EXPECT_THROW(Vantry::ToURI(boost::filesystem::path()), std::exception);
}

} // namespace
