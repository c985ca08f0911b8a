#include "pdf/reader/file/source_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <boost/filesystem/operations.hpp>

#include <qpdf/Buffer.hh>
#include <qpdf/BufferInputSource.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFExc.hh>
#include <qpdf/QUtil.hh>

#include "orv_doc/late_errors.h"
#include "pdf/limit_text.h"
#include "pdf/reader/file/file_reading.h"
#include "pdf/reader/file/length_mending.h"
#include "pdf/reader/file/object_places.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/file/stack_room.h"
#include "pdf/reader/file/table_repair.h"

namespace OrvPdf
{

namespace
{

constexpr std::string_view HeaderMark = "%PDF-";
constexpr const char* NoHeader = "this is no PDF file: it has no %PDF header";

// "1.10", and one digit more than any file has.
constexpr std::size_t LongestVersion = 5;

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool HasHeader(std::string_view bytes)
{
    return bytes.find(HeaderMark) != std::string_view::npos;
}

/// A look that costs little at what may be a large file of any kind.
bool MayHaveCatalogue(std::string_view bytes)
{
    return bytes.find("/Root") != std::string_view::npos || bytes.find("/Catalog") != std::string_view::npos;
}

// How many times as long as the file its contents may be.
constexpr std::uint64_t FreeExpansion = 50;

/// Bytes in memory that refuse to be read from too deep a recursion.
class GuardedInput : public BufferInputSource
{
public:
    GuardedInput(const std::string& name, std::unique_ptr<Buffer> content)
        : BufferInputSource(name, content.release(), true)
    {}

