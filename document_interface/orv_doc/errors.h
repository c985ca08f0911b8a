#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include <orv_sys/error.h>
#include <orv_sys/export.h>

namespace OrvDoc
{

namespace Detail
{
class LateErrors;
}

/// The errors in force of a document or of a content: the problems that reading met, and those that the last
/// writing met. Damage in pictures and fonts is met when somebody asks for their samples and shapes, and is
/// an error of the document from then on.
///
/// An error that stays in force stays the same object, so that a user who compares the list before and after
/// a step by addresses sees exactly the errors that the step added.
///
/// Any number of threads may read a list, also while others come upon damage. Whoever changes it sees to it
/// that nobody reads it meanwhile.
class ORV_EXPORT Errors
{
public:
    Errors();
    ~Errors();
    Errors(const Errors&) = delete;
    Errors& operator=(const Errors&) = delete;

    /// All errors in force. The reference is good as long as the list lives. What it refers to changes with
    /// the list, but for damage that is met later: a reader of what was handed out before is not disturbed,
    /// and the next call gives a longer list.
    const std::vector<std::shared_ptr<OrvSys::Core::Error>>& GetAllErrors() const;

    // For makers of documents.

    /// The step that an error comes from. Each step replaces its own errors and no others.
    enum class Origin
    {
        Reading,
        Writing,
    };

    /// Appends an error, also if there is one of the same text. Constant time.
    void Add(std::string text, Origin origin = Origin::Reading);

    /// Makes the errors of @p origin exactly those of @p texts, each as often as it stands there. Errors
    /// whose text is still in force stay the same objects, the first ones of a text where fewer are needed,
    /// and keep their places and order among all errors that stay; the others go; what is new is appended in
    /// the order of @p texts. Errors of another origin are not touched. Linear time. An exception
    /// (std::bad_alloc) leaves the list as it was.
    void Replace(Origin origin, std::vector<std::string> texts);

    /// From where problems come that are found after the reading. To be called once, before the list is used.
    void TakeFrom(std::shared_ptr<Detail::LateErrors> late);

private:
    using List = std::vector<std::shared_ptr<OrvSys::Core::Error>>;

    /// Makes a new list of the one in force and what was found late.
    void TakeLate() const;
    List& GetInForce() const { return *inForce_.load(std::memory_order_acquire); }

    mutable List first_;
    // Those that came after the first one. All stay, since somebody may still read them; the number of late
    // problems is limited.
    mutable std::vector<std::unique_ptr<List>> others_;
    mutable std::atomic<List*> inForce_{&first_};
    // The origin of the error at the same index of the list in force.
    mutable std::vector<Origin> origins_;
    std::shared_ptr<Detail::LateErrors> late_;
};

} // namespace OrvDoc
