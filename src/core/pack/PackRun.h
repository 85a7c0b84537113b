// SPDX-License-Identifier: MIT
#pragma once

#include "PackImage.h"
#include "PackTrial.h"
#include "Phases.h"

/// The state of one pack.
struct PackRun
{
    CResModel &document;
    const packinfo info;
    const OutputGuard &guard;
    PackFiles files;
    ScratchFolder scratch;
    QByteArray inputHost;
    QByteArray outputHost;
    QByteArray sideHost;        // the payload alone; empty in a mode without it
    PackTrial *trial = nullptr; // null in a pack
    PieceMemory memory{};       // of one PackImage at a time
    PictureConverters converters{document.env, info.options, scratch};

    [[nodiscard]] Environment &Env() const { return document.env; }
};

/// The base of the offsets in a section of an ELF file: 0, or its place in the file, as the settings say.
[[nodiscard]] quint64 BaseOfSection(const Environment &env, const struct ElfImage &elf);

/// The sizes of a packed DLL: the input's bytes, PAYLOAD_NAME, the payload, and the input's size in 4 bytes.
namespace PackedDll
{

[[nodiscard]] constexpr quint64 PayloadOffset(quint64 inputSize)
{
    return inputSize + sizeof PAYLOAD_NAME;
}

[[nodiscard]] constexpr quint64 Size(quint64 inputSize, quint64 payload)
{
    return PayloadOffset(inputSize) + payload + sizeof(quint32);
}

} // namespace PackedDll

/// Runs all phases and lays out the payload, which isn't laid out if a trial doesn't know all sizes. Returns 0 or a
/// failure code; PACK_SAME_FILE if an output is a file that was read.
[[nodiscard]] int BuildPayload(PackRun &run, quint64 base, PackImage &image);
