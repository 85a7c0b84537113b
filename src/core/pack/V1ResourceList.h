// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QStringList>

#include <set>
#include <vector>

class Environment;

/// The path of the list file of a project's version 1.0 resources: the project's path without the extension, and
/// "_res.lst".
[[nodiscard]] QString V1ListPath(const QString &projectPath);

/// The plain files of a project that the device finds by name, as the user edits them: the logic of the resource list
/// dialog without its window. Keeps the rows until `Save`; changes neither tree nor document.
///
///     V1ResourceList list(env, tables.projectPath);
///     list.Load();
///     list.Add(chosen);
///     if (list.Save()) close the dialog
class V1ResourceList
{
public:
    struct Row
    {
        QString name; ///< the part of the path after its last separator: the file's name on the device
        QString path; ///< absolute
        /// The line of the list file if the code page can't reproduce it from the path; otherwise empty.
        NarrowText line = {};
        bool operator==(const Row &) const = default;
    };

    /// `currentProject` is the path of the open project; empty if none is open; then nothing is loaded or saved.
    V1ResourceList(Environment &environment, QString currentProject);

    /// Reads the list file; if it doesn't exist, the list is empty. Reading stops at a line of more than 1,023 bytes
    /// and at a path without a separator.
    void Load();
    /// Appends files in their order. A file that is already in the list is then in it twice.
    void Add(const QStringList &paths);
    /// Removes the rows with these indices.
    void Remove(const std::set<size_t> &indices);
    /// Writes the list, and a copy into the folder of the selected configuration. Returns false if no project is open.
    /// A file that can't be written is unchanged, and this is not a failure.
    [[nodiscard]] bool Save() const;

    [[nodiscard]] const std::vector<Row> &Rows() const { return rows; }

private:
    [[nodiscard]] bool AddLine(const NarrowText &line);
    [[nodiscard]] QString StoredPath(const QString &path) const;
    void CopyToConfiguration() const;
    void WriteList(const QString &path, const QByteArray &bytes) const;

    Environment &env;
    QString projectPath;
    QString projectFolder; // with its separator; empty if the path has none
    std::vector<Row> rows;
};
