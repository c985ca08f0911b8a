#include "pdf/writer/content_writer.h"

#include <orv_doc/content.h>

#include "pdf/writer/content_walk.h"

namespace OrvPdf
{

WrittenContent WriteContent(const OrvDoc::Content& content, SeparationSpaces& separations)
{
    WrittenContent result;
    ContentWalk(result, separations).Write(content);
    if (content.GetTransferFunctionSet()) {
        result.problems.Add("transfer functions are not written yet");
    }
    return result;
}

} // namespace OrvPdf
