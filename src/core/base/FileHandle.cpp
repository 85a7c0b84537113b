// SPDX-License-Identifier: MIT
#include "FileHandle.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

FileHandle::~FileHandle()
{
    if (fd >= 0)
        close(fd);
}

FileHandle &FileHandle::operator=(FileHandle &&other) noexcept
{
    std::swap(fd, other.fd);
    return *this;
}

int64_t FileHandle::Size() const
{
    struct stat info;
    return fstat(fd, &info) == 0 ? int64_t(info.st_size) : -1;
}

ssize_t FileHandle::Read(void *buffer, size_t size) const
{
    size_t done = 0;
    while (done < size) {
        const ssize_t got = read(fd, static_cast<char *>(buffer) + done, size - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return -1;
        if (got == 0)
            break;
        done += size_t(got);
    }
    return ssize_t(done);
}

bool FileHandle::WriteAll(const void *bytes, size_t size) const
{
    size_t done = 0;
    while (done < size) {
        const ssize_t put = write(fd, static_cast<const char *>(bytes) + done, size - done);
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0) {
            if (put == 0)
                errno = ENOSPC;
            return false;
        }
        done += size_t(put);
    }
    return true;
}
