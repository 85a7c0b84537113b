// SPDX-License-Identifier: MIT
#include "PackFiles.h"

#include "OutputFile.h"
#include "Paths.h"
#include "Phases.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace
{

constexpr quint64 SMALL = 32 << 10; // bytes; to copy a larger file later costs less than to keep it in memory

/// Opens `found.host` and fills in what is there. Returns the error number if it isn't open.
int OpenAndLook(PackFile &found, OutputGuard *guard)
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
        guard->Compare(found.host, info.st_dev, info.st_ino);
    found.size = known ? qint64(info.st_size) : -1;
    if (known)
        found.known = KeptFile(info, {});
    if (known && !S_ISREG(info.st_mode))
        found.file = FileHandle();
    return error;
}

} // namespace

bool PackFile::ReadTo(char *place) const
{
    if (!known.content.isNull()) {
        std::memcpy(place, known.content.data(), size_t(size));
        return true;
    }
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

int ReadIntoPayload(PackContext &context, const PackFile &file, const ReadRequest &request)
{
    Environment &env = context.Env();
    PackImage &image = context.image;
    if (file.size < 0)
        return request.fail(ReadFailure::Size);
    if (file.size <= request.tooSmall)
        return request.fail(ReadFailure::TooSmall);
    if (!file.IsReadable())
        return FailFile(env, file, request.fail(ReadFailure::Open));
    const auto failContent = [&] {
        (void)FailFile(env, file, PACK_FILE_READ); // errno is still that of the read
        return request.fail(ReadFailure::Content);
    };
    if (!image.Fits(quint64(file.size)))
        return PACK_MEMORY;
    if (file.isSizeOnly) {
        image.Skip(quint64(file.size));
    } else if (file.isMade) {
        if (const int code = image.AddMade(file))
            return code == PACK_FILE_READ ? failContent() : code;
    } else if (context.files.TakeRoom(file)) {
        const QByteArrayView content = context.files.Content(file);
        if (content.isNull())
            return errno == ENOMEM ? int(PACK_MEMORY) : failContent();
        image.AddBytes(content);
    } else {
        const auto failLater = [&env, fail = request.fail, errorLine = context.errorLine](ReadFailure failure) {
            return FailPhase(env, errorLine, fail(failure));
        };
        image.AddPart({file.host, file.size, failLater});
    }
    return image.Pad() ? PACK_OK : PACK_MEMORY;
}

namespace
{

int FailMissing(const Environment &env, const FilePart &part)
{
    env.Explain(QStringLiteral("cannot read %1: %2")
                    .arg(QString::fromUtf8(part.host), QString::fromLocal8Bit(strerror(errno))));
    return part.fail(ReadFailure::Open);
}

int FailChanged(const Environment &env, const FilePart &part)
{
    env.Explain(QStringLiteral("%1 changed while it was packed").arg(QString::fromUtf8(part.host)));
    return part.fail(ReadFailure::Content);
}

} // namespace

int CheckPart(const Environment &env, const FilePart &part)
{
    struct stat info;
    if (stat(part.host.constData(), &info) != 0)
        return FailMissing(env, part);
    return S_ISREG(info.st_mode) && info.st_size == part.size ? int(PACK_OK) : FailChanged(env, part);
}

int CopyPart(const Environment &env, const FilePart &part, OutputFile &output)
{
    int code = PACK_OK;
    const FileHandle file(open(part.host.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.IsOpen()) {
        const qint64 copied = output.Copy(file, part.host, 0, part.size);
        if (output.HasFailed())
            return PACK_WRITE;
        struct stat info;
        if (copied == part.size && fstat(file.Get(), &info) == 0 && info.st_size == part.size)
            return PACK_OK;
        code = copied < 0 ? part.fail(ReadFailure::Content) : FailChanged(env, part);
    } else {
        code = FailMissing(env, part);
    }
    if (output.IsOverOldFile())
        env.Explain(
            QStringLiteral("the output is incomplete now, because it has several names, or its folder or its owner "
                           "didn't allow to write a new file first"));
    return code;
}

QByteArray AbsoluteHost(const QByteArray &host)
{
    return host.startsWith('/') ? host : ResolvePath(QString::fromUtf8(host), CurrentFolder()).toUtf8();
}

QByteArray PackFiles::HostOf(QStringView path)
{
    QByteArray host = path.toUtf8();
    host.replace('\\', '/');
    return host;
}

PackFile PackFiles::Open(QStringView path)
{
    return OpenHost(HostOf(path));
}

PackFile PackFiles::OpenHost(const QByteArray &host)
{
    PackFile found;
    found.host = host;
    found.isSizeOnly = sizesOnly;
    if (Look(found) == ENOENT && !host.isEmpty()) {
        QByteArray other = paths.Resolve(QString::fromUtf8(host));
        if (other != host) {
            found.host = std::move(other);
            Look(found);
        }
    }
    if (found.IsReadable())
        Note(found.host);
    return found;
}

void PackFiles::WillOpen(std::vector<QByteArray> hosts)
{
    ahead.reset(); // before the new one is made, since both need memory
    if (!sizesOnly && ReadAhead::IsOfUse(hosts.size()))
        ahead = std::make_unique<ReadAhead>(std::move(hosts), kept, SMALL, room, aheadMemory);
}

/// Looks at `found.host`, which isn't opened if its content is known.
int PackFiles::Look(PackFile &found)
{
    if (const KeptFile *const read = ahead ? ahead->Take(found.host) : nullptr) {
        Know(found, *read);
        kept.insert(found.host, *read);
        return 0;
    }
    struct stat info;
    const auto known = kept.constFind(found.host);
    if (known == kept.cend() || stat(found.host.constData(), &info) != 0 || FileStamp(info) != known->stamp)
        return OpenAndLook(found, &guard);
    Know(found, *known);
    return 0;
}

/// Fills in what is known of a file without opening it, and compares it with the outputs.
void PackFiles::Know(PackFile &found, const KeptFile &file)
{
    guard.Compare(found.host, file.device, file.inode);
    found.exists = true;
    found.size = file.content.size();
    found.known = file;
}

bool PackFiles::TakeRoom(const PackFile &file)
{
    return !file.known.content.isNull() || (quint64(file.size) <= SMALL && room.Take(quint64(file.size)));
}

QByteArrayView PackFiles::Content(const PackFile &file)
{
    if (!file.known.content.isNull())
        return file.known.content;
    errno = ENOMEM;
    char *const place = memory.Take(quint64(file.size));
    if (!place || !file.ReadTo(place))
        return {};
    const QByteArrayView content(place, file.size);
    kept.insert(file.host, file.known.With(content));
    return content;
}

PackFile PackFiles::OpenMade(const QByteArray &host)
{
    PackFile found;
    found.host = host;
    found.isMade = true;
    OpenAndLook(found, nullptr);
    return found;
}

QByteArray PackFiles::Find(QStringView path)
{
    QByteArray host = HostOf(path);
    struct stat info;
    if (stat(host.constData(), &info) != 0) {
        host = paths.Resolve(path);
        if (host.isEmpty() || stat(host.constData(), &info) != 0)
            return {};
    }
    guard.Compare(host, info.st_dev, info.st_ino);
    Note(host);
    return AbsoluteHost(host);
}

void PackFiles::Note(const QByteArray &host)
{
    if (inputs)
        inputs->push_back(AbsoluteHost(host));
}
