#pragma once

#include "Text.h"

#include <QStringList>

#include <set>
#include <vector>

class Environment;

/// The list file of the resources of version 1.0 of a project: its path without the extension, and "_res.lst".
[[nodiscard]] QString V1ListPath(const QString &projectPath);

/// The plain files of a project that the device knows by their names, as the user edits them: what the resource list
/// dialog decides, without its window. Holds the rows until `Save`; touches neither tree nor document.
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
        QString name; ///< what is behind the path's last separator: the file's name on the device
        QString path; ///< absolute
        /// The line of the file, where the code page can't write it again from the path; else empty.
        NarrowText line = {};
        bool operator==(const Row &) const = default;
    };

    /// `currentProject` is the project's path; empty when none is open, and then nothing is loaded or saved.
    V1ResourceList(Environment &environment, QString currentProject);

    /// Reads the list file; an absent one leaves the list empty. Reading stops at a line of more than 1,023 bytes and
    /// at a path without a separator.
    void Load();
    /// Appends files in their order. One that is in the list already stands in it twice.
    void Add(const QStringList &paths);
    /// Takes out the rows of these indices.
    void Remove(const std::set<size_t> &indices);
    /// Writes the list, and a copy into the folder of the selected configuration. False when no project is open; a file
    /// that can't be written stays as it was and is no failure.
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
