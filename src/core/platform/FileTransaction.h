// SPDX-License-Identifier: MIT
#pragma once

#include "FileReplacement.h"
#include "Leftovers.h"
#include "SavedProject.h"

#include <QStringList>

#include <functional>
#include <list>
#include <optional>

class Environment;

/// What happens to the other files of a transaction when the system refuses to put one into its place.
enum class IfRefused
{
    Stop, ///< the files after it stay as they were, and the files before it get their old content back
    GoOn, ///< nothing: the file is generated again at every save, and no other file depends on it
};

/// Delays the replacement of an environment's files until all are committed together, so that a save that fails at its
/// second file leaves the first as it was. An environment has at most one transaction at a time.
class FileTransaction
{
public:
    /// If `savedProject` names a project, its files must stay in it (StaysInProject), and the renames have a journal
    /// (SaveJournal).
    explicit FileTransaction(Environment &environment, SavedProject savedProject = {});
    ~FileTransaction(); ///< discards the files that weren't committed
    FileTransaction(const FileTransaction &) = delete;
    FileTransaction &operator=(const FileTransaction &) = delete;

    /// Writes a file beside its place, unless the file there has the same content: that one stays as it is. Returns 0,
    /// or the system's error number, which the environment has explained; ELOOP when a link leads out of the project.
    [[nodiscard]] int Write(QStringView path, const FilePieces &content, IfRefused ifRefused);

    /// Returns the absolute paths of the written files that replace a file with other bytes.
    [[nodiscard]] QStringList Replaced() const;

    /// Returns whether the file at an absolute path has the bytes that were to be written, and so stays as it is.
    [[nodiscard]] bool IsUnchanged(const QString &absolute) const;

    /// Puts all written files into their places, in the order of writing, and ends the transaction. On failure, returns
    /// the path of the file that the system refused, as it was passed to Write; no file has changed then. Signals that
    /// end the program are delayed meanwhile (SignalHold). `mayReplace`, unless it is empty, is called right before the
    /// first file is put into its place, when no other save of the project is running any more. If it returns false, it
    /// has explained why, and the first file counts as refused.
    [[nodiscard]] std::optional<QString> Commit(const std::function<bool()> &mayReplace = {});

private:
    /// A written file that waits for its place.
    struct Staged
    {
        FileReplacement file;
        QString path;
        IfRefused ifRefused;
        bool isInPlace = false;
    };

    void End();
    [[nodiscard]] int BeginJournal(class SaveJournal &journal);
    [[nodiscard]] std::optional<QString> RenameAll();
    [[nodiscard]] bool TakeBack();
    void SyncFolders() const;
    void Explain(QStringView path, int error);

    Environment &env;
    SavedProject project;
    Leftovers leftovers;
    std::list<Staged> staged;
};
