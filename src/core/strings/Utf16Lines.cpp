// SPDX-License-Identifier: MIT
#include "Utf16Lines.h"

#include <cstring>

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the buffer is used as it was read");

namespace
{

constexpr qsizetype UNIT = qsizetype(sizeof(char16_t));
constexpr qsizetype FIRST_SIZE = 256 * 1024; // bytes; fits into the processor's cache
constexpr qsizetype MAX_SIZE = qsizetype(1) << 30;

} // namespace

Utf16Lines::Utf16Lines(Source bytes) : source(std::move(bytes)), buffer(FIRST_SIZE, Qt::Uninitialized) {}

bool Utf16Lines::Next(QStringView &line)
{
    for (;;) {
        const auto *text = reinterpret_cast<const char16_t *>(buffer.constData());
        const QStringView unseen(text + scanned / UNIT, (filled - scanned) / UNIT);
        const qsizetype feed = unseen.indexOf(u'\n');
        if (feed >= 0) {
            const qsizetype end = scanned + (feed + 1) * UNIT;
            line = QStringView(text + start / UNIT, (end - start) / UNIT);
            start = scanned = end;
            return true;
        }
        scanned += unseen.size() * UNIT;
        if (!Fill())
            return false;
    }
}

QStringView Utf16Lines::Rest() const
{
    return {reinterpret_cast<const char16_t *>(buffer.constData() + start), (filled - start) / UNIT};
}

bool Utf16Lines::Fill()
{
    if (start > 0) {
        std::memmove(buffer.data(), buffer.constData() + start, size_t(filled - start));
        filled -= start;
        scanned -= start;
        start = 0;
    }
    if (filled == buffer.size()) {
        if (buffer.size() >= MAX_SIZE)
            return false;
        buffer.resize(buffer.size() * 2);
    }
    const ssize_t got = source(buffer.data() + filled, size_t(buffer.size() - filled));
    if (got <= 0)
        return false;
    filled += got;
    return true;
}
