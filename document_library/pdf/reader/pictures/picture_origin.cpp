#include "pdf/reader/pictures/picture_origin.h"

#include <map>
#include <set>
#include <stdexcept>
#include <utility>

#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/file/source_file.h"
#include "pdf/reader/resources/resource_guard.h"

namespace OrvPdf
{

namespace
{

using OrvSys::PdfObject;

/// Copies an image XObject with all that it refers to. Streams keep their filters, unlike those of an
/// `ObjectConverter`.
class WholeCopy
{
public:
    PdfObject Copy(QPDFObjectHandle object)
    {
        if (!object.isIndirect()) {
            return CopyValue(object);
        }
        const auto found = finished.find(object.getObjGen());
        if (found != finished.end()) {
            return found->second;
        }
        if (!open.insert(object.getObjGen()).second) {
            throw std::invalid_argument(DescribeObject(object) + " refers to itself");
        }
        PdfObject copy = CopyValue(object);
        open.erase(object.getObjGen());
        finished.emplace(object.getObjGen(), copy);
        return copy;
    }

private:
    PdfObject CopyValue(QPDFObjectHandle object)
    {
        if (object.isBool()) {
            return PdfObject::Boolean(object.getBoolValue());
        }
        if (object.isInteger()) {
            return PdfObject::Integer(object.getIntValue());
        }
        if (object.isReal()) {
            return PdfObject::Real(object.getRealValue());
        }
        if (object.isString()) {
            return PdfObject::String(object.getStringValue());
        }
        if (object.isName()) {
            return PdfObject::Name(WithoutSlash(object.getName()));
        }
        if (!object.isArray() && !object.isDictionary() && !object.isStream()) {
            return {};
        }
        if (open.size() + depth >= PdfObject::MaxDepth) {
            throw std::invalid_argument("the picture's dictionary is nested too deeply");
        }
        ++depth;
        PdfObject copy = object.isArray() ? CopyArray(object) : CopyEntries(object);
        --depth;
        return copy;
    }

    PdfObject CopyArray(QPDFObjectHandle array)
    {
        PdfObject::Items items;
        for (QPDFObjectHandle item : array.getArrayAsVector()) {
            items.push_back(Copy(item));
        }
        return PdfObject::Array(std::move(items));
    }

    PdfObject CopyEntries(QPDFObjectHandle object)
    {
        PdfObject::Entries entries;
        for (const auto& [key, value] : (object.isStream() ? object.getDict() : object).getDictAsMap()) {
            // Layers and places in the structure tree are what the document around makes of the picture.
            if (key != "/Length" && key != "/OC" && key != "/StructParent") {
                entries.emplace(WithoutSlash(key), Copy(value));
            }
        }
        PdfObject dictionary = PdfObject::Dictionary(std::move(entries));
        if (!object.isStream()) {
            return dictionary;
        }
        const EncodedStream encoded = FetchStream(object);
        if (!encoded.raw) {
            throw std::invalid_argument(DescribeObject(object) + ": " + encoded.problem);
        }
        return PdfObject::Stream(dictionary, std::string(encoded.View()));
    }

    std::set<QPDFObjGen> open;
    /// An object that is named many times over is copied once.
    std::map<QPDFObjGen, PdfObject> finished;
    std::size_t depth = 0;
};

class XObjectOrigin : public PictureOrigin
{
public:
    XObjectOrigin(std::shared_ptr<const SourceFile> givenFile, QPDFObjectHandle givenStream)
        : file(std::move(givenFile)), stream(givenStream), name(DescribeObject(givenStream))
    {}

    EncodedStream Fetch() const override
    {
        const SourceFile::Access access(*file);
        return FetchStream(stream);
    }

    int GetObjectNumber(const SourceFile& other) const override
    {
        return &other == file.get() ? stream.getObjectID() : 0;
    }

    PdfObject Convert(std::string& problem) const override
    {
        PdfObject copy;
        GuardLookUp(problem, [&] {
            const SourceFile::Access access(*file);
            copy = WholeCopy().Copy(stream);
        });
        return problem.empty() ? copy : PdfObject();
    }

    std::string Describe() const override { return name; }

private:
    std::shared_ptr<const SourceFile> file;
    mutable QPDFObjectHandle stream;
    std::string name;
};

/// Filters that stand in no file.
QPDFObjectHandle MakeHandle(const PdfObject& value)
{
    return value.ContainsStream() ? QPDFObjectHandle::newNull() : QPDFObjectHandle::parse(value.Serialize());
}

class InlineOrigin : public PictureOrigin
{
public:
    InlineOrigin(PdfObject givenStream, std::string givenName)
        : stream(std::move(givenStream)), name(std::move(givenName))
    {
        GuardLookUp(problem, [this] {
            QPDFObjectHandle dictionary = QPDFObjectHandle::newDictionary();
            dictionary.replaceKey("/Filter", MakeHandle(stream.Find("Filter")));
            dictionary.replaceKey("/DecodeParms", MakeHandle(stream.Find("DecodeParms")));
            problem = ReadFilterStages(dictionary, stages);
        });
    }

    EncodedStream Fetch() const override
    {
        EncodedStream encoded;
        encoded.stages = stages;
        encoded.problem = problem;
        const std::string& bytes = stream.GetRawBytes();
        if (problem.empty()) {
            encoded.raw = std::make_shared<Buffer>(
                reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())), bytes.size());
        }
        return encoded;
    }

    int GetObjectNumber(const SourceFile&) const override { return 0; }
    PdfObject Convert(std::string&) const override { return stream; }
    std::string Describe() const override { return name; }

private:
    PdfObject stream;
    std::string name;
    std::vector<FilterStage> stages;
    std::string problem;
};

} // namespace

std::shared_ptr<const PictureOrigin> MakeXObjectOrigin(std::shared_ptr<const SourceFile> file,
                                                       QPDFObjectHandle stream)
{
    return std::make_shared<const XObjectOrigin>(std::move(file), stream);
}

std::shared_ptr<const PictureOrigin> MakeInlineOrigin(PdfObject stream, std::string name)
{
    return std::make_shared<const InlineOrigin>(std::move(stream), std::move(name));
}

} // namespace OrvPdf
