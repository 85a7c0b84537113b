#include "Settings.h"

#include "HostFiles.h"
#include "Paths.h"

#include <algorithm>
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
    return WriteAll({{section, key, value}});
}

bool Settings::IsSet(const ProfileEntry &entry) const
{
    const Profile &content = user.Content().Has(entry.section, entry.key) ? user.Content() : program.Content();
    return content.Has(entry.section, entry.key) && content.String(entry.section, entry.key, QString()) == entry.value;
}

bool Settings::WriteAll(QList<ProfileEntry> entries)
{
    const bool areValues = entries.removeIf([](const ProfileEntry &entry) {
        return entry.value.contains(u'\n') || entry.value.contains(u'\r');
    }) == 0;
    Refresh();
    if (std::all_of(entries.cbegin(), entries.cend(), [this](const ProfileEntry &entry) { return IsSet(entry); }))
        return areValues;
    // A value that the user's file has would hide the program's.
    const auto inProgram = std::stable_partition(entries.begin(), entries.end(), [this](const ProfileEntry &entry) {
        return user.Content().Has(entry.section, entry.key);
    });
    const QList<ProfileEntry> forProgram(inProgram, entries.end());
    if (!forProgram.isEmpty() && access(HostPath(programFolder).constData(), W_OK) == 0 && program.Set(forProgram))
        entries.erase(inProgram, entries.end());
    if (entries.isEmpty())
        return areValues;
    CreateFolderOnDisk(DirectoryOf(userFolder));
    CreateFolderOnDisk(userFolder);
    return user.Set(entries) && areValues;
}
