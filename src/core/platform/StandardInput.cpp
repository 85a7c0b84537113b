// SPDX-License-Identifier: MIT
#include "StandardInput.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

int ReadStandardInput(QByteArray &bytes, qint64 limit)
{
    constexpr qsizetype PIECE = qsizetype(1) << 16;
    bytes.clear();
    for (;;) {
        const qsizetype size = bytes.size();
        bytes.resize(size + PIECE);
        const ssize_t got = read(STDIN_FILENO, bytes.data() + size, size_t(PIECE));
        const int error = got < 0 ? errno : 0;
        bytes.truncate(size + std::max<ssize_t>(got, 0));
        if (error != 0 && error != EINTR)
            return error;
        if (bytes.size() > limit)
            return EFBIG;
        if (got == 0)
            return 0;
    }
}
