#include <harrow_support/rpn_parser.h>

#include <orv_doc/visitable.h>

#include "scripting/target_visitor.h"

namespace HarrowSupport
{

void ApplyOnIndexedObject(const std::string& path, OrvDoc::Visitable& root,
                          std::function<void(OrvDoc::ContentObject&)> action)
{
    TargetVisitor visitor(path, action);
    root.Accept(visitor);
}

} // namespace HarrowSupport