    size_t read(char* target, size_t length) override
    {
        RequireStackRoom();
        return BufferInputSource::read(target, length);
    }
};

struct FileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

} // namespace

SourceFile::SourceFile(const boost::filesystem::path& file, const OrvDoc::ReadOptions& givenOptions)
    : path(file),
      options(givenOptions),
      lateErrors(std::make_shared<OrvDoc::Detail::LateErrors>(
          givenOptions.limits.errors,
          LimitText("errors", givenOptions.limits.errors, "more problems were found after reading")))
{}

SourceFile::~SourceFile() = default;

std::shared_ptr<const SourceFile> SourceFile::Open(const boost::filesystem::path& file,
                                                   const OrvDoc::ReadOptions& options)
{
    std::shared_ptr<SourceFile> opened(new SourceFile(file, options));
    opened->ReadBytes();
    if (opened->size == 0)
        opened->Fail("the file is empty");
    if (!HasHeader(opened->GetBytes()) && !MayHaveCatalogue(opened->GetBytes()))
        opened->Fail(NoHeader);
    std::string problem = opened->MendHeader();
    opened->OpenObjects();
    if (!problem.empty())
        opened->openingProblems.push_back(std::move(problem));
    return opened;
}

void SourceFile::Fail(const std::string& reason) const
{
    throw std::runtime_error(path.string() + ": " + reason);
}

void SourceFile::ReadBytes()
{
    boost::system::error_code error;
    const boost::filesystem::file_status status = boost::filesystem::status(path, error);
    if (boost::filesystem::exists(status) && !boost::filesystem::is_regular_file(status))
        Fail("the file cannot be read: it is no regular file");
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
    if (!file)
        Fail("the file cannot be opened: " + std::generic_category().message(errno));
    const std::uintmax_t length = boost::filesystem::file_size(path, error);
    if (error)
        Fail("the file cannot be read: " + error.message());
    try {
        // Not cleared first: the memory is touched once, by the read.
        bytes.reset(new char[static_cast<std::size_t>(length) + 1]);
    } catch (const std::bad_alloc&) {
        Fail("the file does not fit into memory");
    }
    // The C library's buffer would copy each byte once more.
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    size = std::fread(bytes.get(), 1, static_cast<std::size_t>(length), file.get());
    if (std::ferror(file.get()) != 0)
        Fail("the file cannot be read: " + std::generic_category().message(errno));
}

// The PDF library takes an object at the very beginning for none, and fails at a version of many digits.
std::string SourceFile::MendHeader()
{
    const std::string_view all = GetBytes();
    const std::size_t header = all.find(HeaderMark);
    if (header == std::string_view::npos) {
        if (!IsDigit(all.front()))
            return {};
        InsertBytes(0, "%PDF-2.0\n");
        return "the file begins without a header";
    }
    const std::size_t version = header + HeaderMark.size();
    const std::size_t end = std::min(all.find_first_not_of("0123456789.", version), all.size());
    if (end - version <= LongestVersion)
        return {};
    // The newest, which all that the file may hold fits. What follows in the line is a comment.
    std::fill(bytes.get() + version, bytes.get() + end, ' ');
    std::copy_n("2.0", 3, bytes.get() + version);
    return "the header names a version that there is not";
}

void SourceFile::InsertBytes(std::size_t place, std::string_view inserted)
{
    std::unique_ptr<char[]> longer(new char[size + inserted.size()]);
    char* const end = std::copy_n(bytes.get(), place, longer.get());
    std::copy_n(bytes.get() + place, size - place, std::copy(inserted.begin(), inserted.end(), end));
    bytes = std::move(longer);
    size += inserted.size();
}

std::unique_ptr<QPDF> SourceFile::OpenWith(const std::string& candidate) const
{
    auto opened = std::make_unique<QPDF>();
    opened->setSuppressWarnings(true);
    // The library only reads from the buffer; it has no type for bytes that must not change.
    auto buffer = std::make_unique<Buffer>(reinterpret_cast<unsigned char*>(bytes.get()), size);
    opened->processInputSource(std::make_shared<GuardedInput>(path.string(), std::move(buffer)),
                               candidate.c_str());
    return opened;
}

// The PDF library makes the table anew when it meets an entry that leads to something else. What was read
// until then came from the old table, so that the outcome would depend on the order in which objects are
// asked for.
std::vector<ObjectPlace> SourceFile::SettleTable()
{
    std::vector<ObjectPlace> places = ListObjectPlaces(*qpdf, GetBytes());
    misplaced = FindMisplacedObject(places, GetBytes());
    if (!misplaced)
        return places;
    qpdf->getObject(*misplaced).isNull();
    std::vector<ObjectPlace> newPlaces = ListObjectPlaces(*qpdf, GetBytes());
    if (KeepsObjects(places, newPlaces, GetBytes()))
        return newPlaces;
    // Only objects at the beginning of a line are found for the new table.
    misplaced.reset();
    qpdf = OpenWith(password);
    return places;
}

std::string SourceFile::MendLengths(const std::vector<ObjectPlace>& places)
{
    const std::size_t count = OrvPdf::MendLengths(places, bytes.get(), size);
    if (count == 0)
        return {};
    qpdf = OpenAgain();
    return "the lengths of " + std::to_string(count) +
           " streams are wrong; their data was taken to the next endstream";
}

void SourceFile::OpenObjects()
{
    std::string problem = TryPasswords();
    // Where there is no header either, this need not be a file of that kind at all.
    if (problem.empty() && qpdf && !HasHeader(GetBytes()) &&
        !qpdf->getTrailer().getKey("/Root").isDictionary())
        problem = "it has no catalogue";
    if (!problem.empty() && (!AddTable() || !TryPasswords().empty()))
        Fail(HasHeader(GetBytes()) ? "the file is damaged beyond repair: " + problem : NoHeader);
    if (!qpdf) {
        Fail(options.password.empty() ? "the file is encrypted and needs a password"
                                      : "the file is encrypted and the password is wrong");
    }
    std::string lengthProblem = MendLengths(SettleTable());
    isEncrypted = qpdf->isEncrypted();
    openingProblems = TakeWarnings();
    if (!lengthProblem.empty())
        openingProblems.push_back(std::move(lengthProblem));
    if (!problem.empty())
        openingProblems.push_back(
            "the file was read with a cross-reference table made for it, since otherwise: " + problem);
    wasRepaired =
        !problem.empty() ||
        std::any_of(openingProblems.begin(), openingProblems.end(), [](const std::string& text) {
            return text.find("Attempting to reconstruct cross-reference table") != std::string::npos;
        });
    CheckObjectCount();
}

void SourceFile::CheckObjectCount() const
{
    // The table is copied to be counted: only where the file itself says that there are many, or can't be
    // believed.
    const std::uint64_t limit = options.limits.indirectObjects;
    QPDFObjectHandle said = qpdf->getTrailer().getKey("/Size");
    const bool isSmall = said.isInteger() && said.getIntValue() >= 0 && said.getUIntValue() <= limit;
    if (isSmall && !wasRepaired)
        return;
    const std::uint64_t count = qpdf->getXRefTable().size();
    if (count > limit) {
        Fail(LimitText("indirectObjects", limit, "the file has " + std::to_string(count) + " objects"));
    }
}

std::string SourceFile::TryPasswords()
{
    // Older encryption takes a password in the encoding of whoever set it.
    std::vector<std::string> candidates = {options.password};
    if (!options.password.empty()) {
        for (std::string& encoded : QUtil::possible_repaired_encodings(options.password))
            candidates.push_back(std::move(encoded));
    }
    for (const std::string& candidate : candidates) {
        try {
            qpdf = OpenWith(candidate);
            password = candidate;
            return {};
        } catch (const QPDFExc& problem) {
            if (problem.getErrorCode() == qpdf_e_unsupported)
                Fail("the file cannot be read: " + DescribeProblem(problem));
            if (problem.getErrorCode() != qpdf_e_password)
                return DescribeProblem(problem);
        } catch (const std::bad_alloc&) {
            return "it asks for more memory than there is";
        } catch (const std::exception& problem) {
            return problem.what();
        }
    }
    return {};
}

bool SourceFile::AddTable()
{
    const std::string table = MakeTable(GetBytes());
    if (table.empty())
        return false;
    InsertBytes(size, table);
    return true;
}

std::unique_ptr<QPDF> SourceFile::OpenAgain() const
{
    std::unique_ptr<QPDF> opened = OpenWith(password);
    if (misplaced)
        opened->getObject(*misplaced).isNull();
    return opened;
}

std::vector<std::string> SourceFile::TakeWarnings() const
{
    std::vector<std::string> texts;
    for (const QPDFExc& warning : qpdf->getWarnings())
        texts.push_back(DescribeProblem(warning));
    return texts;
}

void SourceFile::TellWarnings() const noexcept
{
    if (!qpdf->anyWarnings())
        return;
    try {
        for (std::string& text : TakeWarnings())
            Tell(std::move(text));
    } catch (const std::bad_alloc&) {
        // Nobody could be told of this either.
    }
}

void SourceFile::Tell(std::string problem) const
{
    if (FileReading* const reading = FileReading::FindCurrent(*this))
        reading->Add(std::move(problem));
    else
        lateErrors->Add(std::move(problem));
}

std::uint64_t SourceFile::GetDecodedBytesLeft() const
{
    const std::uint64_t used = decodedBytes.load();
    return used < options.limits.documentBytes ? options.limits.documentBytes - used : 0;
}

ByteLimit SourceFile::GetContentLimit(std::uint64_t used) const
{
    const OrvDoc::ReadOptions::Limits& limits = options.limits;
    const std::uint64_t left =
        limits.contentStreamBytes > used ? limits.contentStreamBytes - used : std::uint64_t{0};
    const std::uint64_t free = FreeExpansion * size;
    const std::uint64_t count = contentBytes.load();
    const std::uint64_t beyondFree = count > free ? count - free : 0;
    const std::uint64_t extra = limits.contentBytes > beyondFree ? limits.contentBytes - beyondFree : 0;
    const std::uint64_t ofFile = count < free ? free - count : 0;
    // Written so that a limit that stands for no limit does not overflow.
    if (left > ofFile && left - ofFile > extra)
        return {ofFile + extra, "contentBytes", limits.contentBytes};
    return {left, "contentStreamBytes", limits.contentStreamBytes};
}

void SourceFile::CountContentBytes(std::uint64_t count) const
{
    contentBytes += count;
}

void SourceFile::CountDecodedBytes(std::uint64_t count) const
{
    decodedBytes += count;
}

} // namespace OrvPdf
