// SPDX-License-Identifier: MIT
#include "Readers.h"

#include <csetjmp>
#include <cstdio>
// jpeglib.h needs <cstdio> before it.
#include <jerror.h>
#include <jpeglib.h>

// On an error, libjpeg is left by the longjmp of the error callback. It only jumps over libjpeg's functions and the
// callbacks below, which own no objects with destructors. Everything that must be freed belongs to JpegSession, which
// is outside of the jump.

namespace
{

/// Ten are common. Each scan takes a pass over the whole picture, so a small file could require hours.
constexpr int maxScans = 256;

struct JpegSession
{
    jpeg_decompress_struct jpeg = {};
    jpeg_error_mgr errors = {};
    jpeg_progress_mgr progress = {};
    std::jmp_buf leave;
    char error[JMSG_LENGTH_MAX] = {};
    Buffer cmykRow;

    ~JpegSession() { jpeg_destroy_decompress(&jpeg); }
};

JpegSession &SessionOf(j_common_ptr jpeg)
{
    return *static_cast<JpegSession *>(jpeg->client_data);
}

[[noreturn]] void OnError(j_common_ptr jpeg)
{
    JpegSession &session = SessionOf(jpeg);
    jpeg->err->format_message(jpeg, session.error);
    std::longjmp(session.leave, 1);
}

/// libjpeg reports damaged data as a warning and fills in other pixels. The result isn't the original picture, so only
/// warnings that don't affect the pixels are accepted.
void OnMessage(j_common_ptr jpeg, int level)
{
    const int code = jpeg->err->msg_code;
    const bool beforePixels = reinterpret_cast<j_decompress_ptr>(jpeg)->input_scan_number == 0;
    if (code == JWRN_EXTRANEOUS_DATA && beforePixels)
        return;
    if (level < 0 && code != JWRN_JFIF_MAJOR && code != JWRN_ADOBE_XFORM && code != JWRN_BOGUS_ICC)
        OnError(jpeg);
}

void OnProgress(j_common_ptr jpeg)
{
    if (reinterpret_cast<j_decompress_ptr>(jpeg)->input_scan_number > maxScans) {
        JpegSession &session = SessionOf(jpeg);
        std::snprintf(session.error, sizeof session.error, "more than %d scans", maxScans);
        std::longjmp(session.leave, 1);
    }
}

/// Converts four inks to blue, green, red. Programs that leave an Adobe marker store the inks inverted.
void CmykToBgra(const std::uint8_t *from, std::uint8_t *to, std::uint32_t width, bool isInverted)
{
    const std::uint32_t flip = isInverted ? 0 : 0xFF;
    for (std::size_t x = 0; x < width; ++x, from += 4, to += 4) {
        const std::uint32_t black = from[3] ^ flip;
        to[0] = static_cast<std::uint8_t>(((from[2] ^ flip) * black + 127) / 255);
        to[1] = static_cast<std::uint8_t>(((from[1] ^ flip) * black + 127) / 255);
        to[2] = static_cast<std::uint8_t>(((from[0] ^ flip) * black + 127) / 255);
        to[3] = 0xFF;
    }
}

void ReadRows(JpegSession &session, Picture &picture)
{
    jpeg_decompress_struct &jpeg = session.jpeg;
    const bool isCmyk = jpeg.out_color_space == JCS_CMYK;
    while (jpeg.output_scanline < jpeg.output_height) {
        const std::uint32_t y = jpeg.output_scanline;
        JSAMPROW row = isCmyk ? session.cmykRow.Data() : picture.Row(y);
        jpeg_read_scanlines(&jpeg, &row, 1);
        if (isCmyk)
            CmykToBgra(row, picture.Row(y), picture.Width(), jpeg.saw_Adobe_marker != FALSE);
        picture.FinishRow(y);
    }
}

/// The part that an error of libjpeg may leave at any point. Returns true if all rows were read.
bool Read(JpegSession &session, Bytes file, Picture &picture, Outcome &outcome)
{
    jpeg_decompress_struct &jpeg = session.jpeg;
    if (setjmp(session.leave) != 0)
        return false;
    jpeg_create_decompress(&jpeg);
    jpeg.progress = &session.progress;
    jpeg_mem_src(&jpeg, file.data(), static_cast<unsigned long>(file.size()));
    jpeg_read_header(&jpeg, TRUE);

    const bool isCmyk = jpeg.jpeg_color_space == JCS_CMYK || jpeg.jpeg_color_space == JCS_YCCK;
    jpeg.out_color_space = isCmyk ? JCS_CMYK : JCS_EXT_BGRX;
    outcome = picture.Start(jpeg.image_width, jpeg.image_height, Filling::OpaqueRows);
    if (!outcome.HasFailed() && isCmyk && !session.cmykRow.Allocate(std::size_t{jpeg.image_width} * 4))
        outcome = Outcome::Failed("there is not enough memory for the jpg");
    if (outcome.HasFailed())
        return false;

    jpeg_start_decompress(&jpeg);
    ReadRows(session, picture);
    jpeg_finish_decompress(&jpeg); // reads up to the end marker
    return true;
}

} // namespace

Outcome ReadJpeg(Bytes file, Picture &picture)
{
    JpegSession session;
    session.jpeg.err = jpeg_std_error(&session.errors);
    session.errors.error_exit = OnError;
    session.errors.emit_message = OnMessage;
    session.progress.progress_monitor = OnProgress;
    session.jpeg.client_data = &session;

    Outcome outcome = Outcome::Done();
    if (!Read(session, file, picture, outcome) && !outcome.HasFailed())
        return Outcome::Failed("broken jpg: %s, expected a complete picture", session.error);
    return outcome;
}
