#include "ProfileFile.h"

#include "HostFiles.h"

#include <cerrno>
#include <utility>

namespace
{

struct stat StampOf(const QString &path)
{
    struct stat stamp = {};
    if (stat(HostPath(path).constData(), &stamp) != 0)
        return {};
    return stamp;
}

bool IsSame(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
           a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

} // namespace

ProfileFile::ProfileFile(QString filePath) : path(std::move(filePath))
{
    Read();
}

void ProfileFile::Read()
{
    stamp = StampOf(path); // first: a change during the reading shows at the next look
    content = Profile::Load(path);
}

void ProfileFile::Refresh()
{
    if (!IsSame(stamp, StampOf(path)))
        Read();
}

bool ProfileFile::Set(const QList<ProfileEntry> &entries)
{
    Profile changed;
    if (const int error = Profile::Read(path, changed); error != 0 && error != ENOENT)
        return false; // written back, it would be empty
    for (const ProfileEntry &entry : entries)
        changed.Set(entry.section, entry.key, entry.value);
    if (WriteFileAtomically(path, changed.Bytes()) != 0)
        return false;
    content = std::move(changed);
    stamp = StampOf(path);
    return true;
}
