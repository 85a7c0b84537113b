// SPDX-License-Identifier: MIT
#include "FileFilters.h"

QString FileFilter::NameFilter() const
{
    return QStringLiteral("%1 (%2)").arg(name, patterns.join(u' '));
}

QString FileFilter::Suffix() const
{
    const QString first = patterns.value(0);
    return first.startsWith(QStringLiteral("*.")) ? first.mid(2) : QString();
}

QList<FileFilter> ParseFileFilter(const QString &filter)
{
    QList<FileFilter> entries;
    const QStringList parts = filter.split(u'|', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        FileFilter entry{parts[i], {}};
        for (const QString &part : parts[i + 1].split(u';')) {
            const QString pattern = part.trimmed();
            if (!pattern.isEmpty())
                entry.patterns.append(pattern == QStringLiteral("*.*") ? QStringLiteral("*") : pattern);
        }
        entries.append(entry);
    }
    return entries;
}
