#pragma once

#include "Profile.h"

/// The program's settings: the user's "Morvanite.ini" first, the program's next, the caller's default last.
class Settings
{
public:
    /// Reads `programFile`, and `userFile` over it; either may be absent.
    Settings(QString programFile, QString userFile);

    [[nodiscard]] QString String(const char *section, const char *key, const char *fallback = "") const;
    [[nodiscard]] int Int(const char *section, const char *key, int fallback) const;

    /// Changes a key in the program's file where that is writable, else in the user's. False when neither can be
    /// written.
    bool Write(const QString &section, const QString &key, const QString &value);

private:
    QString programFile;
    QString userFile;
    Profile program;
    Profile user;
};
