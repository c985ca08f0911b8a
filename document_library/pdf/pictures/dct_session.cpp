#include "pdf/pictures/dct_session.h"

#include <algorithm>
#include <new>

#include <jerror.h>

namespace OrvPdf
{

namespace
{

// Each scan of a progressive file goes over all blocks, even one of a few bytes. Programs write about ten.
constexpr int maximalScans = 200;

constexpr JOCTET endOfImage[] = {0xFF, JPEG_EOI};

} // namespace

DctSession::DctSession(std::string_view givenData) : data(givenData)
{
    info.err = jpeg_std_error(&errors);
    errors.error_exit = OnError;
    errors.emit_message = OnMessage;
    errors.output_message = [](j_common_ptr) {};
    info.client_data = this;
    if (!Try([this] { jpeg_create_decompress(&info); }))
        return;
    source.next_input_byte = reinterpret_cast<const JOCTET*>(data.data());
    source.bytes_in_buffer = data.size();
    source.init_source = [](j_decompress_ptr) {};
    source.fill_input_buffer = OnEndOfData;
    source.skip_input_data = OnSkip;
    source.resync_to_restart = jpeg_resync_to_restart;
    source.term_source = [](j_decompress_ptr) {};
    info.src = &source;
    progress.progress_monitor = OnProgress;
    info.progress = &progress;
}

DctSession::~DctSession()
{
    jpeg_destroy_decompress(&info);
}

std::string DctSession::GetProblem() const
{
    if (endedEarly)
        return "the JPEG data ends early";
    if (hasTooManyScans)
        return "the JPEG data has more than " + std::to_string(maximalScans) + " scans";
    return message[0] == '\0' ? std::string() : std::string("the JPEG data is damaged: ") + message;
}

std::string_view DctSession::GetSoundData() const
{
    constexpr std::size_t markerBytes = 2;
    const std::size_t read = endedEarly ? lastPlace : data.size() - source.bytes_in_buffer;
    // The marker of a damaged segment is read already.
    const bool hasMarker = read >= markerBytes && data[read - markerBytes] == '\xFF';
    return data.substr(0, hasMarker ? read - markerBytes : read);
}

bool DctSession::GiveUp() const
{
    if (lacksMemory)
        throw std::bad_alloc();
    return false;
}

void DctSession::Keep(j_common_ptr common)
{
    if (message[0] == '\0')
        common->err->format_message(common, message);
}

void DctSession::CutRows()
{
    // Later scans only add detail to rows that are there.
    if (info.input_scan_number > 1)
        return;
    const std::size_t rowsOfBlocks = static_cast<std::size_t>(info.max_v_samp_factor) * DCTSIZE;
    soundRows = std::min(soundRows, (info.input_iMCU_row + std::size_t{1}) * rowsOfBlocks);
}

void DctSession::OnError(j_common_ptr common)
{
    DctSession& session = Of(common);
    session.lacksMemory = common->err->msg_code == JERR_OUT_OF_MEMORY;
    session.Keep(common);
    std::longjmp(session.jump, 1);
}

void DctSession::OnMessage(j_common_ptr common, int level)
{
    constexpr int warning = -1;
    if (level != warning)
        return;
    DctSession& session = Of(common);
    // The library goes on without data. Behind a marker that is no restart it does so to the end.
    const int marker = session.info.unread_marker;
    const bool isRestart = marker >= JPEG_RST0 && marker <= JPEG_RST0 + 7;
    if (common->err->msg_code == JWRN_HIT_MARKER && marker >= 0xC0 && !isRestart)
        session.CutRows();
    session.Keep(common);
}

void DctSession::OnProgress(j_common_ptr common)
{
    DctSession& session = Of(common);
    if (session.info.input_scan_number <= maximalScans)
        return;
    session.hasTooManyScans = true;
    std::longjmp(session.jump, 1);
}

boolean DctSession::OnEndOfData(j_decompress_ptr decompressor)
{
    DctSession& session = Of(reinterpret_cast<j_common_ptr>(decompressor));
    if (!session.endedEarly)
        session.lastPlace = session.data.size() - session.source.bytes_in_buffer;
    session.endedEarly = true;
    session.CutRows();
    session.source.next_input_byte = endOfImage;
    session.source.bytes_in_buffer = sizeof endOfImage;
    return TRUE;
}

void DctSession::OnSkip(j_decompress_ptr decompressor, long count)
{
    if (count <= 0)
        return;
    jpeg_source_mgr& source = *decompressor->src;
    if (static_cast<std::size_t>(count) > source.bytes_in_buffer) {
        OnEndOfData(decompressor);
        return;
    }
    source.next_input_byte += count;
    source.bytes_in_buffer -= static_cast<std::size_t>(count);
}

} // namespace OrvPdf
