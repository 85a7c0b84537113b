// SPDX-License-Identifier: MIT
#include "PackFiles.h"

#include "Environment.h"
#include "PackCodes.h"
#include "Paths.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace
{

QByteArray WithSlashes(QStringView path)
{
    QByteArray host = path.toUtf8();
    host.replace('\\', '/');
    return host;
}

/// Opens `found.host` and fills in what is there. Returns the error number if it isn't open.
int Look(PackFile &found, OutputGuard *guard)
{
    // Non-blocking, so that a pipe in place of a file doesn't hang the program.
    found.file = FileHandle(open(found.host.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    const int error = found.file.IsOpen() ? 0 : errno;
    found.error = error;
    if (error == ENOENT)
        return error;
    struct stat info;
    const bool known = (error ? stat(found.host.constData(), &info) : fstat(found.file.Get(), &info)) == 0;
    found.exists = known || !error;
    if (known && guard)
        guard->Compare(found.host, info);
    found.size = known ? qint64(info.st_size) : -1;
    if (known && !S_ISREG(info.st_mode))
        found.file = FileHandle();
    return error;
}

} // namespace

bool PackFile::ReadTo(char *place) const
{
    errno = 0;
    return file.Read(place, size_t(size)) == ssize_t(size);
}

int FailFile(const Environment &env, const PackFile &file, int code)
{
    const bool isOpen = file.file.IsOpen();
    const int error = isOpen ? errno : file.error;
    const QString reason = error != 0 ? QString::fromLocal8Bit(strerror(error))
                           : isOpen   ? QStringLiteral("it ended early")
                                      : QStringLiteral("it is not a regular file");
    env.Explain(QStringLiteral("cannot read %1: %2").arg(QString::fromUtf8(file.host), reason));
    return code;
}

int ReadIntoPayload(const Environment &env, const PackFile &file, const ReadRequest &request)
{
    if (file.size < 0)
        return request.fail(ReadFailure::Size);
    if (file.size <= request.tooSmall)
        return request.fail(ReadFailure::TooSmall);
    if (!file.file.IsOpen())
        return FailFile(env, file, request.fail(ReadFailure::Open));
    char *const place = request.place(quint64(file.size));
    if (!place)
        return PACK_MEMORY;
    if (file.isSizeOnly || file.ReadTo(place))
        return PACK_OK;
    (void)FailFile(env, file, PACK_FILE_READ); // errno is still that of the read
    return request.fail(ReadFailure::Content);
}

QByteArray AbsoluteHost(const QByteArray &host)
{
    return host.startsWith('/') ? host : ResolvePath(QString::fromUtf8(host), CurrentFolder()).toUtf8();
}

PackFile PackFiles::Open(QStringView path)
{
    return OpenHost(WithSlashes(path));
}

PackFile PackFiles::OpenHost(const QByteArray &host)
{
    PackFile found;
    found.host = host;
    found.isSizeOnly = sizesOnly;
    if (Look(found, &guard) == ENOENT && !host.isEmpty()) {
        QByteArray other = paths.Resolve(QString::fromUtf8(host));
        if (other != host) {
            found.host = std::move(other);
            Look(found, &guard);
        }
    }
    if (found.file.IsOpen())
        Note(found.host);
    return found;
}

PackFile PackFiles::OpenMade(const QByteArray &host)
{
    PackFile found;
    found.host = host;
    Look(found, nullptr);
    return found;
}

QByteArray PackFiles::Find(QStringView path)
{
    QByteArray host = WithSlashes(path);
    struct stat info;
    if (stat(host.constData(), &info) != 0) {
        host = paths.Resolve(path);
        if (host.isEmpty() || stat(host.constData(), &info) != 0)
            return {};
    }
    guard.Compare(host, info);
    Note(host);
    return AbsoluteHost(host);
}

void PackFiles::Note(const QByteArray &host)
{
    if (inputs)
        inputs->push_back(AbsoluteHost(host));
}
