#pragma once

#include "HostFiles.h"
#include "SavedProject.h"

#include <vector>

class Environment;

/// What a save is about to rename, written down before the first rename and removed after the last: a save that is
/// killed in between can be finished from it. While a save is under way its process has the journal locked.
///
/// The form is text: "Morvanite journal 2", a line with the process's number, a line for each file, and "end". A file's
/// line has, between tabs: "needed" or "generated"; the N of its temporary file (TemporaryName); the size and the time
/// of the last change of the file that it replaces, or "-"; those of the new file; its path with "%XX" for special
/// bytes, which is relative to the project's folder when it is below that. "Morvanite journal 1", which is read as
/// well, doesn't have those of the new file.
class SaveJournal
{
public:
    struct Entry
    {
        QByteArray place;         ///< the file's absolute path, without links
        int number = 0;           ///< N of its temporary file
        bool isGenerated = false; ///< it can be made anew: the others don't wait for it (IfRefused::GoOn)
    };

    /// Writes the journal of a project with those of the files that a journal may name. If another process saves the
    /// project, waits for its end. 0, or the system's error number: EBUSY when that takes too long or an older save
    /// can't be finished; the environment has explained it then.
    [[nodiscard]] int Begin(Environment &env, const SavedProject &project, const std::vector<Entry> &entries);

    /// Removes the journal, if there is one: all files have their names.
    void End();

private:
    FileHandle handle; // holds the lock
    QByteArray path;
};

/// Finishes a save of the project that was interrupted between its renames, or waits for one that is under way. To be
/// called before the project's files are read or written. False, having explained it, when the files may be a mixture
/// of two saves: the journal names a file that a save of this project wouldn't write, or one that was changed
/// meanwhile, or the system refuses to rename one. Nothing that was changed meanwhile is overwritten; a generated file
/// that was keeps what it has, and is no reason to refuse.
[[nodiscard]] bool FinishInterruptedSave(Environment &env, const SavedProject &project);

/// Says whether such a save is to be finished, and changes nothing. Waits for one that is under way; true, having
/// explained it, when that one doesn't end.
[[nodiscard]] bool HasJournalOfInterruptedSave(Environment &env, const SavedProject &project);
