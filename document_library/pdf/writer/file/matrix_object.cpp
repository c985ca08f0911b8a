#include "pdf/writer/file/matrix_object.h"

#include "pdf/writer/content/content_text.h"

namespace OrvPdf
{

QPDFObjectHandle MakeMatrixObject(const Matrix& matrix)
{
    std::string text = "[";
    AppendMatrix(text, matrix);
    return QPDFObjectHandle::parse(text + "]");
}

} // namespace OrvPdf
