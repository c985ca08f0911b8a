#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <unordered_map>

#include <orv_doc/content.h>

#include "pdf/reader/content/group_recipe.h"

namespace OrvPdf
{

/// Makes a tree of groups from scopes that need not nest: in a content stream a clip ends with `Q` and marked
/// content with `EMC`, whichever of the two began later (ISO 32000-1, 14.6.1 asks for nesting, files don't
/// always have it).
///
/// A scope becomes a group when the first object is placed in it, or when it ends without one, so that each
/// scope leaves at least one group. A scope that outlives one below it becomes a group again for the objects
/// that follow.
///
/// Each operation takes constant time, but for the groups that it makes.
class ScopeTree
{
public:
    /// Rises in order of opening; never 0.
    using Id = std::uint64_t;

    /// `maximumObjects` bounds the objects of the content, groups included. `maximumCopies` bounds the groups
    /// that are made again: scopes that are opened and closed crosswise would otherwise multiply.
    ScopeTree(OrvDoc::Content& target, std::uint64_t maximumObjects, std::uint64_t maximumCopies);

    /// Begins a scope inside all that are open.
    Id Open(GroupRecipe recipe);
    /// Ends a scope, which may not be the innermost one. A scope that has ended already is left alone.
    void Close(Id id);
    /// The same, but a scope that nothing was placed in leaves no group.
    void CloseUnlessEmpty(Id id);
    /// The number of open scopes.
    std::size_t GetDepth() const { return scopes.size(); }
    /// Whether that scope is the innermost open one.
    bool IsInnermost(Id id) const { return !scopes.empty() && scopes.back().id == id; }
    /// Whether it is so, and nothing was placed in it yet.
    bool IsInnermostAndFresh(Id id) const { return IsInnermost(id) && !scopes.back().wasMade; }

    /// Puts an object on top of the innermost open scope. False, and the object is gone, past a limit.
    bool Place(std::unique_ptr<OrvDoc::ContentObject> object);
    /// Changes name, flags, transformation and clipping role of the innermost open scope, and of its group.
    void SetAttributes(const GroupRecipe& recipe);
    /// The recipe of the innermost open scope, which must exist.
    const GroupRecipe& GetInnermostRecipe() const { return scopes.back().recipe; }

    /// What follows in an open scope goes into another group, which has no transformation of its own.
    void DropTransformation(Id id);
    /// The clipping path that an open scope begins with, where it becomes a group from now on, is mapped
    /// further.
    void MapClip(Id id, const Matrix& further);

    /// Ends all scopes.
    void CloseAll();

    /// Whether an object or a group was left out because of a limit.
    bool HitObjectLimit() const { return hitObjectLimit; }
    bool HitCopyLimit() const { return hitCopyLimit; }

private:
    struct Scope
    {
        Id id;
        GroupRecipe recipe;
        /// The group that stands for the scope now; null if the scope has none at this place of the content.
        OrvDoc::Group* group = nullptr;
        bool wasMade = false;
    };

    using Scopes = std::list<Scope>;

    Scope* Find(Id id);
    /// Makes the groups from the bottom to that scope, as far as there are none.
    bool MakeThrough(const Scope& last);
    /// Forgets the groups of that scope and of those above it.
    void Unmake(Scopes::iterator scope);
    bool TakeRoom(std::uint64_t objects);
    void Add(OrvDoc::Group* parent, std::unique_ptr<OrvDoc::ContentObject> object);

    OrvDoc::Content& content;
    Scopes scopes;
    std::unordered_map<Id, Scopes::iterator> places;
    /// The lowest scope without a group; all below it have one, none above it has.
    Scopes::iterator unmade;
    Id nextId = 1;
    std::uint64_t objectsLeft;
    std::uint64_t copiesLeft;
    bool hitObjectLimit = false;
    bool hitCopyLimit = false;
};

} // namespace OrvPdf
