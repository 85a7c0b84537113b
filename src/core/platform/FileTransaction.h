#pragma once

#include "FileReplacement.h"
#include "Leftovers.h"
#include "SavedProject.h"

#include <QStringList>

#include <functional>
#include <list>
#include <optional>

class Environment;

/// What becomes of the other files of a transaction when the system refuses to put one into its place.
enum class IfRefused
{
    Stop, ///< those behind it stay as they were, and those before it get their old content back
    GoOn, ///< it is made anew at every save, and none of the others depends on it
};

/// Holds back the files that an environment replaces until they are committed together, so that a save that fails in
/// its second file leaves the first as it was. One at a time in an environment.
class FileTransaction
{
public:
    /// With a project a file must stay in it (StaysInProject), and the renames have a journal (SaveJournal).
    explicit FileTransaction(Environment &environment, SavedProject savedProject = {});
    ~FileTransaction(); ///< drops what wasn't committed
    FileTransaction(const FileTransaction &) = delete;
    FileTransaction &operator=(const FileTransaction &) = delete;

    /// Writes a file beside its place. 0, or the system's error number, which the environment has explained; ELOOP when
    /// a link leads out of the project.
    [[nodiscard]] int Write(QStringView path, QByteArrayView bytes, IfRefused ifRefused);

    /// The absolute paths of the written files that replace one with other bytes.
    [[nodiscard]] QStringList Replaced() const;

    /// Puts all written files into their places, in the order of writing, and ends the transaction. The path of the
    /// file that the system refused, as it was handed in: no file has changed then. SIGINT and SIGTERM wait meanwhile.
    /// `mayReplace`, unless it is empty, is asked right before the first file is put into its place, when no other save
    /// of the project is under way any more; its false is like a refusal of the system of the first file, and it has
    /// explained it then.
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
