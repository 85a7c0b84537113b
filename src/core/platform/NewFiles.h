// SPDX-License-Identifier: MIT
#pragma once

#include "FileReplacement.h"

#include <QStringList>

#include <list>
#include <vector>

/// Makes several new files, all or none, with the folders that they need. Never changes what exists already.
///
///     NewFiles files;
///     files.Add(path, bytes);
///     const QString problem = files.Make();
class NewFiles
{
public:
    /// Plans a file. `path` is absolute.
    void Add(const QString &path, QByteArray bytes);

    /// The planned files that don't exist, in the order of `Add`. Empty after a successful Make.
    [[nodiscard]] QStringList Missing() const;
    /// The planned files whose names exist already, for example as a file, a folder or a link.
    [[nodiscard]] QStringList Existing() const;

    /// Returns an empty text, or which name is in the way of a folder that `Make` would need.
    [[nodiscard]] QString Obstacle() const;
    /// Makes the missing files. Returns an empty text, or why that failed; no file and no folder was made then, unless
    /// the text says so.
    [[nodiscard]] QString Make();
    /// Removes the files and folders that `Make` made.
    void TakeBack();

private:
    struct File
    {
        QString path;
        QByteArray bytes;
    };

    [[nodiscard]] QString Write();
    [[nodiscard]] QString PutInPlace();
    [[nodiscard]] QString MakeFolders(const QString &path);

    std::vector<File> files;
    std::list<FileReplacement> written; // not in their places
    std::list<FileReplacement> made;
    std::vector<QByteArray> folders; // that were made
};
