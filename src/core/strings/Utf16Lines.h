#pragma once

#include <QByteArray>
#include <QStringView>

#include <functional>
#include <sys/types.h>

/// The lines of UTF-16 little-endian text, read in one pass through one buffer that grows with the longest line.
///
/// The file isn't mapped: another program may cut it meanwhile, and a mapping would end this one.
class Utf16Lines
{
public:
    /// Fills up to `size` bytes: how many, 0 at the end, -1 on a failure.
    using Source = std::function<ssize_t(void *buffer, size_t size)>;
    explicit Utf16Lines(Source bytes);

    /// The next line, its line feed included; good until the next call. False when the text ends before a line feed
    /// (the odd byte at the end of a cut file doesn't count), can't be read, or has a line of more than 1 GiB.
    [[nodiscard]] bool Next(QStringView &line);

    /// What is left when `Next` has given false: a last line without its line feed.
    [[nodiscard]] QStringView Rest() const;

private:
    [[nodiscard]] bool Fill();

    Source source;
    QByteArray buffer;
    qsizetype start = 0;   // of the next line, in bytes
    qsizetype scanned = 0; // up to here there is no line feed, in bytes
    qsizetype filled = 0;  // in bytes
};
