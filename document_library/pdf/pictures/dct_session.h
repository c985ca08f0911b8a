#pragma once

#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include <jpeglib.h>

namespace OrvPdf
{

/// One run of the JPEG library over data in memory. What the library says is kept here and not printed.
class DctSession
{
public:
    /// The data has to stay until the end of the session.
    explicit DctSession(std::string_view givenData);
    ~DctSession();
    DctSession(const DctSession&) = delete;
    DctSession& operator=(const DctSession&) = delete;

    jpeg_decompress_struct info = {};

    /// Calls the library. False if it gave up. It leaves `step` by a jump then, so nothing in `step` may own
    /// anything. Throws std::bad_alloc if memory was what it lacked.
    template <typename Step>
    bool Try(const Step& step)
    {
        if (setjmp(jump) != 0)
            return GiveUp();
        step();
        return true;
    }

    /// What was wrong first; empty if nothing was.
    std::string GetProblem() const;

    /// Rows that stand before the place where the data ended, rounded up to whole blocks.
    std::size_t CountSoundRows() const { return soundRows; }

    /// The bytes before what the library gave up at.
    std::string_view GetSoundData() const;

private:
    static DctSession& Of(j_common_ptr common) { return *static_cast<DctSession*>(common->client_data); }
    static void OnError(j_common_ptr common);
    static void OnMessage(j_common_ptr common, int level);
    static void OnProgress(j_common_ptr common);
    static boolean OnEndOfData(j_decompress_ptr decompressor);
    static void OnSkip(j_decompress_ptr decompressor, long count);

    bool GiveUp() const;
    void Keep(j_common_ptr common);
    void CutRows();

    jpeg_error_mgr errors = {};
    jpeg_source_mgr source = {};
    jpeg_progress_mgr progress = {};
    std::jmp_buf jump;
    std::string_view data;
    std::size_t soundRows = SIZE_MAX;
    /// Where the last whole step ended, once the data has.
    std::size_t lastPlace = 0;
    bool endedEarly = false;
    bool lacksMemory = false;
    bool hasTooManyScans = false;
    char message[JMSG_LENGTH_MAX] = {};
};

} // namespace OrvPdf
