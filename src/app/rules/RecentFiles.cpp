// SPDX-License-Identifier: MIT
#include "RecentFiles.h"

#include "Paths.h"
#include "Settings.h"

#include <algorithm>

namespace
{

constexpr char SECTION[] = "Recent File List";

QString KeyOf(int index)
{
    return QStringLiteral("File%1").arg(index + 1);
}

} // namespace

void RecentFiles::Read(const Settings &settings)
{
    paths.clear();
    for (int i = 0; i < MOST; ++i) {
        const QString path = settings.String(SECTION, KeyOf(i).toUtf8().constData());
        if (!path.isEmpty())
            paths.append(path);
    }
}

void RecentFiles::Add(const QString &path, Settings &settings)
{
    QStringList changed = paths;
    changed.removeIf([&path](const QString &known) { return IsSamePath(known, path); });
    changed.prepend(path);
    changed = changed.first(qMin(changed.size(), qsizetype(MOST)));
    if (changed == paths)
        return;
    paths = changed;
    Store(settings);
}

void RecentFiles::Remove(const QString &path, Settings &settings)
{
    if (paths.removeIf([&path](const QString &known) { return IsSamePath(known, path); }) > 0)
        Store(settings);
}

void RecentFiles::Store(Settings &settings) const
{
    QList<ProfileEntry> entries;
    for (int i = 0; i < MOST; ++i) {
        const QString path = paths.value(i);
        const QString key = KeyOf(i);
        if (settings.String(SECTION, key.toUtf8().constData()) != path)
            entries.append({QString::fromLatin1(SECTION), key, path});
    }
    (void)settings.WriteAll(entries); // a list that can't be stored is no problem
}

QString RecentFiles::Label(int index) const
{
    constexpr qsizetype LONGEST = 60;
    constexpr qsizetype HEAD = 12;
    QString path = paths.value(index);
    if (path.size() > LONGEST)
        path = path.first(HEAD) + QStringLiteral("...") + path.last(LONGEST - HEAD - 3);
    const bool hasRightToLeft = std::any_of(path.cbegin(), path.cend(), [](QChar c) {
        return c.direction() == QChar::DirR || c.direction() == QChar::DirAL;
    });
    if (hasRightToLeft) // otherwise adjacent folders in such a script are shown in reverse order
        path.replace(u'/', QStringLiteral("/\u200E"));
    return QStringLiteral("&%1 %2").arg(index + 1).arg(path.replace(u'&', QStringLiteral("&&")));
}
