// SPDX-License-Identifier: MIT
#include "Readers.h"

#include <algorithm>
#include <cstring>
#include <gif_lib.h>

// Only uses the low-level calls of giflib, which read one record or one row each, so that nothing is kept of the frames
// after the first.

namespace
{

struct GifSession
{
    Bytes file;
    std::size_t at = 0;
    GifFileType *gif = nullptr;
    int transparentIndex = NO_TRANSPARENT_COLOR;
    Buffer indices; // one row of the frame

    ~GifSession()
    {
        if (gif != nullptr)
            DGifCloseFile(gif, nullptr);
    }
};

int OnRead(GifFileType *gif, GifByteType *to, int size)
{
    auto *session = static_cast<GifSession *>(gif->UserData);
    const std::size_t count = std::min(static_cast<std::size_t>(std::max(size, 0)), session->file.size() - session->at);
    if (count > 0)
        std::memcpy(to, session->file.data() + session->at, count);
    session->at += count;
    return static_cast<int>(count);
}

Outcome Broken(int giflibError)
{
    const char *text = GifErrorString(giflibError);
    return Outcome::Failed("broken gif: %s, expected a complete picture", text != nullptr ? text : "unknown error");
}

/// Reads an extension. The transparent colour of the next frame is kept.
bool ReadExtension(GifSession &session)
{
    int kind = 0;
    GifByteType *block = nullptr;
    if (DGifGetExtension(session.gif, &kind, &block) == GIF_ERROR)
        return false;
    GraphicsControlBlock control;
    if (kind == GRAPHICS_EXT_FUNC_CODE && block != nullptr &&
        DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK)
        session.transparentIndex = control.TransparentColor;
    while (block != nullptr)
        if (DGifGetExtensionNext(session.gif, &block) == GIF_ERROR)
            return false;
    return true;
}

/// Skips the pixels of a frame that isn't needed.
bool SkipFrame(GifFileType *gif)
{
    int codeSize = 0;
    GifByteType *block = nullptr;
    if (DGifGetImageHeader(gif) == GIF_ERROR || DGifGetCode(gif, &codeSize, &block) == GIF_ERROR)
        return false;
    while (block != nullptr)
        if (DGifGetCodeNext(gif, &block) == GIF_ERROR)
            return false;
    return true;
}

/// Draws the part of the frame's row `frameY` that is within the canvas. Other pixels stay transparent.
void DrawRow(const GifSession &session, const ColorMapObject &colours, const std::uint8_t *indices,
             std::uint32_t frameY, Picture &picture)
{
    const GifImageDesc &frame = session.gif->Image;
    const auto left = static_cast<std::uint32_t>(frame.Left);
    const std::uint32_t y = static_cast<std::uint32_t>(frame.Top) + frameY;
    if (y >= picture.Height() || left >= picture.Width())
        return;
    const std::uint32_t count = std::min(static_cast<std::uint32_t>(frame.Width), picture.Width() - left);
    std::uint8_t *to = picture.Row(y) + std::size_t{left} * 4;
    for (std::uint32_t x = 0; x < count; ++x, to += 4) {
        const int index = indices[x];
        if (index == session.transparentIndex)
            continue;
        const GifColorType colour = index < colours.ColorCount ? colours.Colors[index] : GifColorType{0, 0, 0};
        to[0] = colour.Blue;
        to[1] = colour.Green;
        to[2] = colour.Red;
        to[3] = 0xFF;
    }
    picture.FinishRow(y);
}

Outcome ReadFrame(GifSession &session, Picture &picture)
{
    GifFileType *gif = session.gif;
    if (DGifGetImageHeader(gif) == GIF_ERROR)
        return Broken(gif->Error);
    const ColorMapObject *colours = gif->Image.ColorMap != nullptr ? gif->Image.ColorMap : gif->SColorMap;
    if (colours == nullptr)
        return Outcome::Failed("broken gif: no colour table, expected one in the file or in the first frame");
    // The frame may be larger than the canvas, so its size is checked as well.
    const auto height = static_cast<std::uint32_t>(std::max(gif->Image.Height, 0));
    const auto width = static_cast<std::uint32_t>(std::max(gif->Image.Width, 0));
    if (const Outcome outcome = picture.CheckSize(width, height); outcome.HasFailed())
        return outcome;
    if (!session.indices.Allocate(width))
        return Outcome::Failed("there is not enough memory for the gif");

    struct Pass
    {
        std::uint32_t first, step;
    };
    static constexpr Pass straight[] = {{0, 1}};
    static constexpr Pass interlaced[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
    for (const Pass pass : gif->Image.Interlace ? std::span<const Pass>(interlaced) : std::span<const Pass>(straight)) {
        for (std::uint32_t y = pass.first; y < height; y += pass.step) {
            if (DGifGetLine(gif, session.indices.Data(), static_cast<int>(width)) == GIF_ERROR)
                return Broken(gif->Error);
            DrawRow(session, *colours, session.indices.Data(), y, picture);
        }
    }
    return Outcome::Done();
}

/// Reads the records up to the end mark, so that a file that breaks off after the first frame is noticed too.
Outcome ReadRecords(GifSession &session, Picture &picture)
{
    bool hasFrame = false;
    for (;;) {
        GifRecordType record = UNDEFINED_RECORD_TYPE;
        if (DGifGetRecordType(session.gif, &record) == GIF_ERROR) {
            // Some programs leave zeros after the end of the last frame.
            if (hasFrame && session.gif->Error == D_GIF_ERR_WRONG_RECORD && session.file[session.at - 1] == 0)
                continue;
            return Broken(session.gif->Error);
        }
        if (record == TERMINATE_RECORD_TYPE)
            return hasFrame ? Outcome::Done() : Outcome::Failed("gif without a frame, expected at least one");
        if (record == EXTENSION_RECORD_TYPE) {
            if (!ReadExtension(session))
                return Broken(session.gif->Error);
        } else if (hasFrame) {
            if (!SkipFrame(session.gif))
                return Broken(session.gif->Error);
        } else {
            if (const Outcome outcome = ReadFrame(session, picture); outcome.HasFailed())
                return outcome;
            hasFrame = true;
        }
    }
}

} // namespace

Outcome ReadGif(Bytes file, Picture &picture)
{
    GifSession session{.file = file, .indices = {}};
    int error = D_GIF_ERR_OPEN_FAILED;
    session.gif = DGifOpen(&session, OnRead, &error);
    if (session.gif == nullptr)
        return Broken(error);
    const auto width = static_cast<std::uint32_t>(std::max(session.gif->SWidth, 0));
    const auto height = static_cast<std::uint32_t>(std::max(session.gif->SHeight, 0));
    if (const Outcome outcome = picture.Start(width, height, Filling::WholePicture); outcome.HasFailed())
        return outcome;
    return ReadRecords(session, picture);
}
