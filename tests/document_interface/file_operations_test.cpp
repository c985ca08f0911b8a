// Reading and writing files, options, cloning, error lists, properties and uniform resource identifiers, with
// their exact signatures.

#include "document_interface/signature.h"

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/network/uri.hpp>

#include <orv_doc/clone.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/pdf_links.h>
#include <orv_doc/properties.h>
#include <orv_doc/scratch_document.h>
#include <orv_sys/uni16char.h>
#include <vantry/uri.h>
#include <vantry/uri_exception.h>

namespace
{

using namespace InterfaceTests;
using namespace OrvDoc;
using testing::ElementsAre;

using boost::filesystem::path;
using boost::network::uri::uri;

static_assert(Has<std::unique_ptr<Document> (*)(const path&, const ReadOptions&)>(&Document::Create));
static_assert(Has<void (Document::*)(const path&, const WriteOptions&)>(&Document::Save));
static_assert(Has<void (Document::*)()>(&Document::Flush));
static_assert(Has<bool (Document::*)(DocumentInfoFlagKey) const>(&Document::GetInfoFlag));
static_assert(Has<Properties& (Document::*)()>(&Document::GetProperties));
static_assert(Has<Errors& (Document::*)()>(&Document::GetActiveErrors));
static_assert(Has<const path& (Document::*)() const>(&Document::GetFilePath));
static_assert(
    Has<const std::vector<std::shared_ptr<OrvSys::Core::Error>>& (Errors::*)() const>(&Errors::GetAllErrors));

static_assert(std::is_default_constructible_v<ReadOptions>);
static_assert(std::is_constructible_v<WriteOptions, WriteOptions::Flavour>);
static_assert(std::is_constructible_v<CloneStrategy, Document&, CloneStrategy::CloneFlags>);
static_assert(std::is_enum_v<WriteOptions::Flavour> && std::is_enum_v<CloneStrategy::CloneFlags>);
static_assert(static_cast<int>(WriteOptions::Flavour::Full) == 0);
static_assert(static_cast<int>(CloneStrategy::CloneFlags::Full) == 0);
static_assert(static_cast<int>(DocumentInfoFlagKey::NormalizedPDFLinks) == 2);

static_assert(Has<Document& (*)()>(&GetScratchDocument));
static_assert(Has<void (*)(const Content&, Content&, CloneStrategy&)>(&CloneContent));
static_assert(Has<std::vector<std::string> (*)(Document&, const std::map<std::string, path>&)>(
    &ResolveNormalizedPDFLinks));

static_assert(Has<uri (*)(const path&)>(&Vantry::ToURI));
static_assert(Has<uri (*)(const uri&, const uri&)>(&Vantry::MakeRelativeURI));
static_assert(Has<std::string (*)(const uri&)>(&Vantry::GetDisplayPath));
static_assert(Has<std::string (*)(const path&)>(&Vantry::ToUTF8String));
static_assert(std::is_base_of_v<std::exception, Vantry::URIException>);
static_assert(std::is_constructible_v<uri, std::string> && std::is_copy_constructible_v<uri>);

static_assert(Has<int (*)(const char*, wchar_t*, std::size_t)>(&OrvSys::UTF8ToUni16Char));

/// Writes its name down when it is destroyed.
class Witness
{
public:
    Witness(std::string ownName, std::vector<std::string>& allGone) : name(std::move(ownName)), gone(allGone)
    {}
    Witness(const Witness&) = delete;
    Witness& operator=(const Witness&) = delete;
    ~Witness() { gone.push_back(name); }

private:
    std::string name;
    std::vector<std::string>& gone;
};

using WitnessPointer = std::shared_ptr<Witness>;
static_assert(std::is_same_v<decltype(std::declval<Properties&>().Set(boost::string_view(),
                                                                      std::declval<WitnessPointer>())),
                             WitnessPointer&>);

TEST(FileOperations, APropertyIsStoredAndReturned)
{
    Properties properties;
    const auto number = std::make_shared<int>(7);
    EXPECT_EQ(properties.Set("key", std::shared_ptr<int>(number)), number);
}

TEST(FileOperations, APropertyOfTheSameKeyReplacesTheValueAndDestroysTheOldOne)
{
    std::vector<std::string> gone;
    Properties properties;
    properties.Set("key", std::make_shared<Witness>("old", gone));
    const WitnessPointer& stored = properties.Set("key", std::make_shared<Witness>("new", gone));
    EXPECT_THAT(gone, ElementsAre("old"));
    EXPECT_NE(stored, nullptr);
}

TEST(FileOperations, AKeyIsComparedByEveryByteAndItsLength)
{
    std::vector<std::string> gone;
    Properties properties;
    properties.Set("key", std::make_shared<Witness>("key", gone));
    properties.Set("key2", std::make_shared<Witness>("key2", gone));
    properties.Set(boost::string_view("key\0", 4), std::make_shared<Witness>("key with a zero", gone));
    properties.Set("Key", std::make_shared<Witness>("Key", gone));
    EXPECT_TRUE(gone.empty());
}

TEST(FileOperations, APropertyMayReplaceOneOfAnotherType)
{
    Properties properties;
    properties.Set("key", std::string("text"));
    EXPECT_EQ(properties.Set("key", 7), 7);
}

TEST(FileOperations, PropertiesAreDestroyedWithTheirList)
{
    std::vector<std::string> gone;
    {
        Properties properties;
        properties.Set("key", std::make_shared<Witness>("value", gone));
        EXPECT_TRUE(gone.empty());
    }
    EXPECT_THAT(gone, ElementsAre("value"));
}

TEST(FileOperations, ReadingAFileThatIsNotThereFailsByAnException)
{
    EXPECT_THROW(Document::Create("/there/is/no/such/file.pdf", ReadOptions()), std::exception);
}

TEST(FileOperations, IdentifiersAreEqualByTheirWholeText)
{
    EXPECT_TRUE(uri("http://example.com/a") == uri("http://example.com/a"));
    EXPECT_FALSE(uri("http://example.com/a") == uri("HTTP://example.com/a"));
}

TEST(FileOperations, ALinkIsToldRelativeToItsDocument)
{
    const uri target = Vantry::ToURI("/in/pictures/a.tif");
    const uri document = Vantry::ToURI("/in/page.pdf");
    const uri elsewhere = Vantry::ToURI("/out/page.pdf");
    EXPECT_EQ(Vantry::MakeRelativeURI(target, document),
              Vantry::MakeRelativeURI(Vantry::ToURI("/out/pictures/a.tif"), elsewhere));
    EXPECT_NE(Vantry::MakeRelativeURI(target, document), Vantry::MakeRelativeURI(target, elsewhere));
}

} // namespace
