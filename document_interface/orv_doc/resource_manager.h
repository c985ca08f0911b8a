#pragma once

#include <memory>

#include <orv_sys/export.h>

namespace OrvFont
{
class FontManager;
}

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

    OrvFont::FontManager& GetFontManager() { return *fontManager; }

private:
    std::unique_ptr<OrvFont::FontManager> fontManager;
};

} // namespace OrvDoc
