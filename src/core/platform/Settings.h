// SPDX-License-Identifier: MIT
#pragma once

#include "ProfileFile.h"

#include <optional>

/// The program's settings. A key is looked up in the project's "morvanite.ini" first, then in the user's
/// "Morvanite.ini", then in the program's; the caller's default is last.
///
/// A project can come from anybody, so it can set only what belongs to it: of its file only the known keys of the
/// sections `Text` and `Layout` count. Its file is never written.
class Settings
{
public:
    /// Reads `programFile`, and `userFile`, whose keys override it. Either file may be absent.
    Settings(const QString &programFile, const QString &userFile);

    [[nodiscard]] QString String(const char *section, const char *key, const char *fallback = "") const;
    [[nodiscard]] int Int(const char *section, const char *key, int fallback) const;

    /// Reads the settings of a project and drops those of the previous one. Sets `ignored` to the keys of the file that
    /// don't count, in the form "[Section] key". Returns 0, also if there is no file, or the system's error number; no
    /// setting has changed then.
    [[nodiscard]] int UseProject(const QString &file, QStringList &ignored);

    /// The path of the project's file, which need not exist; empty before there is a project.
    [[nodiscard]] const QString &ProjectFile() const { return projectFile; }

    /// Reads again those files that have changed since they were read.
    void Refresh();

    /// Changes a key in the program's file if that is writable and isn't a symbolic link, otherwise in the user's.
    /// Returns false when neither can be written, and for a value that contains a line end, because the text after it
    /// would be read as other keys.
    bool Write(const QString &section, const QString &key, const QString &value);
    /// Changes several keys as Write does. Writes each file at most once, and not at all if its values are the same
    /// already. Of equal keys the last counts. Returns false when a key can't be changed; the others are changed.
    bool WriteAll(QList<ProfileEntry> entries);

private:
    [[nodiscard]] bool IsSet(const ProfileEntry &entry) const;

    QString programPath;
    QString userFolder;
    ProfileFile program;
    ProfileFile user;
    QString projectFile;
    std::optional<ProfileFile> project;
    [[nodiscard]] const Profile *ProjectsOwn(const QString &section, const QString &key) const;
};
