// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"
#include "SavedProject.h"

class Environment;

/// A lock that only one process of this program at a time has, from the reading of a project's files to their writing.
/// Without it the slower of two saves would replace what the other has just written. The lock is on the folder of the
/// resource list, so a process that is killed leaves nothing behind. Main thread only.
///
/// Some network file systems can't lock a folder. The lock has no effect there; a save compares the files itself once
/// more before it replaces them.
class ProjectLock
{
public:
    ProjectLock() = default;
    ~ProjectLock() { Release(); }
    ProjectLock(const ProjectLock &) = delete;
    ProjectLock &operator=(const ProjectLock &) = delete;

    /// Takes the lock. Waits up to 10 s for other processes; if one of them still has the lock then, explains it and
    /// returns false. If another object of this process has the lock, that object keeps it.
    [[nodiscard]] bool Take(Environment &env, const SavedProject &project);
    void Release();

private:
    FileHandle handle;
    QByteArray folder; // empty: this object doesn't have the lock
};
