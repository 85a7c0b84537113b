// SPDX-License-Identifier: MIT
#include "IdSources.h"

#include "FileFault.h"
#include "HostFiles.h"
#include "IdNumbers.h"
#include "PackNames.h"
#include "ProjectLayouts.h"
#include "Session.h"
#include "SortedIds.h"

CResDoc *OpenNumbered(Session &session, const QString &path, const QString &shown)
{
    CResDoc *const document = session.OpenQuietly(path);
    if (!document)
        return nullptr;
    const QStringList missing = MissingLayouts(*document);
    for (const QString &reason : missing)
        Complain(reason);
    if (!missing.isEmpty())
        return nullptr; // without these IDs the others would get other numbers
    if (document->GenerateIds(nullptr) != 0) {
        Complain(shown + QStringLiteral(": more IDs of one kind than there are numbers"));
        return nullptr;
    }
    return document;
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
    CResDoc *const document = OpenNumbered(session, path, path);
    if (!document)
        return std::nullopt;
    for (const QString &reason : LeftOutLayouts(*document))
        Complain(reason + QStringLiteral("; the IDs are numbered without it"));
    for (const IDRecord *record : SortedIds(document->ids))
        names.Add(record->value, document->env.NarrowToWide(record->name));
    return names;
}
