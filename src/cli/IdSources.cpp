// SPDX-License-Identifier: MIT
#include "IdSources.h"

#include "FileFault.h"
#include "HostFiles.h"
#include "IdNumbers.h"
#include "PackNames.h"
#include "ProjectLayouts.h"
#include "Session.h"
#include "SortedIds.h"

std::optional<NumberedProject> OpenNumbered(Session &session, const QString &path, const QString &shown)
{
    CResDoc *const document = session.OpenQuietly(path);
    if (!document)
        return std::nullopt;
    const QStringList missing = MissingLayouts(*document);
    for (const QString &reason : missing)
        Complain(reason);
    if (!missing.isEmpty())
        return std::nullopt; // without these IDs the others would get other numbers
    NumberedProject numbered{document, SortedIds(document->ids)};
    if (FillSorted(document->env, numbered.sorted) != 0) {
        Complain(shown + QStringLiteral(": more IDs of one kind than there are numbers"));
        return std::nullopt;
    }
    return numbered;
}

bool ReadHeaderOfIds(const char *option, const QString &path, IdNumbers &numbers)
{
    QByteArray bytes;
    if (const int error = ReadFile(path, bytes)) {
        Complain(WhyNotRead(path, error));
        return false;
    }
    numbers.Read(bytes);
    if (numbers.All().empty())
        Complain(QStringLiteral("%1 %2: there is no line \"#define NAME NUMBER\" in it")
                     .arg(QString::fromLatin1(option), path));
    return !numbers.All().empty();
}

std::optional<PackNames> NamesOfIds(Session &session, const char *option, const QString &path)
{
    PackNames names;
    if (!path.endsWith(QStringLiteral(".vcproj"), Qt::CaseInsensitive)) {
        IdNumbers numbers;
        if (!ReadHeaderOfIds(option, path, numbers))
            return std::nullopt;
        for (const IdNumbers::Entry &entry : numbers.All())
            names.Add(entry.number, session.env.NarrowToWide(entry.name));
        return names;
    }
    const std::optional<NumberedProject> numbered = OpenNumbered(session, path, path);
    if (!numbered)
        return std::nullopt;
    for (const QString &reason : LeftOutLayouts(*numbered->document))
        Complain(reason + QStringLiteral("; the IDs are numbered without it"));
    for (const IDRecord *record : numbered->sorted)
        names.Add(record->value, numbered->document->env.NarrowToWide(record->name));
    return names;
}
