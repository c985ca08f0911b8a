#include "pdf/reader/document/page_content_data.h"

#include <utility>

#include "pdf/limit_text.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/file/source_file.h"
#include "pdf/reader/file/stream_data.h"

namespace OrvPdf
{

namespace
{

class ContentJoiner
{
public:
    ContentJoiner(const SourceFile& givenFile, PageContentData& givenData) : file(givenFile), data(givenData)
    {}

    // False if nothing more fits.
    bool Add(QPDFObjectHandle part, const std::string& place)
    {
        std::string name;
        EncodedStream encoded;
        {
            const SourceFile::Access access(file);
            name = DescribeObject(part);
            if (!part.isStream()) {
                data.problems.push_back(place + " (" + name + ") is no stream");
                return true;
            }
            encoded = FetchStream(part);
        }
        const ByteLimit limit = file.GetContentLimit(data.bytes.GetSize());
        if (limit.bytes == 0) {
            data.problems.push_back(
                name + ": " +
                LimitText(limit.name, limit.value, "this content stream and those after it are left out"));
            return false;
        }
        DecodedStream decoded = DecodeStream(file, encoded, limit);
        file.CountContentBytes(decoded.bytes.GetSize());
        if (!decoded.problem.empty())
            data.problems.push_back(name + ": " + decoded.problem);
        if (data.bytes.GetSize() == 0) {
            data.bytes = std::move(decoded.bytes);
        } else {
            data.bytes.Append("\n");
            data.bytes.Append(decoded.bytes.View());
        }
        return true;
    }

private:
    const SourceFile& file;
    PageContentData& data;
};

} // namespace

PageContentData ReadPageContent(const SourceFile& file, QPDFObjectHandle page)
{
    PageContentData data;
    std::vector<QPDFObjectHandle> parts;
    bool isArray = false;
    {
        const SourceFile::Access access(file);
        QPDFObjectHandle contents = page.getKey("/Contents");
        if (contents.isNull())
            return data;
        isArray = contents.isArray();
        if (isArray)
            parts = contents.getArrayAsVector();
        else
            parts.push_back(contents);
    }
    ContentJoiner joiner(file, data);
    for (std::size_t index = 0; index < parts.size(); ++index) {
        const std::string place =
            isArray ? "entry " + std::to_string(index + 1) + " of Contents" : std::string("Contents");
        if (!joiner.Add(parts[index], place))
            break;
    }
    return data;
}

} // namespace OrvPdf
