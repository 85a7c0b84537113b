// SPDX-License-Identifier: MIT
#include "PictureInput.h"

#include <cerrno>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <unistd.h>

namespace
{

constexpr double MOST_SECONDS = 10;
constexpr qint64 MOST_BYTES = qint64(160) << 20; // 16 megapixels of 8 bytes, and a margin

double ThreadSeconds()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

QString ErrorText(int error)
{
    return error == ENOENT || error == ENOTDIR ? QStringLiteral("not found") : QString::fromLocal8Bit(strerror(error));
}

} // namespace

PictureInput::PictureInput(const QByteArray &hostPath, const std::atomic<bool> &isStopped)
    : stopped(isStopped), start(ThreadSeconds())
{
    struct stat info;
    // Checked before opening, because opening alone affects some devices.
    if (stat(hostPath.constData(), &info) != 0) {
        problem = ErrorText(errno);
        return;
    }
    if (!Take(info))
        return;
    const int descriptor = ::open(hostPath.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        problem = ErrorText(errno);
        return;
    }
    // Checked again, because another file may have got the name meanwhile.
    if (fstat(descriptor, &info) == 0 && Take(info) && open(descriptor, ReadOnly, AutoCloseHandle))
        return;
    ::close(descriptor);
    if (problem.isEmpty())
        problem = QStringLiteral("it can't be read");
}

bool PictureInput::Take(const struct stat &info)
{
    stamp = FileStamp(info);
    if (!S_ISREG(info.st_mode)) {
        problem = S_ISDIR(info.st_mode) ? QStringLiteral("it is a folder") : QStringLiteral("it is not a regular file");
        return false;
    }
    bytes = info.st_size;
    if (bytes > MOST_BYTES)
        problem = QStringLiteral("the file is larger than %1 MiB").arg(MOST_BYTES >> 20);
    return problem.isEmpty();
}

qint64 PictureInput::readData(char *data, qint64 most)
{
    isOutOfTime = isOutOfTime || ThreadSeconds() - start > MOST_SECONDS;
    return isOutOfTime || stopped ? -1 : QFile::readData(data, most);
}
