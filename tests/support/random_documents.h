#pragma once

#include <orv_doc/document.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Random documents that can be made smaller, so that a failing test shows a case that a person can read.
namespace HarrowSupport::Testing
{

/// What an object of a plan becomes.
enum class PlannedKind
{
    Path,
    ClippingPath,
    ImplicitGroup,
    NamedGroup,
    UserGroup,
    TextGroup,
    Layer,
    MarkedContent,
    MarkedPoint,
    /// Its children are the content of the form. Some show a form again that was made before.
    Form,
    /// A text group with some texts.
    Text,
    /// An image or an image mask.
    Picture,
};

/// An object of a random document. Everything about it but its kind and its children follows from its own
/// seed, so that it stays the same when others are taken away.
struct PlannedObject
{
    PlannedKind kind;
    std::uint32_t seed;
    std::vector<PlannedObject> children;
};

struct PlannedPage
{
    std::uint32_t seed;
    std::vector<PlannedObject> objects;
};

struct PlannedDocument
{
    std::uint32_t seed;
    std::vector<PlannedPage> pages;
};

/// The plan of that seed: up to three pages of up to some dozen objects, nested up to five deep.
PlannedDocument PlanDocument(std::uint32_t seed);

/// The document of a plan. The same plan gives the same document.
std::unique_ptr<OrvDoc::Document> MakeDocument(const PlannedDocument& plan);

/// The smallest plan found, by taking away pages, objects and levels, for which `fails` still holds. It must
/// hold for the given one.
PlannedDocument Shrink(PlannedDocument plan, const std::function<bool(const PlannedDocument&)>& fails);

/// The document of a plan as text, a line for each item.
std::string Describe(const PlannedDocument& plan);

/// The first of the seeds that a property test runs over: that of the environment variable HARROW_SEED, or a
/// fixed one.
std::uint32_t FirstSeed();

} // namespace HarrowSupport::Testing
