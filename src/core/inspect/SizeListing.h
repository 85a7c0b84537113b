// SPDX-License-Identifier: MIT
#pragma once

#include "PackParts.h"

class PackNames;
class PackSelection;

/// A part of a payload, or a whole language, and its size.
struct SizedPart
{
    QByteArray text;                  ///< as PartText has it, or "language 0"
    const PackedPart *part = nullptr; ///< null for a whole language
    int language = -1;                ///< of a whole language
    qint64 bytes = 0;
};

/// Returns the parts of the payload, the largest first. Without a selection, the parts of a language are one.
[[nodiscard]] std::vector<SizedPart> SizesOf(const std::vector<PackedPart> &parts, const PackNames &names,
                                             const PackSelection *selection);

/// A listing for people, UTF-8, with the share of each part in a payload of `payloadSize` bytes.
[[nodiscard]] QByteArray SizesText(const std::vector<SizedPart> &sizes, quint64 payloadSize);

/// The same as one JSON object: `version`, `payload`, `parts` (what WritePart writes, `bytes`). A whole language has
/// the kind "language".
[[nodiscard]] QByteArray SizesJson(const std::vector<SizedPart> &sizes, quint64 payloadSize, const PackNames &names);
