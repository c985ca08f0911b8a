#include <orv_doc/resource_manager.h>

#include <orv_font/font_manager.h>

namespace OrvDoc
{

ResourceManager::ResourceManager() : fontManager(std::make_unique<OrvFont::FontManager>()) {}
ResourceManager::~ResourceManager() = default;

} // namespace OrvDoc
