#pragma once

#include <mutex>

namespace OrvDoc
{

class ContentObject;

namespace Detail
{

/// Guards the shapes that an object keeps. Shared with other objects: a mutex in each would take as much
/// memory as most of its properties together, and two threads seldom ask for two shapes of one mutex at a
/// time. Nothing that may lock another one may be called under it.
std::mutex& GetShapeMutex(const ContentObject& object);

} // namespace Detail
} // namespace OrvDoc
