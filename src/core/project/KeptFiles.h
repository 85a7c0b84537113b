#pragma once

#include "Text.h"

#include <QDateTime>
#include <QStringList>

#include <vector>

class Environment;

/// Copies of a project's files that a save replaced although it couldn't know all that was in them. They are in the
/// user's state folder, `$XDG_STATE_HOME/morvanite/kept/`, in one folder a project, which only the user can read.
///
/// One entry holds the files of one save. The newest 20 entries of a project stay.
class KeptFiles
{
public:
    /// `projectPath` is the project's ".vcproj" file, which need not be there.
    explicit KeptFiles(const QString &projectPath);

    /// One save's files.
    struct Entry
    {
        int number;
        QDateTime time;    ///< when they were kept
        QStringList files; ///< where they were, absolute, in the order of keeping
    };

    /// Copies those of `files` that are there into a new entry, all of them or none. `entry` becomes its folder, and
    /// stays empty where there was nothing to copy. What went wrong, or an empty text.
    [[nodiscard]] QString Keep(const QStringList &files, QString &entry) const;
    /// Removes an entry that Keep made.
    static void Drop(const QString &entry);

    /// All entries, the oldest first. One that can't be read whole is left out.
    [[nodiscard]] std::vector<Entry> Entries() const;

    /// Puts the files of an entry back where they were, all of them or none; what they replace becomes an entry of its
    /// own, `replaced`, as Keep has it. Finishes an interrupted save of the project first. What went wrong, or an empty
    /// text; the environment has explained more. A link out of the project is refused.
    [[nodiscard]] QString Restore(Environment &env, int number, QString &replaced) const;

private:
    [[nodiscard]] std::vector<int> Numbers() const;
    [[nodiscard]] QString FolderOf(int number) const { return folder + u'/' + QString::number(number); }
    [[nodiscard]] QString MakeEntry(QString &entry) const;
    void Prune() const;

    QString project;
    QString folder; // of the project's entries; empty where the user has no place for them
};
