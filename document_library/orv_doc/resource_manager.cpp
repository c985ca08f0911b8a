#include <orv_doc/resource_manager.h>

namespace OrvDoc
{

ResourceManager::ResourceManager() = default;
ResourceManager::~ResourceManager() = default;

} // namespace OrvDoc
