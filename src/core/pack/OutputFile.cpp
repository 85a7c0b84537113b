#include "OutputFile.h"

#include "PackCodes.h"
#include "PackLog.h"
#include "Paths.h"

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr size_t COPY_PIECE = size_t(256) << 10; // bytes
constexpr mode_t PERMISSIONS = 0777;
constexpr mode_t NEW_FILE = 0666;

/// Makes way for a new file: that takes half the time of writing over the old one, and changes nothing else.
bool UnlinkOld(const QByteArray &host, struct stat &old)
{
    return lstat(host.constData(), &old) == 0 && S_ISREG(old.st_mode) && old.st_nlink == 1 && old.st_uid == geteuid() &&
           unlink(host.constData()) == 0;
}

FileHandle OpenEmpty(const QByteArray &host, mode_t mode)
{
    // Not blocking, so that a pipe without a reader doesn't hang the program.
    return FileHandle(open(host.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, mode));
}

bool CopyBytes(const FileHandle &input, const FileHandle &output)
{
    const auto piece = std::make_unique_for_overwrite<char[]>(COPY_PIECE);
    if (lseek(input.Get(), 0, SEEK_SET) < 0)
        return false;
    for (;;) {
        const ssize_t got = input.Read(piece.get(), COPY_PIECE);
        if (got <= 0)
            return got == 0;
        if (!output.WriteAll(piece.get(), size_t(got)))
            return false;
    }
}

} // namespace

QByteArray OutputPath(const QString &path)
{
    QString host = path;
    host.replace(u'\\', u'/');
    const qsizetype slash = host.lastIndexOf(u'/');
    return slash <= 0 ? host.toUtf8()
                      : HostPath(QStringView(host).first(slash)) + QStringView(host).sliced(slash).toUtf8();
}

FileHandle CreateOutput(const QByteArray &host)
{
    struct stat old;
    const bool replaced = access(host.constData(), W_OK) == 0 && UnlinkOld(host, old);
    FileHandle file = OpenEmpty(host, NEW_FILE);
    if (replaced && file.IsOpen())
        fchmod(file.Get(), old.st_mode & PERMISSIONS);
    return file;
}

FileHandle AppendToOutput(const QByteArray &host)
{
    return FileHandle(open(host.constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, NEW_FILE));
}

int CopyToOutput(Environment &env, const FileHandle &input, const QByteArray &host)
{
    env.FlushOutput();
    struct stat info;
    const mode_t mode = (fstat(input.Get(), &info) == 0 ? info.st_mode & PERMISSIONS : NEW_FILE) | S_IWUSR;
    struct stat old;
    UnlinkOld(host, old); // a read-only one too
    const FileHandle output = OpenEmpty(host, mode);
    if (!output.IsOpen()) {
        const int error = errno;
        env.DebugTrace("[error] could not open file while write data to file: %s", host.constData());
        return error;
    }
    if (!CopyBytes(input, output)) {
        env.DebugTrace("[error] write res data to file error.\n");
        return PACK_WRITE;
    }
    return PACK_OK;
}
