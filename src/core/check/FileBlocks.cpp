// SPDX-License-Identifier: MIT
#include "FileBlocks.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

QByteArrayView FileBlocks::Start()
{
    return Slice(0, std::min(size, BLOCK)).value_or(QByteArrayView());
}

std::optional<QByteArrayView> FileBlocks::Slice(quint64 at, quint64 count)
{
    if (count > BLOCK || at > size || count > size - at)
        return std::nullopt;
    if (descriptor < 0)
        return bytes.sliced(qsizetype(at), qsizetype(count));
    if (at < blockAt || at + count > blockAt + blockSize) {
        ssize_t got = 0;
        do {
            got = pread(descriptor, block.data(), size_t(std::min(BLOCK, size - at)), off_t(at));
        } while (got < 0 && errno == EINTR);
        blockAt = at;
        blockSize = quint64(std::max<ssize_t>(got, 0));
        if (count > blockSize)
            return std::nullopt;
    }
    return QByteArrayView(block.data() + (at - blockAt), qsizetype(count));
}
