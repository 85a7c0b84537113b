// SPDX-License-Identifier: MIT
#include "StandardOutput.h"

#include "Session.h"

#include <cerrno>
#include <cstring>
#include <ctime>
#include <unistd.h>

namespace
{

constexpr qsizetype HOLD_AT_MOST = 64 * 1024; // bytes
constexpr qint64 HOLD_NO_LONGER = 50;         // milliseconds

qint64 Now()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000;
}

} // namespace

StandardOutput::~StandardOutput()
{
    Flush();
}

bool StandardOutput::Open()
{
    open = true;
    return true;
}

void StandardOutput::Write(QStringView text)
{
    WriteBytes(text.toUtf8());
}

void StandardOutput::WriteBytes(QByteArrayView bytes)
{
    if (broken)
        return;
    const qint64 now = Now();
    if (held.isEmpty())
        heldSince = now;
    held.append(bytes);
    if (held.size() >= HOLD_AT_MOST || now - heldSince >= HOLD_NO_LONGER)
        Flush();
}

void StandardOutput::Flush()
{
    qsizetype done = 0;
    while (done < held.size()) {
        const ssize_t put = write(fd, held.constData() + done, size_t(held.size() - done));
        if (put < 0 && errno == EINTR)
            continue;
        if (put < 0) {
            if (errno != EPIPE && fd != STDERR_FILENO)
                Complain(QStringLiteral("cannot write the output: ") + QString::fromLocal8Bit(strerror(errno)));
            broken = true; // the command still completes its work on files
            break;
        }
        done += put;
    }
    held.clear();
}

void StandardOutput::Close()
{
    Flush();
    open = false;
}
