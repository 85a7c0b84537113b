// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringView>

#include <functional>
#include <sys/types.h>

/// Reads the lines of UTF-16 little-endian text in one pass, with one buffer that grows with the longest line.
///
/// The file isn't mapped into memory: if another program truncated it meanwhile, reading the mapping would end this
/// program.
class Utf16Lines
{
public:
    /// Reads up to `size` bytes. Returns their number, 0 at the end, or -1 on failure.
    using Source = std::function<ssize_t(void *buffer, size_t size)>;
    explicit Utf16Lines(Source bytes);

    /// Reads the next line, including its line feed; it is valid until the next call. Returns false when the text ends
    /// before a line feed (a single byte at the end of a truncated file is ignored), can't be read, or has a line of
    /// more than 1 GiB.
    [[nodiscard]] bool Next(QStringView &line);

    /// Returns the rest of the text after `Next` has returned false: a last line without a line feed.
    [[nodiscard]] QStringView Rest() const;

private:
    [[nodiscard]] bool Fill();

    Source source;
    QByteArray buffer;
    qsizetype start = 0;   // of the next line, in bytes
    qsizetype scanned = 0; // there is no line feed before this position, in bytes
    qsizetype filled = 0;  // in bytes
};
