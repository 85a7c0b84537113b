// SPDX-License-Identifier: MIT
#include "FolderEvents.h"

#include "FileMark.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <sys/inotify.h>
#include <sys/statfs.h>
#include <unistd.h>

namespace
{

constexpr quint32 MOVED = IN_MOVE_SELF | IN_DELETE_SELF;
constexpr quint32 GONE = MOVED | IN_UNMOUNT | IN_IGNORED;
// Without IN_MODIFY: a file is checked once its writer has closed it.
constexpr quint32 CHANGED = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_CREATE | IN_DELETE | IN_ATTRIB;

/// True for a file system on which other computers, or the host of a virtual one, change files without an event here.
bool IsShared(qint64 type)
{
    static constexpr std::array<quint32, 18> TYPES{
        0x6969,     // NFS
        0x517B,     // SMB
        0xFE534D42, // SMB 2
        0xFF534D42, // CIFS
        0x65735546, // FUSE, local ones too
        0x01021997, // 9p
        0x786F4256, // vboxsf
        0xBACBACBC, // vmhgfs
        0x7C7C6673, // prl_fs
        0x5346414F, // AFS
        0x6B414653, // kAFS
        0x73757245, // Coda
        0x564C,     // NCP
        0x00C36400, // Ceph
        0x0BD00BD0, // Lustre
        0x01161970, // GFS2
        0x7461636F, // OCFS2
        0x47504653, // GPFS
    };
    return std::find(TYPES.begin(), TYPES.end(), quint32(type)) != TYPES.end();
}

} // namespace

FolderEvents::Source FolderEvents::Attach(const QByteArray &folder)
{
    Detach(folder);
    struct statfs system = {};
    if (statfs(folder.constData(), &system) != 0)
        return errno == ENOENT || errno == ENOTDIR ? Source::Gone : Source::None;
    if (IsShared(system.f_type))
        return Source::None;
    if (!inotify.IsOpen())
        inotify = FileHandle(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!inotify.IsOpen())
        return Source::None;
    // From the root down, the folder last, so that anything moved between two of these calls has an event.
    AttachPath(folder, folder);
    if (Add(folder, CHANGED | MOVED | IN_ONLYDIR, folder))
        return Source::Events;
    const int error = errno;
    Detach(folder);
    return error == ENOENT || error == ENOTDIR ? Source::Gone : Source::None;
}

/// Watches every folder and link of the path: renaming a folder or replacing a link causes no event for what is below
/// it.
void FolderEvents::AttachPath(QByteArray path, const QByteArray &folder)
{
    int links = 0;
    for (qsizetype end = path.indexOf('/', 1); end > 0; end = path.indexOf('/', end + 1)) {
        const QByteArray step = path.first(end);
        Add(step, MOVED | IN_DONT_FOLLOW, folder);
        const QByteArray target = LinkTarget(step);
        if (target.isEmpty() || ++links > MOST_LINKS)
            continue;
        path = target + path.sliced(end);
        end = 0;
    }
}

bool FolderEvents::Add(const QByteArray &path, quint32 mask, const QByteArray &folder)
{
    // A folder can be watched for itself and as part of another's path; the system has one watch with one mask for
    // both.
    const int watch = inotify_add_watch(inotify.Get(), path.constData(), mask | IN_MASK_ADD);
    if (watch < 0)
        return false;
    uses[watch][folder] |= mask;
    return true;
}

void FolderEvents::Detach(const QByteArray &folder)
{
    for (auto watch = uses.begin(); watch != uses.end();) {
        watch->second.erase(folder);
        if (watch->second.empty()) {
            inotify_rm_watch(inotify.Get(), watch->first);
            watch = uses.erase(watch);
        } else {
            ++watch;
        }
    }
}

FolderEvents::Batch FolderEvents::Read()
{
    Batch batch;
    alignas(inotify_event) std::array<char, 65536> buffer;
    ssize_t size = 0;
    int lastWatch = -1;
    quint32 lastMask = 0;
    while (inotify.IsOpen() && (size = read(inotify.Get(), buffer.data(), buffer.size())) > 0) {
        for (size_t at = 0; at < size_t(size);) {
            inotify_event event;
            std::memcpy(&event, &buffer[at], sizeof event);
            at += sizeof event + event.len;
            if (event.wd == lastWatch && event.mask == lastMask)
                continue;
            lastWatch = event.wd;
            lastMask = event.mask;
            if (event.mask & IN_Q_OVERFLOW)
                batch.incomplete = true;
            else
                Sort(event.wd, event.mask, batch);
        }
    }
    return batch;
}

void FolderEvents::Sort(int watch, quint32 mask, Batch &batch) const
{
    const auto known = uses.find(watch);
    if (known == uses.end()) // events from before a watch was removed
        return;
    for (const auto &[folder, wanted] : known->second) {
        if (mask & GONE)
            batch.moved.insert(folder);
        else if ((mask & wanted) && !(mask & IN_ISDIR))
            batch.changed.insert(folder);
    }
}
