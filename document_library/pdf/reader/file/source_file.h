#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <boost/filesystem/path.hpp>
#include <qpdf/QPDFObjGen.hh>

#include <orv_doc/read_options.h>

#include "pdf/reader/file/byte_limit.h"

class QPDF;

namespace OrvDoc::Detail
{
class LateErrors;
}

namespace OrvPdf
{

struct ObjectPlace;

/// The bytes of a PDF file in memory, and its objects. Objects are parsed when they are first asked for, and
/// the library that does it isn't thread-safe: everything that touches an object handle holds an `Access`.
class SourceFile
{
public:
    /// Reads the file at once and its cross-reference table. Throws `std::runtime_error`, "FILE: reason": it
    /// can't be read, is empty, is no PDF file, is damaged beyond repair, has too many objects, or needs
    /// another password.
    static std::shared_ptr<const SourceFile> Open(const boost::filesystem::path& file,
                                                  const OrvDoc::ReadOptions& options);

    ~SourceFile();
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;

    const boost::filesystem::path& GetPath() const { return path; }
    const OrvDoc::ReadOptions& GetOptions() const { return options; }
    std::string_view GetBytes() const { return {bytes.get(), size}; }
    bool IsEncrypted() const { return isEncrypted; }
    /// Whether the cross-reference table had to be made anew.
    bool WasRepaired() const { return wasRepaired; }

    /// The right to touch objects of the file, for as long as it lives. One thread may hold several. What
    /// parsing finds wrong meanwhile is told at the end.
    class Access
    {
    public:
        explicit Access(const SourceFile& givenFile) : file(givenFile), lock(file.mutex) {}
        ~Access() { file.TellWarnings(); }
        Access(const Access&) = delete;
        Access& operator=(const Access&) = delete;
        QPDF& GetQpdf() const { return *file.qpdf; }

    private:
        const SourceFile& file;
        std::lock_guard<std::recursive_mutex> lock;
    };

    /// The same file a second time, with the same object numbers, for one who changes objects. It reads the
    /// bytes of this object, which must outlive it.
    std::unique_ptr<QPDF> OpenAgain() const;

    /// The problems that opening the file met.
    const std::vector<std::string>& GetOpeningProblems() const { return openingProblems; }
    /// Tells a problem of the file: to the `FileReading` that this thread is in the middle of, otherwise as a
    /// late one. Any thread may call this, with or without an `Access`.
    void Tell(std::string problem) const;
    /// Where problems go that nobody is reading for. They may be told when no document is left to show them.
    const std::shared_ptr<OrvDoc::Detail::LateErrors>& GetLateErrors() const { return lateErrors; }

    /// How many more bytes the streams of the document may decode to.
    std::uint64_t GetDecodedBytesLeft() const;
    /// Counts bytes that were decoded.
    void CountDecodedBytes(std::uint64_t count) const;

    /// How many bytes a content of the document may decode to, of which some are used already where a content
    /// has several parts, and the limit that this comes from.
    ByteLimit GetContentLimit(std::uint64_t used = 0) const;
    /// Counts bytes of contents that were decoded.
    void CountContentBytes(std::uint64_t count) const;

private:
    SourceFile(const boost::filesystem::path& file, const OrvDoc::ReadOptions& givenOptions);

    void ReadBytes();
    /// Changes the bytes where the PDF library could not read the header. What was wrong is returned.
    std::string MendHeader();
    void InsertBytes(std::size_t place, std::string_view inserted);
    void OpenObjects();
    /// Opens with the first form of the password that fits. What else prevents it is returned.
    std::string TryPasswords();
    /// Puts a cross-reference table made anew behind the bytes. False if none can be made for the file.
    bool AddTable();
    /// Makes sure that the cross-reference table does not change later. Where it leads to is returned.
    std::vector<ObjectPlace> SettleTable();
    /// Changes the bytes where very many streams do not end where they say. What was wrong is returned.
    std::string MendLengths(const std::vector<ObjectPlace>& places);
    void CheckObjectCount() const;
    /// What the parser met since the last call.
    std::vector<std::string> TakeWarnings() const;
    void TellWarnings() const noexcept;
    std::unique_ptr<QPDF> OpenWith(const std::string& candidate) const;
    [[noreturn]] void Fail(const std::string& reason) const;

    boost::filesystem::path path;
    OrvDoc::ReadOptions options;
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    std::string password; // In the form that the file took.
    /// An object for which the table is made anew.
    std::optional<QPDFObjGen> misplaced;
    bool isEncrypted = false;
    bool wasRepaired = false;
    std::unique_ptr<QPDF> qpdf;
    std::vector<std::string> openingProblems;
    std::shared_ptr<OrvDoc::Detail::LateErrors> lateErrors;
    mutable std::recursive_mutex mutex;
    mutable std::atomic<std::uint64_t> decodedBytes{0};
    mutable std::atomic<std::uint64_t> contentBytes{0};
};

} // namespace OrvPdf
