#pragma once

#include <memory>

#include <orv_doc/content.h>

namespace OrvDoc::Detail
{

/// Gives up a paint's or a soft mask's share in its content. What is held by the objects of a content that
/// ends here is given up after it and not inside of it, so that drawings may be nested as deep as memory
/// allows.
void ReleaseContent(std::shared_ptr<Content> content) noexcept;

} // namespace OrvDoc::Detail
