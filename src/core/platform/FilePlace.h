#pragma once

#include <QByteArray>

// Paths here are the host's, in bytes. A relative one counts from the current folder.

/// The folder of a file: its path up to the last "/", which is kept; "." when there is none.
[[nodiscard]] QByteArray FolderOf(const QByteArray &path);

/// The absolute path without links; empty where there is nothing.
[[nodiscard]] QByteArray RealPath(const QByteArray &path);

/// Says whether an absolute path without links is below such a folder.
[[nodiscard]] bool IsBelow(const QByteArray &path, const QByteArray &folder);

/// What the symbolic links at the last name of `path` lead to, even when nothing is there yet.
[[nodiscard]] QByteArray FollowLinks(QByteArray path);

/// Says whether a file of a project stays where its path says that it is. `place` becomes the absolute path that all
/// symbolic links lead to.
///
/// A project may come from somebody else, and a link in it could make a save replace any file of the user. So:
/// - A path that is written as one below the project's folder has to lead to a place below that folder. How the folder
///   itself is reached doesn't matter; it may be through a link.
/// - A path that is written as one outside (a setting may be "..\inc" or an absolute path) has to lead to a place below
///   the folder that it names. Links on the way to that folder are the user's own; the file itself may be no link to
///   somewhere else.
/// True as well when a folder on the way isn't there: nothing can be written then.
[[nodiscard]] bool StaysInProject(const QByteArray &path, const QByteArray &projectFolder, QByteArray &place);

/// Says whether a path is written as one below the project's folder, whatever the links in it do.
[[nodiscard]] bool NamesPlaceInProject(const QByteArray &path, const QByteArray &projectFolder);
