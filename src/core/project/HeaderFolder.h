#pragma once

#include "Text.h"

#include <QStringList>

class CResDoc;
class Environment;

/// Writes the headers of a project for the application's source into a folder of its own, and nothing anywhere else.
///
/// They have the text that a save writes, whatever the folder is. Where the settings ask for the layout converter's
/// tables, those and their header come too. A file whose text is the same isn't touched, so that nothing that depends
/// on it is made again.
///
///     HeaderFolder headers(document, folder);
///     const QString problem = headers.Write();
class HeaderFolder
{
public:
    /// `folderPath` is absolute; it is made when it is missing. The document must be open, and live longer.
    HeaderFolder(CResDoc &document, QString folderPath);

    /// Numbers the IDs and writes all headers, or none. Empty, or why that failed.
    [[nodiscard]] QString Write();
    /// The path of the header with the project's IDs.
    [[nodiscard]] QString MainHeader() const;
    /// The names of the headers that the settings ask for, in the folder: the one with the IDs, and the layout
    /// converter's. Those of components depend on the project and aren't among them.
    [[nodiscard]] static QStringList NamesBySettings(const Environment &env);
    /// The absolute paths of the files that the opening and the writing have read, the settings among them. Only those
    /// that are there.
    [[nodiscard]] QStringList Inputs() const;
    /// Which file of the project, or header that was written, `path` is, under whatever name; empty when it is none. It
    /// must not be replaced then.
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
