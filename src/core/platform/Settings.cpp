#include "Settings.h"

#include "HostFiles.h"
#include "Paths.h"

#include <unistd.h>

Settings::Settings(const QString &programFile, const QString &userFile)
    : programFolder(DirectoryOf(programFile)), userFolder(DirectoryOf(userFile)), program(programFile), user(userFile)
{
}

QString Settings::String(const char *section, const char *key, const char *fallback) const
{
    const QString wideSection = QString::fromUtf8(section);
    const QString wideKey = QString::fromUtf8(key);
    return user.Content().String(wideSection, wideKey,
                                 program.Content().String(wideSection, wideKey, QString::fromUtf8(fallback)));
}

int Settings::Int(const char *section, const char *key, int fallback) const
{
    const QString wideSection = QString::fromUtf8(section);
    const QString wideKey = QString::fromUtf8(key);
    return user.Content().Int(wideSection, wideKey, program.Content().Int(wideSection, wideKey, fallback));
}

void Settings::Refresh()
{
    program.Refresh();
    user.Refresh();
}

bool Settings::Write(const QString &section, const QString &key, const QString &value)
{
    if (value.contains(u'\n') || value.contains(u'\r'))
        return false;
    Refresh();
    const bool hasUserValue = user.Content().Has(section, key); // that one would hide the program's
    if (!hasUserValue && access(HostPath(programFolder).constData(), W_OK) == 0 && program.Set(section, key, value))
        return true;
    CreateFolderOnDisk(DirectoryOf(userFolder));
    CreateFolderOnDisk(userFolder);
    return user.Set(section, key, value);
}
