#pragma once

#include <orv_sys/export.h>

namespace OrvDoc
{

/// What the pages of a document share. Belongs to its document.
class ORV_EXPORT ResourceManager
{
public:
    ResourceManager();
    ~ResourceManager();
    ResourceManager(const ResourceManager&) = delete;
    ResourceManager& operator=(const ResourceManager&) = delete;
};

} // namespace OrvDoc
