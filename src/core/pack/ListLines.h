// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

/// Reads the lines of a list file (docs/formats/lists.md) as a pack does.
///
///     for (ListLines lines(bytes); lines.Next();)
///         use(lines.Text());
class ListLines
{
public:
    static constexpr qsizetype LONGEST = 255; ///< bytes; the rest of a longer line is read as the next line

    /// `bytes` must outlive this object.
    explicit ListLines(const QByteArray &listBytes) : bytes(listBytes) {}

    /// Goes to the next line that isn't empty. Returns false if there is none.
    bool Next();
    /// The line without its end.
    [[nodiscard]] NarrowText Text() const { return text; }
    /// The number of the line in the file, from 1. The parts of a line that is too long have the same number.
    [[nodiscard]] int Number() const { return number; }
    /// True if the rest of the line is read as the next line.
    [[nodiscard]] bool IsCut() const { return isCut; }

private:
    const QByteArray &bytes;
    qsizetype at = 0;
    int number = 0;
    bool isLineEnded = true; // before `at`
    bool isCut = false;
    NarrowText text;
};
