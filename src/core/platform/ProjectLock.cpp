// SPDX-License-Identifier: MIT
#include "ProjectLock.h"

#include "Environment.h"
#include "FilePlace.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <set>
#include <sys/file.h>

using namespace Qt::StringLiterals;

namespace
{

/// The folders that this process has locked. Without this set, the process would wait for its own lock.
std::set<QByteArray> &HeldFolders()
{
    static std::set<QByteArray> folders;
    return folders;
}

} // namespace

bool ProjectLock::Take(Environment &env, const SavedProject &project)
{
    constexpr int PATIENCE_MS = 10'000;
    constexpr int STEP_MS = 10;
    Release();
    const QByteArray place = RealPath(FolderOf(HostPath(project.journal)));
    if (place.isEmpty() || HeldFolders().contains(place))
        return true;
    for (int waited = 0; waited < PATIENCE_MS; waited += STEP_MS) {
        handle = FileHandle(open(place.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!handle.IsOpen())
            return true; // the reader or writer of the files explains why
        if (flock(handle.Get(), LOCK_EX | LOCK_NB) == 0) {
            folder = place;
            HeldFolders().insert(folder);
            return true;
        }
        if (errno != EWOULDBLOCK)
            return true;
        poll(nullptr, 0, STEP_MS);
    }
    handle = FileHandle();
    env.ExplainFailure(
        u"another program is still saving a project in \"%1\"; try again later"_s.arg(QString::fromUtf8(place)));
    return false;
}

void ProjectLock::Release()
{
    if (!folder.isEmpty())
        HeldFolders().erase(folder);
    folder.clear();
    handle = FileHandle();
}
