// SPDX-License-Identifier: MIT
#include "ProjectFile.h"

#include "HostFiles.h"
#include "Paths.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace
{

constexpr QStringView ENDING = u".vcproj";

/// Returns the names of the ".vcproj" files in a folder, sorted.
QStringList ProjectFilesIn(const QString &folder)
{
    QStringList names;
    for (const QString &name : QDir(folder).entryList(QDir::Files, QDir::Name)) {
        if (name.endsWith(ENDING, Qt::CaseInsensitive))
            names.append(name);
    }
    return names;
}

/// Returns what to do, with the first project of a folder.
QString Advice(const QString &folder)
{
    const QStringList names = ProjectFilesIn(folder);
    const QString advice = u"give the path of a .vcproj file"_s;
    return names.isEmpty() ? advice : advice + u" (\"%1\" is in this folder)"_s.arg(names.front());
}

} // namespace

QString WhyNotProjectFile(const QString &path)
{
    if (!PathExists(path))
        return u"there is no file \"%1\"; %2"_s.arg(path, Advice(DirectoryOf(path)));
    if (QFileInfo(path).isDir())
        return u"\"%1\" is a folder; %2"_s.arg(path, Advice(path));
    if (!path.endsWith(ENDING, Qt::CaseInsensitive))
        return u"\"%1\" isn't the file of a project; %2"_s.arg(path, Advice(DirectoryOf(path)));
    return {};
}

QString WarnOfNeighbour(const QString &newFile)
{
    const QString folder = DirectoryOf(newFile);
    for (const QString &other : ProjectFilesIn(folder)) {
        if (other != FileName(newFile))
            return u"the folder has the project \"%1\" already; both use the same config.xml, and each save replaces "
                   u"the headers of the other project"_s.arg(other);
    }
    const QString parent = DirectoryOf(folder);
    const QStringList above = ProjectFilesIn(parent);
    return above.isEmpty() || parent == folder
               ? QString()
               : u"the folder is in the folder of the project \"%1\", but it becomes a project of its own"_s.arg(
                     CanonicalPath(parent + u'/' + above.front()));
}
