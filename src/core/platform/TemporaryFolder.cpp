// SPDX-License-Identifier: MIT
#include "TemporaryFolder.h"

#include "Leftovers.h"

#include <QDir>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

TemporaryFolder::TemporaryFolder(const QByteArray &parent, const QByteArray &name)
{
    const QByteArray target = parent + '/' + name;
    Leftovers().RemoveFoldersBeside(target);
    error = Make(target);
}

int TemporaryFolder::Make(const QByteArray &target)
{
    for (int number = 0; number < MOST_TEMPORARY_FILES; ++number) {
        const QByteArray tried = TemporaryName(target, getpid(), number);
        const SignalHold hold; // a signal between the two steps would leave the folder
        if (mkdir(tried.constData(), S_IRWXU) != 0) {
            if (errno != EEXIST)
                return errno;
            continue;
        }
        // Before the lock, another process may have taken the folder for one that was left.
        const int lockError = LockTemporaryFolder(tried, lock, IfLocked::Wait);
        if (lockError == ENOENT)
            continue;
        if (lockError == EMFILE || lockError == ENFILE || lockError == ENOMEM) { // locks may be there all the same
            rmdir(tried.constData());
            return lockError;
        }
        cleanup = SignalCleanup::OfFolder(tried);
        path = tried;
        return 0;
    }
    return EEXIST;
}

TemporaryFolder::~TemporaryFolder()
{
    if (!path.isEmpty())
        QDir(QString::fromUtf8(path)).removeRecursively();
}
