#pragma once

#include "HostFiles.h"
#include "SavedProject.h"

class Environment;

/// One process of this program at a time works on a project's files from their reading to their writing: otherwise the
/// slower of two saves replaces what the other has just written. The lock is on the folder of the resource list, so a
/// process that is killed leaves nothing behind. Main thread only.
///
/// Some network file systems can't lock a folder. The lock holds nothing there; a save compares the files itself once
/// more before it replaces them.
class ProjectLock
{
public:
    ProjectLock() = default;
    ~ProjectLock() { Release(); }
    ProjectLock(const ProjectLock &) = delete;
    ProjectLock &operator=(const ProjectLock &) = delete;

    /// Waits up to 10 s for other processes. False, having explained it, when one of them still has the lock then. When
    /// another object of this process has it, that one keeps it.
    [[nodiscard]] bool Take(Environment &env, const SavedProject &project);
    void Release();

private:
    FileHandle handle;
    QByteArray folder; // empty: nothing is held
};
