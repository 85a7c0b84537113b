#pragma once

#include "ProfileFile.h"

#include <optional>

/// The program's settings: the project's "morvanite.ini" first, the user's "Morvanite.ini" next, then the program's,
/// the caller's default last.
///
/// A project comes from anybody, so it decides only what belongs to it: its sections `Text` and `Layout` count, with
/// the keys that are known there. Its file is never written.
class Settings
{
public:
    /// Reads `programFile`, and `userFile` over it; either may be absent.
    Settings(const QString &programFile, const QString &userFile);

    [[nodiscard]] QString String(const char *section, const char *key, const char *fallback = "") const;
    [[nodiscard]] int Int(const char *section, const char *key, int fallback) const;

    /// Reads the settings of a project, in place of another's. Each key of the file that doesn't count, in the form
    /// "[Section] key".
    [[nodiscard]] QStringList UseProject(const QString &file);

    /// The path of the project's file, which need not be there; empty before there is a project.
    [[nodiscard]] const QString &ProjectFile() const { return projectFile; }

    /// Takes in what has been changed in the files since they were read.
    void Refresh();

    /// Changes a key in the program's file where that is writable, else in the user's. False when neither can be
    /// written, and for a value with a line end, which would become other keys.
    bool Write(const QString &section, const QString &key, const QString &value);
    /// Changes several keys as Write does, with at most one write of each file, and none where all values are the same
    /// already. Of equal keys the last counts. False when any can't be changed; the others are.
    bool WriteAll(QList<ProfileEntry> entries);

private:
    [[nodiscard]] bool IsSet(const ProfileEntry &entry) const;

    QString programFolder;
    QString userFolder;
    ProfileFile program;
    ProfileFile user;
    QString projectFile;
    std::optional<ProfileFile> project;
    [[nodiscard]] const Profile *ProjectsOwn(const QString &section, const QString &key) const;
};
