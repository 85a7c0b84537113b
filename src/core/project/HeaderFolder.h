// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QStringList>

class CResDoc;
class Environment;

/// Writes a project's headers for the application's source into a folder of their own. Writes nothing elsewhere.
///
/// The headers have the same text as those of a save, whatever the folder is. If the settings ask for the layout
/// converter's tables, the tables and their header are written too. A file whose text hasn't changed isn't written, so
/// that nothing that depends on it is rebuilt.
///
///     HeaderFolder headers(document, folder);
///     const QString problem = headers.Write();
class HeaderFolder
{
public:
    /// `folderPath` is absolute; the folder is made if it is missing. The document must be open and outlive this
    /// object.
    HeaderFolder(CResDoc &document, QString folderPath);

    /// Numbers the IDs and writes all headers, or none. Returns an empty text, or why that failed.
    [[nodiscard]] QString Write();
    /// The path of the header with the project's IDs.
    [[nodiscard]] QString MainHeader() const;
    /// The file names of the headers that the settings ask for: the header with the IDs, and the layout converter's.
    /// The headers of components depend on the project and aren't among them.
    [[nodiscard]] static QStringList NamesBySettings(const Environment &env);
    /// The absolute paths of the files that were read to open the project and to write the headers, including the
    /// settings. Only files that exist.
    [[nodiscard]] QStringList Inputs() const;
    /// Returns the file of the project or the written header that `path` names, also under another name; such a file
    /// must not be replaced. Empty when `path` names none of them.
    [[nodiscard]] QString FileThatIs(const QString &path) const;

private:
    [[nodiscard]] QString MakeTables();
    [[nodiscard]] QString WriteAll();

    struct File
    {
        QString path;
        QByteArray text;
    };

    CResDoc &doc;
    QString folder;
    std::vector<File> files;
};
