// SPDX-License-Identifier: MIT
#include "Files.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// 64 million pixels of 8 bytes each, the largest picture without compression, and room for the data around them.
constexpr std::size_t maxFileSize = std::size_t{512} << 20;

/// An open file, closed at the end.
class File
{
public:
    explicit File(int descriptor) : m_descriptor(descriptor) {}
    File(const File &) = delete;
    File &operator=(const File &) = delete;
    ~File()
    {
        if (IsOpen())
            close(m_descriptor);
    }

    bool IsOpen() const { return m_descriptor >= 0; }
    int Descriptor() const { return m_descriptor; }

    /// Returns false if the bytes written before haven't reached the file.
    bool Close()
    {
        const int descriptor = m_descriptor;
        m_descriptor = -1;
        return close(descriptor) == 0;
    }

private:
    int m_descriptor;
};

Outcome SystemFailed(const char *what)
{
    const int error = errno;
    return Outcome::Failed("cannot %s: %s", what, std::strerror(error));
}

bool WriteAll(const File &file, Bytes contents)
{
    while (!contents.empty()) {
        const ssize_t written = write(file.Descriptor(), contents.data(), contents.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            contents = contents.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

/// Makes a file without a name in the folder of `path`. Not open if the file system has no such files.
File NamelessFileBeside(const char *path)
{
    char folder[PATH_MAX];
    const char *slash = std::strrchr(path, '/');
    const std::size_t length = slash != nullptr ? static_cast<std::size_t>(slash - path) + 1 : 0;
    if (length >= sizeof folder)
        return File(-1);
    std::memcpy(folder, path, length);
    folder[length] = '\0';
    return File(open(length > 0 ? folder : ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666));
}

bool GiveName(const File &file, const char *path)
{
    char nameless[40];
    std::snprintf(nameless, sizeof nameless, "/proc/self/fd/%d", file.Descriptor());
    return linkat(AT_FDCWD, nameless, AT_FDCWD, path, AT_SYMLINK_FOLLOW) == 0;
}

Outcome WriteByName(const char *path, Bytes contents)
{
    File file(open(path, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666));
    if (!file.IsOpen())
        return SystemFailed("create it");
    if (WriteAll(file, contents) && file.Close())
        return Outcome::Done();
    const Outcome outcome = SystemFailed("write it");
    unlink(path);
    return outcome;
}

} // namespace

Outcome ReadFile(const char *path, Buffer &contents)
{
    // Without O_NONBLOCK the program would wait for a pipe of that name.
    const File file(open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status;
    if (!file.IsOpen() || fstat(file.Descriptor(), &status) != 0)
        return SystemFailed("open it");
    if (!S_ISREG(status.st_mode))
        return Outcome::Failed("not a regular file, expected a bmp, gif, jpg or png picture");
    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (size > maxFileSize)
        return Outcome::Failed("file of %llu bytes, expected at most %zu", static_cast<unsigned long long>(size),
                               maxFileSize);
    if (!contents.Allocate(static_cast<std::size_t>(size)))
        return Outcome::Failed("there is not enough memory for a file of %llu bytes",
                               static_cast<unsigned long long>(size));
    std::size_t at = 0;
    while (at < contents.Size()) {
        const ssize_t count = read(file.Descriptor(), contents.Data() + at, contents.Size() - at);
        if (count < 0 && errno != EINTR)
            return SystemFailed("read it");
        if (count == 0) // it was shortened in the meantime: the reader finds it truncated
            break;
        if (count > 0)
            at += static_cast<std::size_t>(count);
    }
    contents.Truncate(at);
    return Outcome::Done();
}

Outcome RemoveOldTarget(const char *source, const char *target)
{
    struct stat old;
    if (lstat(target, &old) != 0)
        return errno == ENOENT ? Outcome::Done() : SystemFailed("examine it");
    struct stat picture;
    if (stat(source, &picture) == 0 && picture.st_dev == old.st_dev && picture.st_ino == old.st_ino)
        return Outcome::Failed("is the source itself, expected another file");
    if (!S_ISREG(old.st_mode) && !S_ISLNK(old.st_mode))
        return Outcome::Failed("not a regular file, expected one that can be replaced");
    if (unlink(target) != 0)
        return SystemFailed("remove the old one");
    return Outcome::Done();
}

Outcome WriteNewFile(const char *path, Bytes contents)
{
    const File file = NamelessFileBeside(path);
    if (!file.IsOpen())
        return WriteByName(path, contents);
    if (!WriteAll(file, contents))
        return SystemFailed("write it");
    if (GiveName(file, path))
        return Outcome::Done();
    return errno == EEXIST ? SystemFailed("create it") : WriteByName(path, contents);
}
