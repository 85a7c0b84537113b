// SPDX-License-Identifier: MIT
#include "ConflictMarkers.h"

#include "HostFiles.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr qsizetype MARKS = 7;                 // a marker is the same sign seven times
constexpr qsizetype LONGEST = 2 * (MARKS + 1); // bytes of a marker and the character after it, in UTF-16

/// Returns the character at an index of `bytes`, whose units have `width` bytes; 0 after the end, 1 for a character
/// that isn't ASCII.
char CharacterAt(QByteArrayView bytes, qsizetype index, qsizetype width)
{
    const qsizetype at = index * width;
    if (at + width > bytes.size())
        return 0;
    return width == 2 && bytes[at + 1] ? '\1' : bytes[at];
}

/// Returns the sign of the marker that `line` begins with, or 0 if it begins with none.
char MarkerAt(QByteArrayView line, qsizetype width)
{
    const char sign = CharacterAt(line, 0, width);
    if (!sign || !std::strchr("<=>|", sign))
        return 0;
    for (qsizetype i = 1; i < MARKS; ++i) {
        if (CharacterAt(line, i, width) != sign)
            return 0;
    }
    const char behind = CharacterAt(line, MARKS, width);
    const bool isAlone = behind == 0 || behind == '\n' || behind == '\r';
    // The marker between the two sides has no name after it; the others always have one.
    return behind == ' ' || (sign == '=' && isAlone) ? sign : char(0);
}

/// Searches a file in pieces and keeps the markers that it finds.
class MarkerSearch
{
public:
    explicit MarkerSearch(size_t limit) : most(limit) {}

    std::vector<ConflictMarker> found;

    [[nodiscard]] bool IsFull() const { return found.size() >= most; }

    /// Searches a piece and returns how many of its bytes are done: the next piece must begin there. `isLast`: no piece
    /// follows.
    qsizetype Take(QByteArrayView piece, bool isLast)
    {
        const qsizetype done = LookThrough(piece, isLast);
        offset += done;
        return done;
    }

private:
    qsizetype LookThrough(QByteArrayView piece, bool isLast)
    {
        if (piece.isEmpty()) // memchr must not get its null pointer
            return 0;
        qsizetype at = 0;
        if (line == 1 && !isBegun) {
            isBegun = true;
            isWide = piece.startsWith("\xFF\xFE");
            const bool isMarked = isWide || piece.startsWith("\xEF\xBB\xBF");
            Look(piece.sliced(isMarked ? (isWide ? 2 : 3) : 0));
        }
        while (!IsFull()) {
            const void *feed = std::memchr(piece.data() + at, '\n', size_t(piece.size() - at));
            if (!feed)
                return piece.size();
            const qsizetype place = static_cast<const char *>(feed) - piece.data();
            if (!isLast && piece.size() - place <= LONGEST + 1)
                return place; // the line may continue in the next piece
            at = place + 1;
            const bool hasZero = at < piece.size() && piece[at] == 0;
            line += !isWide || (hasZero && (offset + place) % 2 == 0);
            Look(piece.sliced(hasZero ? at + 1 : at));
        }
        return piece.size();
    }

    void Look(QByteArrayView text)
    {
        char sign = MarkerAt(text, 1);
        if (!sign)
            sign = MarkerAt(text, 2);
        if (sign && !IsFull())
            found.push_back({line, QString(MARKS, QLatin1Char(sign))});
    }

    size_t most;
    qint64 offset = 0; // of the piece in the file
    int line = 1;
    bool isBegun = false;
    bool isWide = false; // the text is UTF-16
};

} // namespace

std::vector<ConflictMarker> FindConflictMarkers(const QString &path, size_t most)
{
    constexpr qint64 PIECE = 256 * 1024; // stays in the processor's cache
    constexpr qint64 LEAST = 4096;       // far above what a piece may leave to the next one
    MarkerSearch search(most);
    const FileHandle file = OpenRead(path);
    if (!file.IsOpen())
        return {};
    const qsizetype room = std::clamp(qint64(file.Size()) + 1, LEAST, PIECE); // one more, to see the file's end
    QByteArray buffer(room, Qt::Uninitialized);
    qsizetype held = 0;
    while (!search.IsFull()) {
        const ssize_t got = file.Read(buffer.data() + held, size_t(room - held));
        if (got < 0)
            break;
        const qsizetype size = held + got;
        const bool isLast = size < room;
        const qsizetype done = search.Take(QByteArrayView(buffer.constData(), size), isLast);
        if (isLast)
            break;
        held = size - done;
        std::memmove(buffer.data(), buffer.constData() + done, size_t(held));
    }
    return search.found;
}

std::vector<ConflictMarker> ConflictMarkersIn(QByteArrayView bytes, size_t most)
{
    MarkerSearch search(most);
    search.Take(bytes, true);
    return search.found;
}
