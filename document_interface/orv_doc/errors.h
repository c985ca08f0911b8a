#pragma once

#include <memory>
#include <string>
#include <vector>

#include <orv_sys/error.h>
#include <orv_sys/export.h>

namespace OrvDoc
{

/// The errors in force of a document or of a content: the problems that reading met, and those that the last
/// writing met.
///
/// An error that stays in force stays the same object, so that a user who compares the list before and after
/// a step by addresses sees exactly the errors that the step added.
///
/// Not locked. Whoever changes a list sees to it that nobody reads it meanwhile; any number of threads may
/// read one that nobody changes.
class ORV_EXPORT Errors
{
public:
    Errors();
    ~Errors();
    Errors(const Errors&) = delete;
    Errors& operator=(const Errors&) = delete;

    /// All errors in force. The reference is good as long as the list lives; what it refers to changes with
    /// the list.
    const std::vector<std::shared_ptr<OrvSys::Core::Error>>& GetAllErrors() const { return errors_; }

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

private:
    std::vector<std::shared_ptr<OrvSys::Core::Error>> errors_;
    // The origin of the error at the same index.
    std::vector<Origin> origins_;
};

} // namespace OrvDoc
