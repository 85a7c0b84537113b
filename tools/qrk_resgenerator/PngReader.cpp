// SPDX-License-Identifier: MIT
#include "PngUnpacker.h"
#include "Readers.h"

#include <csetjmp>
#include <cstring>
#include <png.h>

// On an error, libpng is left by longjmp. It only jumps over libpng's functions and the callbacks below, which own no
// objects with destructors. Everything that must be freed belongs to PngSession, which is outside of the jump.

namespace
{

struct PngSession
{
    Bytes file;
    bool hasCheckedData = false;
    std::size_t at = 0;
    png_structp png = nullptr;
    png_infop info = nullptr;
    char error[160] = {};

    ~PngSession() { png_destroy_read_struct(&png, &info, nullptr); }
};

void OnError(png_structp png, png_const_charp text)
{
    auto *session = static_cast<PngSession *>(png_get_error_ptr(png));
    std::snprintf(session->error, sizeof session->error, "%s", text);
    png_longjmp(png, 1);
}

/// Warnings are about problems that don't affect the pixels, or precede an error.
void OnWarning(png_structp, png_const_charp) {}

void OnRead(png_structp png, png_bytep to, std::size_t size)
{
    auto *session = static_cast<PngSession *>(png_get_io_ptr(png));
    if (size > session->file.size() - session->at)
        png_error(png, "the file ends too soon");
    std::memcpy(to, session->file.data() + session->at, size);
    session->at += size;
}

/// Sets libpng to return rows of blue, green, red, alpha with 8 bits each, whatever the file has.
void AskForBgra(png_structp png, png_infop info)
{
    if (png_get_color_type(png, info) == PNG_COLOR_TYPE_PALETTE)
        png_set_palette_to_rgb(png);
    png_set_expand_gray_1_2_4_to_8(png);
    if (png_get_valid(png, info, PNG_INFO_tRNS) != 0)
        png_set_tRNS_to_alpha(png);
    png_set_scale_16(png);
    png_set_gray_to_rgb(png);
    png_set_bgr(png);
    png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
}

/// Checks the width and height in the file's first chunk, before libpng reports them with its own messages.
Outcome CheckHeader(Bytes file, const Picture &picture)
{
    const auto number = [file](std::size_t at) {
        return std::uint32_t{file[at]} << 24 | std::uint32_t{file[at + 1]} << 16 | std::uint32_t{file[at + 2]} << 8 |
               std::uint32_t{file[at + 3]};
    };
    if (file.size() < 24 || std::memcmp(file.data() + 12, "IHDR", 4) != 0)
        return Outcome::Failed("broken png: expected an IHDR chunk at byte 12");
    return picture.CheckSize(number(16), number(20));
}

void ReadRows(PngSession &session, Picture &picture)
{
    const int passes = png_set_interlace_handling(session.png);
    png_start_read_image(session.png);
    for (int pass = 0; pass < passes; ++pass) {
        for (std::uint32_t y = 0; y < picture.Height(); ++y) {
            png_read_row(session.png, picture.Row(y), nullptr);
            picture.FinishRow(y);
        }
    }
    png_read_end(session.png, nullptr);
}

/// The part that an error of libpng may leave at any point. Returns true if all rows were read.
bool Read(PngSession &session, Picture &picture, Outcome &outcome)
{
    if (setjmp(png_jmpbuf(session.png)) != 0)
        return false;
    png_set_read_fn(session.png, &session, OnRead);
    png_set_user_limits(session.png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    // Texts, profiles and the like aren't needed. Skipping them keeps them from exhausting memory.
    png_set_keep_unknown_chunks(session.png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    if (session.hasCheckedData) {
        png_set_crc_action(session.png, PNG_CRC_QUIET_USE, PNG_CRC_QUIET_USE);
        png_set_option(session.png, PNG_IGNORE_ADLER32, PNG_OPTION_ON);
    }
    png_read_info(session.png, session.info);
    AskForBgra(session.png, session.info);

    const bool hasAlpha = (png_get_color_type(session.png, session.info) & PNG_COLOR_MASK_ALPHA) != 0 ||
                          png_get_valid(session.png, session.info, PNG_INFO_tRNS) != 0;
    const bool isInterlaced = png_get_interlace_type(session.png, session.info) != PNG_INTERLACE_NONE;
    outcome =
        picture.Start(png_get_image_width(session.png, session.info), png_get_image_height(session.png, session.info),
                      hasAlpha || isInterlaced ? Filling::WholePicture : Filling::OpaqueRows);
    if (outcome.HasFailed())
        return false;
    ReadRows(session, picture);
    return true;
}

} // namespace

Outcome ReadPng(Bytes file, Picture &picture)
{
    if (const Outcome outcome = CheckHeader(file, picture); outcome.HasFailed())
        return outcome;
    Buffer unpacked;
    const bool isUnpacked = UnpackPng(file, unpacked);
    PngSession session{.file = isUnpacked ? unpacked.View() : file, .hasCheckedData = isUnpacked};
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
    // With checksums, changed bytes would hardly ever reach the code after them.
    session.hasCheckedData = true;
#endif
    session.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &session, OnError, OnWarning);
    if (session.png != nullptr)
        session.info = png_create_info_struct(session.png);
    if (session.info == nullptr)
        return Outcome::Failed("there is not enough memory for the png");

    Outcome outcome = Outcome::Done();
    if (!Read(session, picture, outcome) && !outcome.HasFailed())
        return Outcome::Failed("broken png: %s, expected a complete picture", session.error);
    return outcome;
}
