// SPDX-License-Identifier: MIT
#include "SourceFiles.h"

#include "CheckSettings.h"
#include "Paths.h"

#include <QDir>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

class PatternSearch
{
public:
    explicit PatternSearch(QStringList patternParts) : parts(std::move(patternParts)) {}

    QStringList files;

    /// Follows the parts of the pattern from one on, below a folder.
    void Look(const QString &folder, qsizetype part)
    {
        // With several "**" there are many ways to one folder.
        if (part == parts.size() || seen.contains({folder, part}))
            return;
        seen.insert({folder, part});
        const QString &name = parts[part];
        if (name == u"**"_s)
            LookBelow(folder, part);
        else if (name.contains(u'*'))
            LookThrough(folder, part);
        else
            Enter(folder + u'/' + name, part);
    }

private:
    void LookBelow(const QString &folder, qsizetype part)
    {
        if (part + 1 == parts.size())
            files += Paths(folder, QDir::Files);
        Look(folder, part + 1);
        for (const QString &below : Paths(folder, QDir::Dirs | QDir::NoSymLinks))
            Look(below, part);
    }

    void LookThrough(const QString &folder, qsizetype part)
    {
        for (const QString &path : Paths(folder, part + 1 == parts.size() ? QDir::Files : QDir::Dirs)) {
            if (MatchesPattern(FileName(path), parts[part]))
                Enter(path, part);
        }
    }

    void Enter(const QString &path, qsizetype part)
    {
        if (part + 1 < parts.size())
            Look(path, part + 1);
        else if (QFileInfo(path).isFile())
            files.append(path);
    }

    /// Returns the paths in a folder without those that begin with ".".
    static QStringList Paths(const QString &folder, QDir::Filters filter)
    {
        QStringList paths;
        for (const QString &name : QDir(folder).entryList(filter | QDir::NoDotAndDotDot)) {
            if (!name.startsWith(u'.'))
                paths.append(folder + u'/' + name);
        }
        return paths;
    }

    QStringList parts;
    QSet<std::pair<QString, qsizetype>> seen;
};

} // namespace

QStringList FilesOfPattern(const QString &folder, const QString &pattern)
{
    const QString whole = QString(pattern).replace(u'\\', u'/');
    const bool isAbsolute = whole.startsWith(u'/');
    PatternSearch search(whole.split(u'/', Qt::SkipEmptyParts));
    search.Look(isAbsolute ? QString() : folder, 0);
    for (QString &file : search.files)
        file = QDir::cleanPath(file);
    std::sort(search.files.begin(), search.files.end());
    search.files.removeDuplicates();
    return search.files;
}
