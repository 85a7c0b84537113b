// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <optional>

/// The encoding and the line ends of a text file: UTF-16 with a byte order mark, as in the files of a project, or
/// UTF-8, which git passes on if an attribute tells it the encoding of the files.
class TextForm
{
public:
    /// Decodes a file, and takes on its form. Returns why that isn't possible; empty on success. `text` has no byte
    /// order mark.
    [[nodiscard]] QString Decode(QByteArrayView bytes, QString &text);

    /// Encodes a text whose lines have this form's ends. Returns nothing if the encoding lacks one of its characters.
    [[nodiscard]] std::optional<QByteArray> Encode(QStringView text) const;

    [[nodiscard]] QStringView LineEnd() const { return hasCarriageReturn ? u"\r\n" : u"\n"; }

private:
    bool isUtf16 = false; // little-endian, with a mark
    bool hasMark = false;
    bool hasCarriageReturn = false;
};

/// Returns a text file as UTF-8 without a byte order mark, with lines that end in a line feed. Accepts any bytes; those
/// that are neither UTF-16 with a mark nor UTF-8 aren't changed.
[[nodiscard]] QByteArray ReadableText(QByteArrayView bytes);
