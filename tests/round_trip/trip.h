#pragma once

#include <harrow_support/round_trip.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <orv_doc/errors.h>
#include <orv_doc/properties.h>
#include <orv_doc/scratch_document.h>
#include <orv_doc/separation.h>
#include <orv_sys/error.h>
#include <plexa/geometry.h>

#include "own_temporary_directory.h"
#include "support/document_makers.h"
#include "support/error_texts.h"
#include "support/recording_reporter.h"

/// What the tests of round trips share: trips of both kinds, and things that act while one is under way.
namespace HarrowSupport::Testing
{

using DocumentPointer = std::unique_ptr<OrvDoc::Document>;

/// What holds for both overloads runs for both.
enum class Way
{
    ThroughFile,
    InMemory,
};

/// A path that acts when it is copied, and once while it is written, which is after the copy; and whenever
/// its name is asked for.
class ActingPath : public OrvDoc::Path
{
public:
    explicit ActingPath(Way wayToGo)
        : OrvDoc::Path(Plexa::GetRectangleCompound(Box(0.0, 0.0, 10000.0, 10000.0))), way(wayToGo)
    {}

    /// The copy is of the class that comes back, since classes are compared.
    OrvDoc::Path* Clone(OrvDoc::CloneStrategy& strategy) const override
    {
        OrvDoc::Path* const clone =
            way == Way::ThroughFile ? OrvDoc::Path::Clone(strategy) : new ActingPath(way);
        if (whenCloned)
            whenCloned(*clone);
        isCloned = true;
        return clone;
    }

    bool IsClippingObject() const override
    {
        if (isCloned && whenWritten)
            std::exchange(whenWritten, nullptr)();
        return false;
    }

    const std::string& GetName() const override
    {
        if (whenNamed)
            whenNamed();
        return OrvDoc::Path::GetName();
    }

    std::function<void(OrvDoc::Path&)> whenCloned;
    mutable std::function<void()> whenWritten;
    std::function<void()> whenNamed;

private:
    Way way;
    mutable bool isCloned = false;
};

/// Acts when the document goes that has it among its properties.
struct WhenDestroyed
{
    explicit WhenDestroyed(std::function<void()> actionToCall) : action(std::move(actionToCall)) {}
    ~WhenDestroyed() { action(); }
    WhenDestroyed(const WhenDestroyed&) = delete;
    WhenDestroyed& operator=(const WhenDestroyed&) = delete;

    std::function<void()> action;
};

inline OrvDoc::Content& ScratchContent()
{
    return ContentOf(OrvDoc::GetScratchDocument());
}

inline void EmptyScratchContent()
{
    while (ScratchContent().GetChildren().first)
        delete ScratchContent().GetChildren().first->ExtractFromParent();
}

inline std::vector<std::string> LinesOf(const RoundTripResult& result)
{
    std::vector<std::string> lines;
    for (const HarrowSupport::Difference& difference : result.differences)
        lines.push_back(difference.label + ": " + difference.message);
    return lines;
}

inline std::string ObjectPlace(const OrvDoc::ContentObject* object)
{
    return "object OID" + std::to_string(object->GetID());
}

inline std::vector<OrvDoc::Separation::Entry> SeparationNamed(const std::string& name)
{
    return {OrvDoc::Separation::Entry(name, OrvColor::Representation())};
}

class TestRoundTrip : public OwnTemporaryDirectory
{
protected:
    ~TestRoundTrip() override { EmptyScratchContent(); }

    static RoundTripResult Run(Way way, DocumentPointer& document,
                               const Comparators::Options& options = AllOptions())
    {
        return way == Way::ThroughFile ? TestRoundTripStructure(document, options)
                                       : TestRoundTripStructure(*document, options);
    }

    /// Lets another document stand in the file by the time that it is read.
    void ReadInstead(OrvDoc::Document& document, std::function<DocumentPointer()> makeOther)
    {
        document.GetProperties().Set("test", std::make_shared<WhenDestroyed>([this, makeOther] {
                                         makeOther()->Save(
                                             folder.GetPath() / OnlyFileName(),
                                             OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
                                     }));
    }
};

/// Tests of it run for both overloads, each suite under its own name.
class TestRoundTripBothWays : public TestRoundTrip, public ::testing::WithParamInterface<Way>
{};

/// Names the tests of both overloads.
inline std::string NameOfWay(const ::testing::TestParamInfo<Way>& way)
{
    return way.param == Way::ThroughFile ? "ThroughFile" : "InMemory";
}

} // namespace HarrowSupport::Testing
