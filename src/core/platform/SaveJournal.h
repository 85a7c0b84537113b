// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"
#include "SavedProject.h"

#include <vector>

class Environment;

/// A file that lists the renames of a save. It is written before the first rename and removed after the last, so that a
/// save that is killed in between can be finished. The process that saves has the journal locked.
///
/// The journal is text: "Morvanite journal 2", a line with the process's number, a line for each file, and "end". A
/// file's line has these fields, separated by tabs: "needed" or "generated"; the N of its temporary file
/// (TemporaryName); the size and the time of the last change of the file that it replaces, or "-"; the same of the new
/// file; its path with "%XX" for special bytes. The path is relative to the project's folder when it is below that.
/// "Morvanite journal 1", which can also be read, doesn't have the field of the new file.
class SaveJournal
{
public:
    struct Entry
    {
        QByteArray place;         ///< the file's absolute path, without links
        int number = 0;           ///< N of its temporary file
        bool isGenerated = false; ///< it can be generated again: the other files don't depend on it (IfRefused::GoOn)
    };

    /// Writes the journal of a project with those of `entries` that a journal may name. If another process saves the
    /// project, waits for it to finish. Returns 0, or the system's error number: EBUSY when the other process takes too
    /// long, an older save can't be finished, or a link leads out of the project to the journal; the environment has
    /// explained it then.
    [[nodiscard]] int Begin(Environment &env, const SavedProject &project, const std::vector<Entry> &entries);

    /// Removes the journal, if there is one. Call it when all files have their final names.
    void End();

private:
    FileHandle handle; // holds the lock
    QByteArray path;
};

/// Finishes a save of the project that was interrupted between its renames, or waits for a save that is running. Call
/// it before the project's files are read or written. Returns false, after explaining it, when the files may be a
/// mixture of two saves: the journal names a file that a save of this project wouldn't write or a file that was changed
/// since, or the system refuses to rename a file. A file that was changed since is never overwritten. A generated file
/// that was changed since keeps its content and doesn't make this function fail. Removes the temporary file of a
/// journal that was never completed.
[[nodiscard]] bool FinishInterruptedSave(Environment &env, const SavedProject &project);

/// Returns whether there is such a save to finish, and changes nothing. Waits for a save that is running; if that save
/// doesn't end, explains it and returns true.
[[nodiscard]] bool HasJournalOfInterruptedSave(Environment &env, const SavedProject &project);
