// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QDateTime>
#include <QStringList>

#include <vector>

class Environment;

/// Copies of a project's files that a save replaced although it didn't know everything in them. They are in the user's
/// state folder, `$XDG_STATE_HOME/morvanite/kept/`, in one folder for each project, which only the user can read.
///
/// An entry has the files of one save. The newest 20 entries of a project are kept.
class KeptFiles
{
public:
    /// `projectPath` is the path of the project's ".vcproj" file, which need not exist.
    explicit KeptFiles(const QString &projectPath);

    /// The files of one save.
    struct Entry
    {
        int number;
        QDateTime time;    ///< when they were kept
        QStringList files; ///< their original absolute paths, in the order of copying
    };

    /// Copies those of `files` that exist into a new entry, all of them or none. Sets `entry` to the folder of the new
    /// entry; it stays empty if there was nothing to copy. Returns what went wrong, or an empty text.
    [[nodiscard]] QString Keep(const QStringList &files, QString &entry) const;
    /// Removes an entry that Keep made.
    static void Drop(const QString &entry);

    /// Returns all entries, the oldest first, without those that can't be read completely.
    [[nodiscard]] std::vector<Entry> Entries() const;

    /// Copies the files of an entry back to their original paths, all of them or none. The files that they replace
    /// become a new entry, whose folder is `replaced`, as in Keep. First finishes an interrupted save of the project.
    /// Returns what went wrong, or an empty text; the environment has explained more. A link out of the project is
    /// refused.
    [[nodiscard]] QString Restore(Environment &env, int number, QString &replaced) const;

private:
    [[nodiscard]] std::vector<int> Numbers() const;
    [[nodiscard]] QString FolderOf(int number) const { return folder + u'/' + QString::number(number); }
    [[nodiscard]] QString MakeEntry(QString &entry) const;
    void Prune() const;

    QString project;
    QString folder; // the folder of the project's entries; empty if the user has no place for them
};
