#include "Environment.h"
#include "HostFiles.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// What the symbolic links at `path` lead to, even when nothing is there yet.
QByteArray FollowLinks(QByteArray path)
{
    for (int hops = 0; hops < 40; ++hops) {
        char target[PATH_MAX];
        const ssize_t size = readlink(path.constData(), target, sizeof target);
        if (size <= 0)
            break;
        const QByteArray link(target, size);
        path = link.startsWith('/') ? link : path.left(path.lastIndexOf('/') + 1) + link;
    }
    return path;
}

QByteArray FolderOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : path.left(slash + 1);
}

void SyncFolder(const QByteArray &folder)
{
    const FileHandle handle(open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.IsOpen())
        fsync(handle.Get());
}

using Staged = FileTransaction::Staged;

bool PutInPlace(const Staged &file)
{
    return rename(file.temporary.constData(), file.target.constData()) == 0;
}

/// Makes a file beside `target` with the rights that a new file has, and sets `name` to its path.
FileHandle MakeBeside(const QByteArray &target, QByteArray &name)
{
    constexpr int MOST_LEFT_OVERS = 1000; // of programs that were killed
    const qsizetype slash = target.lastIndexOf('/');
    const QByteArray start = target.left(slash + 1) + '.' + target.mid(slash + 1).left(200) + '.' +
                             QByteArray::number(qint64(getpid())) + '-';
    FileHandle file;
    for (int n = 0; !file.IsOpen() && (n == 0 || (errno == EEXIST && n < MOST_LEFT_OVERS)); ++n) {
        name = start + QByteArray::number(n);
        file = FileHandle(open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    }
    return file;
}

/// Writes the bytes beside the file that they are to replace. 0, or the system's error number.
int Stage(QStringView path, QByteArrayView bytes, Staged &staged)
{
    staged.target = FollowLinks(HostPath(path));
    struct stat old;
    const bool exists = stat(staged.target.constData(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode))
        return S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
    if (exists && access(staged.target.constData(), W_OK) != 0)
        return errno;

    const FileHandle file = MakeBeside(staged.target, staged.temporary);
    if (!file.IsOpen())
        return errno;
    if (exists)
        (void)!fchown(file.Get(), old.st_uid, old.st_gid); // before the mode, since it clears bits of that
    if ((!exists || fchmod(file.Get(), old.st_mode & 07777) == 0) &&
        file.WriteAll(bytes.data(), size_t(bytes.size())) && fsync(file.Get()) == 0)
        return 0;
    const int error = errno;
    unlink(staged.temporary.constData());
    return error;
}

} // namespace

int WriteFileAtomically(QStringView path, QByteArrayView bytes)
{
    Staged staged;
    if (const int error = Stage(path, bytes, staged))
        return error;
    if (PutInPlace(staged)) {
        SyncFolder(FolderOf(staged.target));
        return 0;
    }
    const int error = errno;
    unlink(staged.temporary.constData());
    return error;
}

FileTransaction::FileTransaction(Environment &environment) : env(environment)
{
    env.transaction = this;
}

FileTransaction::~FileTransaction()
{
    End();
}

void FileTransaction::End()
{
    if (env.transaction == this)
        env.transaction = nullptr;
    for (const Staged &file : staged)
        unlink(file.temporary.constData());
    staged.clear();
}

int FileTransaction::Write(QStringView path, QByteArrayView bytes, IfRefused ifRefused)
{
    Staged file;
    file.path = path.toString();
    file.ifRefused = ifRefused;
    const int error = Stage(path, bytes, file);
    if (error == 0)
        staged.push_back(file);
    return error;
}

std::optional<QString> FileTransaction::Commit()
{
    std::optional<QString> refused;
    QByteArray lastFolder;
    for (const Staged &file : staged) {
        if (!PutInPlace(file)) {
            if (file.ifRefused == IfRefused::GoOn)
                continue;
            refused = file.path;
            break;
        }
        const QByteArray folder = FolderOf(file.target);
        if (folder != lastFolder && !lastFolder.isEmpty())
            SyncFolder(lastFolder);
        lastFolder = folder; // once for the files of one folder
    }
    if (!lastFolder.isEmpty())
        SyncFolder(lastFolder);
    End(); // what is in its place has no other name any more
    return refused;
}
