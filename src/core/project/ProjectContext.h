// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

class CResDoc;
class Environment;
class FileTransaction;

/// Where the files of a project are.
struct ProjectPaths
{
    /// `path` is the path of the ".vcproj" file.
    ProjectPaths(const QString &path, Environment &environment);

    QString dir;  ///< the project's folder
    QString name; ///< the project's name
    Environment &env;

    /// The absolute path of the project's configuration.
    [[nodiscard]] QString ConfigPath() const;
    /// The path of the ".res.xml" file, relative to `dir`.
    [[nodiscard]] QString ResourcePath() const;
    /// The path of the string file, relative to `dir`.
    [[nodiscard]] QString StringPath() const;
    /// The path of a resolution's layout file, relative to `dir`.
    [[nodiscard]] QString LayoutPath(int width, int height) const;
    [[nodiscard]] QString Absolute(const QString &path) const;

private:
    [[nodiscard]] QString ResourceFolder() const;
};

/// What the reader and the writer of a project both need: its paths and its document.
struct ProjectContext : ProjectPaths
{
    ProjectContext(const QString &path, CResDoc &document);

    CResDoc &doc;
};

/// Reads the resource list of a project into the document's tree. Returns 0, or the code of the failure: -1 the list
/// can't be opened, -2 it isn't well-formed, 11 it isn't a resource list, or the code of the string file.
[[nodiscard]] int ReadProject(const QString &path, CResDoc &doc);

inline constexpr int CANNOT_WRITE = -3;

/// Writes the resource list and the string file and commits `files`, the environment's transaction, with the other
/// files that were written in it. Returns 0. If a file couldn't be written, returns the code of the string file or of a
/// layout file, or -3; no file has changed then, except those before a file that the system refused to put in place.
[[nodiscard]] int WriteProject(const QString &path, CResDoc &doc, FileTransaction &files);

/// Returns the bytes of the resource list that WriteProject would write. Writes nothing.
[[nodiscard]] QByteArray MakeResourceList(CResDoc &doc);

/// Returns the index of the resolution that the project's resource list has for a layout file, or -1.
[[nodiscard]] int FindLayoutResolution(const QString &projectPath, const QString &layoutPath, CResDoc &doc);
