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

mode_t ModeOfNewFile()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

QByteArray FolderOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : path.left(slash + 1);
}

void SyncFolderOf(const QByteArray &path)
{
    const QByteArray folder = FolderOf(path);
    const FileHandle handle(open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.IsOpen())
        fsync(handle.Get());
}

bool PutInPlace(const FileTransaction::Staged &file)
{
    return rename(file.temporary.constData(), file.target.constData()) == 0;
}

} // namespace

int WriteFileAtomically(QStringView path, QByteArrayView bytes)
{
    const QByteArray target = FollowLinks(HostPath(path));
    struct stat old;
    const bool exists = stat(target.constData(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode))
        return S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
    if (exists && access(target.constData(), W_OK) != 0)
        return errno;

    const qsizetype slash = target.lastIndexOf('/');
    QByteArray temporary = target.left(slash + 1) + '.' + target.mid(slash + 1).left(200) + ".XXXXXX";
    FileHandle file(mkostemp(temporary.data(), O_CLOEXEC));
    if (!file.IsOpen())
        return errno;
    if (exists)
        (void)!fchown(file.Get(), old.st_uid, old.st_gid); // before the mode, since it clears bits of that
    const bool done = fchmod(file.Get(), exists ? old.st_mode & 07777 : ModeOfNewFile()) == 0 &&
                      file.WriteAll(bytes.data(), size_t(bytes.size())) && fsync(file.Get()) == 0;
    const FileTransaction::Staged staged{temporary, target};
    if (done && FileTransaction::current) {
        FileTransaction::current->staged.push_back(staged);
        return 0;
    }
    if (done && PutInPlace(staged)) {
        SyncFolderOf(target);
        return 0;
    }
    const int error = errno;
    unlink(temporary.constData());
    return error;
}

FileTransaction *FileTransaction::current = nullptr;

FileTransaction::FileTransaction()
{
    current = this;
}

FileTransaction::~FileTransaction()
{
    current = nullptr;
    for (const Staged &file : staged)
        unlink(file.temporary.constData());
}

bool FileTransaction::Commit()
{
    size_t done = 0;
    while (done < staged.size() && PutInPlace(staged[done]))
        ++done;
    for (size_t i = 0; i < done; ++i) {
        if (i == 0 || FolderOf(staged[i].target) != FolderOf(staged[i - 1].target))
            SyncFolderOf(staged[i].target); // once for the files of one folder
    }
    staged.erase(staged.begin(), staged.begin() + ptrdiff_t(done));
    return staged.empty();
}
