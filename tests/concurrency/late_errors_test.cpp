// Threads decode damaged pictures of one document and read its errors at the same time. Run under the thread
// sanitizer as well.

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/damaged_pictures.h"
#include "support/error_texts.h"
#include "support/temporary_folder.h"

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

constexpr std::size_t pictureCount = 40;
constexpr std::size_t pageCount = 12;
constexpr std::size_t threadCount = 4;

class SharedErrors : public ::testing::Test
{
protected:
    SharedErrors()
    {
        for (std::size_t index = 0; index < pictureCount; ++index)
            allDamage.push_back(DamageOf(FirstDamagedObject(pageCount) + index));
    }

    static void RunAtOnce(const std::function<void(std::size_t)>& run)
    {
        std::atomic<std::size_t> waiting{threadCount};
        std::vector<std::thread> threads;
        for (std::size_t thread = 0; thread < threadCount; ++thread) {
            threads.emplace_back([&waiting, &run, thread] {
                --waiting;
                while (waiting > 0)
                    std::this_thread::yield();
                run(thread);
            });
        }
        for (std::thread& thread : threads)
            thread.join();
    }

    TemporaryFolder folder;
    std::unique_ptr<const OrvDoc::Document> document = OrvDoc::Document::Create(
        folder.Write("in.pdf", FileOfDamagedPictures(pictureCount, pageCount)), OrvDoc::ReadOptions());
    std::vector<std::string> allDamage;
};

TEST_F(SharedErrors, HaveWhatAThreadFoundWhenItAsks)
{
    const auto pictures = PicturesOf(document->GetPagesBegin()->GetContent());
    std::atomic<int> missing{0};
    RunAtOnce([&](std::size_t thread) {
        for (std::size_t step = 0; step < pictureCount; ++step) {
            // Each thread takes the pictures in another order, so that some are asked for by several at once.
            const std::size_t index = (step + thread * (step % 3)) % pictureCount;
            pictures[index]->GetPictureBuffer();
            const auto texts = TextsOf(document->GetActiveErrors());
            if (std::count(texts.begin(), texts.end(), allDamage[index]) != 1)
                ++missing;
        }
    });
    EXPECT_EQ(missing, 0);
    for (const auto& picture : pictures)
        picture->GetPictureBuffer();
    EXPECT_THAT(TextsOf(document->GetActiveErrors()), UnorderedElementsAreArray(allDamage));
}

TEST_F(SharedErrors, StayTheSameObjectsForAllReaders)
{
    const auto pictures = PicturesOf(document->GetPagesBegin()->GetContent());
    std::atomic<int> changed{0};
    RunAtOnce([&](std::size_t thread) {
        const auto& first = document->GetActiveErrors().GetAllErrors();
        const std::vector<std::shared_ptr<OrvSys::Core::Error>> before = first;
        for (std::size_t index = thread; index < pictureCount; index += threadCount) {
            pictures[index]->GetPictureBuffer();
            const auto& after = document->GetActiveErrors().GetAllErrors();
            if (first != before || !std::equal(before.begin(), before.end(), after.begin()))
                ++changed;
        }
    });
    EXPECT_EQ(changed, 0);
    EXPECT_THAT(TextsOf(document->GetActiveErrors()), UnorderedElementsAreArray(allDamage));
}

TEST_F(SharedErrors, AreNotMixedWithThoseOfPagesThatOthersRead)
{
    const auto pictures = PicturesOf(document->GetPagesBegin()->GetContent());
    RunAtOnce([&](std::size_t thread) {
        if (thread % 2 == 0) {
            for (const auto& picture : pictures)
                picture->GetPictureBuffer();
            return;
        }
        for (auto page = document->GetPagesBegin(); page != document->GetPagesEnd(); ++page)
            page->GetContent();
    });
    for (auto page = document->GetPagesBegin(); page != document->GetPagesEnd(); ++page)
        EXPECT_THAT(TextsOf(page->GetContent().GetActiveErrors()), IsEmpty());
    EXPECT_THAT(TextsOf(document->GetActiveErrors()), UnorderedElementsAreArray(allDamage));
}

} // namespace
} // namespace HarrowSupport::Testing
