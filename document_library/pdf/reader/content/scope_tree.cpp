#include "pdf/reader/content/scope_tree.h"

#include <iterator>

namespace OrvPdf
{

ScopeTree::ScopeTree(OrvDoc::Content& target, std::uint64_t maximumObjects, std::uint64_t maximumCopies)
    : content(target), unmade(scopes.end()), objectsLeft(maximumObjects), copiesLeft(maximumCopies)
{}

ScopeTree::Id ScopeTree::Open(GroupRecipe recipe)
{
    const Id id = nextId++;
    const auto scope = scopes.insert(scopes.end(), {id, std::move(recipe)});
    places.emplace(id, scope);
    if (unmade == scopes.end()) {
        unmade = scope;
    }
    return id;
}

void ScopeTree::Close(Id id)
{
    const auto place = places.find(id);
    if (place == places.end()) {
        return;
    }
    const auto scope = place->second;
    if (!scope->wasMade) {
        MakeThrough(*scope);
    }
    Unmake(scope);
    if (unmade == scope) {
        ++unmade;
    }
    places.erase(place);
    scopes.erase(scope);
}

void ScopeTree::CloseUnlessEmpty(Id id)
{
    const auto place = places.find(id);
    if (place == places.end() || place->second->wasMade) {
        Close(id);
        return;
    }
    const auto scope = place->second;
    if (unmade == scope) {
        ++unmade;
    }
    places.erase(place);
    scopes.erase(scope);
}

bool ScopeTree::MakeThrough(const Scope& last)
{
    while (!last.group) {
        Scope& scope = *unmade;
        if (scope.wasMade && copiesLeft == 0) {
            hitCopyLimit = true;
            return false;
        }
        if (!TakeRoom(GetWeight(scope.recipe))) {
            return false;
        }
        copiesLeft -= scope.wasMade ? 1 : 0;
        std::unique_ptr<OrvDoc::Group> group = MakeGroup(scope.recipe);
        OrvDoc::Group* const raw = group.get();
        Add(unmade == scopes.begin() ? nullptr : std::prev(unmade)->group, std::move(group));
        // A group that is placed while it is empty needn't be checked for holding its own container.
        if (scope.recipe.HasClip()) {
            Add(raw, MakeClip(scope.recipe));
        }
        scope.group = raw;
        scope.wasMade = true;
        ++unmade;
    }
    return true;
}

void ScopeTree::Unmake(Scopes::iterator scope)
{
    if (!scope->group) {
        return;
    }
    unmade = scope;
    for (; scope != scopes.end() && scope->group; ++scope) {
        scope->group = nullptr;
    }
}

bool ScopeTree::TakeRoom(std::uint64_t objects)
{
    if (objectsLeft < objects) {
        hitObjectLimit = true;
        return false;
    }
    objectsLeft -= objects;
    return true;
}

void ScopeTree::Add(OrvDoc::Group* parent, std::unique_ptr<OrvDoc::ContentObject> object)
{
    if (parent) {
        parent->AddOnTop(object.get());
    } else {
        content.AddOnTop(object.get());
    }
    object.release();
}

bool ScopeTree::Place(std::unique_ptr<OrvDoc::ContentObject> object)
{
    if (!scopes.empty() && !MakeThrough(scopes.back())) {
        return false;
    }
    if (!TakeRoom(1)) {
        return false;
    }
    Add(scopes.empty() ? nullptr : scopes.back().group, std::move(object));
    return true;
}

void ScopeTree::SetAttributes(const GroupRecipe& recipe)
{
    Scope& scope = scopes.back();
    scope.recipe.name = recipe.name;
    scope.recipe.flags = recipe.flags;
    scope.recipe.transformation = recipe.transformation;
    scope.recipe.isClippingTextGroup = recipe.isClippingTextGroup;
    if (scope.group) {
        ApplyAttributes(scope.recipe, *scope.group);
    }
}

ScopeTree::Scope* ScopeTree::Find(Id id)
{
    const auto place = places.find(id);
    return place == places.end() ? nullptr : &*place->second;
}

void ScopeTree::DropTransformation(Id id)
{
    Scope* const scope = Find(id);
    if (!scope) {
        return;
    }
    if (!scope->wasMade) {
        MakeThrough(*scope);
    }
    Unmake(places.at(id));
    scope->recipe.transformation = Matrix();
}

void ScopeTree::MapClip(Id id, const Matrix& further)
{
    if (Scope* const scope = Find(id)) {
        scope->recipe.clipTransformation = Plexa::Concatenate(scope->recipe.clipTransformation, further);
    }
}

void ScopeTree::CloseAll()
{
    while (!scopes.empty()) {
        Close(scopes.back().id);
    }
}

} // namespace OrvPdf
