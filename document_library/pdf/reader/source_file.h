#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include <boost/filesystem/path.hpp>

#include <orv_doc/read_options.h>

class QPDF;

namespace OrvPdf
{

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

    /// The right to touch objects of the file, for as long as it lives. One thread may hold several.
    class Access
    {
    public:
        explicit Access(const SourceFile& file) : lock(file.mutex), qpdf(*file.qpdf) {}
        QPDF& GetQpdf() const { return qpdf; }

    private:
        std::lock_guard<std::recursive_mutex> lock;
        QPDF& qpdf;
    };

    /// The same file a second time, with the same object numbers, for one who changes objects. It reads the
    /// bytes of this object, which must outlive it.
    std::unique_ptr<QPDF> OpenAgain() const;

    /// The problems that parsing met since the last call. Needs an `Access`.
    std::vector<std::string> TakeWarnings() const;
    /// Adds a problem for the next call of TakeWarnings. Needs an `Access`.
    void AddWarning(std::string text) const;

    /// How many more bytes the streams of the document may decode to.
    std::uint64_t GetDecodedBytesLeft() const;
    /// Counts bytes that were decoded.
    void CountDecodedBytes(std::uint64_t count) const;

private:
    SourceFile(const boost::filesystem::path& file, const OrvDoc::ReadOptions& givenOptions);

    void ReadBytes();
    void OpenObjects();
    /// Opens with the first form of the password that fits. What else prevents it is returned.
    std::string TryPasswords();
    /// False if no trailer can be made for the file.
    bool AddTrailer();
    void CheckObjectCount() const;
    std::unique_ptr<QPDF> OpenWith(const std::string& candidate) const;
    [[noreturn]] void Fail(const std::string& reason) const;

    boost::filesystem::path path;
    OrvDoc::ReadOptions options;
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    std::string password; // In the form that the file took.
    bool isEncrypted = false;
    bool wasRepaired = false;
    std::unique_ptr<QPDF> qpdf;
    mutable std::vector<std::string> pendingWarnings;
    mutable std::recursive_mutex mutex;
    mutable std::atomic<std::uint64_t> decodedBytes{0};
};

} // namespace OrvPdf
