// SPDX-License-Identifier: MIT
#include "Settings.h"

#include "HostFiles.h"
#include "Paths.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// The settings that a project can set. No key here may name a program, or a file that is written.
constexpr struct
{
    const char *section;
    const char *key;
} PROJECT_KEYS[] = {
    {"Text", "code_page"},       {"Layout", "folders"},  {"Layout", "catalogue"}, {"Layout", "export_xml"},
    {"Layout", "export_layout"}, {"Layout", "pictures"}, {"Pack", "sorted"},
};

bool IsProjectKey(QStringView section, QStringView key)
{
    return std::any_of(std::begin(PROJECT_KEYS), std::end(PROJECT_KEYS), [&](const auto &known) {
        return section.compare(QLatin1String(known.section), Qt::CaseInsensitive) == 0 &&
               key.compare(QLatin1String(known.key), Qt::CaseInsensitive) == 0;
    });
}

/// False if the program's file is a symbolic link: an installed program has such a link to the administrator's file,
/// and a write would replace the link.
bool MayWriteProgramFile(const QString &file)
{
    struct stat info;
    const bool isLink = lstat(HostPath(file).constData(), &info) == 0 && S_ISLNK(info.st_mode);
    return !isLink && access(HostPath(DirectoryOf(file)).constData(), W_OK) == 0;
}

} // namespace

Settings::Settings(const QString &programFile, const QString &userFile)
    : programPath(programFile), userFolder(DirectoryOf(userFile)), program(programFile), user(userFile)
{
}

QString Settings::String(const char *section, const char *key, const char *fallback) const
{
    const QString wideSection = QString::fromUtf8(section);
    const QString wideKey = QString::fromUtf8(key);
    if (const Profile *profile = ProjectsOwn(wideSection, wideKey))
        return profile->String(wideSection, wideKey, QString());
    return user.Content().String(wideSection, wideKey,
                                 program.Content().String(wideSection, wideKey, QString::fromUtf8(fallback)));
}

int Settings::Int(const char *section, const char *key, int fallback) const
{
    const QString wideSection = QString::fromUtf8(section);
    const QString wideKey = QString::fromUtf8(key);
    if (const Profile *profile = ProjectsOwn(wideSection, wideKey))
        return profile->Int(wideSection, wideKey, fallback);
    return user.Content().Int(wideSection, wideKey, program.Content().Int(wideSection, wideKey, fallback));
}

const Profile *Settings::ProjectsOwn(const QString &section, const QString &key) const
{
    const bool counts = project && IsProjectKey(section, key) && project->Content().Has(section, key);
    return counts ? &project->Content() : nullptr;
}

int Settings::UseProject(const QString &file, QStringList &ignored)
{
    ProfileFile read(file);
    if (read.Error() != 0 && read.Error() != ENOENT)
        return read.Error();
    projectFile = file;
    project = std::move(read);
    ignored.clear();
    for (const auto &[section, key] : project->Content().Keys()) {
        if (!IsProjectKey(section, key))
            ignored.append(QStringLiteral("[%1] %2").arg(section, key));
    }
    return 0;
}

void Settings::Refresh()
{
    if (project)
        project->Refresh();
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
    // A value in the user's file overrides the program's, so these keys are changed in the user's file.
    const auto inProgram = std::stable_partition(entries.begin(), entries.end(), [this](const ProfileEntry &entry) {
        return user.Content().Has(entry.section, entry.key);
    });
    const QList<ProfileEntry> forProgram(inProgram, entries.end());
    if (!forProgram.isEmpty() && MayWriteProgramFile(programPath) && program.Set(forProgram))
        entries.erase(inProgram, entries.end());
    if (entries.isEmpty())
        return areValues;
    CreateFolderOnDisk(DirectoryOf(userFolder));
    CreateFolderOnDisk(userFolder);
    return user.Set(entries) && areValues;
}
