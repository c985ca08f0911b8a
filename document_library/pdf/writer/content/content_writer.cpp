#include "pdf/writer/content/content_writer.h"

#include <orv_doc/content.h>

#include "pdf/writer/content/content_walk.h"

namespace OrvPdf
{

WrittenContent WriteGroup(const OrvDoc::Group& group, const Matrix& base, SeparationSpaces& separations)
{
    WrittenContent result;
    result.start = ContentStart::Group;
    ContentWalk(result, separations, ContentStart::Group).Write(group, base);
    return result;
}

WrittenContent WriteContent(const OrvDoc::Content& content, SeparationSpaces& separations, ContentStart start)
{
    WrittenContent result;
    result.start = start;
    ContentWalk(result, separations, start).Write(content);
    return result;
}

} // namespace OrvPdf
