#include "Settings.h"

#include "HostFiles.h"
#include "Paths.h"

#include <unistd.h>

Settings::Settings(QString programPath, QString userPath)
    : programFile(std::move(programPath)), userFile(std::move(userPath)), program(Profile::Load(programFile)),
      user(Profile::Load(userFile))
{
}

QString Settings::String(const char *section, const char *key, const char *fallback) const
{
    const QString wideSection = QString::fromUtf8(section);
    const QString wideKey = QString::fromUtf8(key);
    return user.String(wideSection, wideKey, program.String(wideSection, wideKey, QString::fromUtf8(fallback)));
}

int Settings::Int(const char *section, const char *key, int fallback) const
{
    const QString wideSection = QString::fromUtf8(section);
    const QString wideKey = QString::fromUtf8(key);
    return user.Int(wideSection, wideKey, program.Int(wideSection, wideKey, fallback));
}

bool Settings::Write(const QString &section, const QString &key, const QString &value)
{
    const bool hasUserValue = user.Has(section, key); // that one would hide the program's
    if (!hasUserValue && access(HostPath(DirectoryOf(programFile)).constData(), W_OK) == 0) {
        program.Set(section, key, value);
        if (WriteFileAtomically(programFile, program.Bytes()) == 0)
            return true;
    }
    user.Set(section, key, value);
    const QString folder = DirectoryOf(userFile);
    CreateFolderOnDisk(DirectoryOf(folder));
    CreateFolderOnDisk(folder);
    return WriteFileAtomically(userFile, user.Bytes()) == 0;
}
