// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

// Paths here are the host's, in bytes. A relative path is relative to the current folder.

/// Returns the folder of a file: its path up to and including the last "/"; "." when there is none.
[[nodiscard]] QByteArray FolderOf(const QByteArray &path);

/// Returns the absolute path without symbolic links; empty when nothing exists at `path`.
[[nodiscard]] QByteArray RealPath(const QByteArray &path);

/// Returns whether `path` is below `folder`. Both are absolute paths without symbolic links.
[[nodiscard]] bool IsBelow(const QByteArray &path, const QByteArray &folder);

/// Follows the symbolic links at the last name of `path` and returns the path that they lead to, even when nothing
/// exists there yet.
[[nodiscard]] QByteArray FollowLinks(QByteArray path);

/// Returns whether the symbolic links in a path keep a project's file where the path says that it is. Sets `place` to
/// the absolute path after all symbolic links.
///
/// A project may come from somebody else, and a link in it could make a save replace any file of the user. So:
/// - A path that names a file below the project's folder must lead to a place below that folder. The project's folder
///   itself may be reached through a link.
/// - A path that names a file outside (a setting may be "..\inc" or an absolute path) must lead to a place below the
///   folder that it names. Links on the way to that folder belong to the user and are allowed; the file itself must not
///   be a link to another place.
/// Also returns true when a folder of the path doesn't exist: nothing can be written then.
[[nodiscard]] bool StaysInProject(const QByteArray &path, const QByteArray &projectFolder, QByteArray &place);

/// Returns whether a path names a file below the project's folder, whether or not links lead elsewhere.
[[nodiscard]] bool NamesPlaceInProject(const QByteArray &path, const QByteArray &projectFolder);
