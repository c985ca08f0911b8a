#include <harrow_support/round_trip.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>

#include <boost/filesystem/operations.hpp>
#include <gtest/gtest.h>

#include <orv_doc/document.h>
#include <orv_doc/properties.h>

#include "round_trip/remove_file.h"
#include "support/document_makers.h"

namespace
{

/// Allocations of this program until one fails; negative for none.
std::atomic<std::int64_t> allocationsLeft{-1};

void* AllocateOrNull(std::size_t size) noexcept
{
    if (allocationsLeft >= 0 && allocationsLeft-- == 0)
        return nullptr;
    return std::malloc(size == 0 ? 1 : size);
}

void* Allocate(std::size_t size)
{
    if (void* const memory = AllocateOrNull(size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

// For the whole program, the document library included. All forms that may meet in one object: memory of one
// allocator must not come to another.
void* operator new(std::size_t size)
{
    return Allocate(size);
}

void* operator new[](std::size_t size)
{
    return Allocate(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return AllocateOrNull(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return AllocateOrNull(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}

namespace HarrowSupport::Testing
{
namespace
{

constexpr std::int64_t plenty = std::int64_t{1} << 40;

/// Tied to the document that goes on the trip. Lets an allocation fail some time after that one is destroyed.
struct FailureAfterSaving
{
    explicit FailureAfterSaving(std::int64_t count) : allocations(count) {}
    FailureAfterSaving(const FailureAfterSaving&) = delete;
    FailureAfterSaving& operator=(const FailureAfterSaving&) = delete;
    ~FailureAfterSaving() { allocationsLeft = allocations; }

    std::int64_t allocations;
};

/// Where a trip came to with so many allocations for all that follows the saving.
struct Trip
{
    explicit Trip(std::int64_t allocations)
    {
        document = NewDocument(1);
        document->GetProperties().Set("failure", std::make_shared<FailureAfterSaving>(allocations));
        const OrvDoc::WriteOptions writeOptions(OrvDoc::WriteOptions::Flavour::Full);
        const OrvDoc::ReadOptions readOptions;
        try {
            SaveAndReopen(document, "memory", writeOptions, readOptions);
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        used = allocations - allocationsLeft;
        allocationsLeft = -1;
    }

    std::unique_ptr<OrvDoc::Document> document;
    bool failed = false;
    std::int64_t used = 0;
};

/// The steps behind the reading take four: the owner of the file, and the value, key and entry of the
/// property.
constexpr std::int64_t allocationsBehindReading = 4;

} // namespace

TEST(SaveAndReopenWithoutMemory, KeepsDocumentAndFileIfTheFileFindsNoOwner)
{
    Trip first(plenty); // What the libraries make once a program is not counted.
    const std::int64_t needed = Trip(plenty).used;
    ASSERT_GT(needed, allocationsBehindReading);
    for (std::int64_t missing = 1; missing <= allocationsBehindReading; ++missing) {
        SCOPED_TRACE(missing);
        Trip trip(needed - missing);
        EXPECT_TRUE(trip.failed);
        ASSERT_NE(trip.document, nullptr);
        EXPECT_EQ(trip.document->GetProperties().Find(RemoveFileKey), nullptr);
        const boost::filesystem::path file = trip.document->GetFilePath();
        EXPECT_TRUE(boost::filesystem::exists(file));
        trip.document.reset();
        EXPECT_TRUE(boost::filesystem::remove(file));
    }
}

} // namespace HarrowSupport::Testing
