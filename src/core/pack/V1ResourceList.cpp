// SPDX-License-Identifier: MIT
#include "V1ResourceList.h"

#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"

#include <algorithm>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype LONGEST_LINE = 1023;         // bytes
constexpr qsizetype LONGEST_CONFIGURATION = 259; // characters

qsizetype LastSeparator(QStringView path)
{
    return std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
}

bool IsFolder(const QString &path)
{
    struct stat info;
    return stat(HostPath(path).constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

} // namespace

QString V1ListPath(const QString &projectPath)
{
    return projectPath.left(LastSeparator(projectPath) + 1) + FileTitle(projectPath) + u"_res.lst"_s;
}

V1ResourceList::V1ResourceList(Environment &environment, QString currentProject)
    : env(environment), projectPath(std::move(currentProject)),
      projectFolder(projectPath.left(LastSeparator(projectPath) + 1))
{
}

void V1ResourceList::Load()
{
    rows.clear();
    QByteArray bytes;
    if (projectPath.isEmpty() || ReadFile(V1ListPath(projectPath), bytes) != 0)
        return;
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype feed = bytes.indexOf('\n', at);
        const qsizetype end = feed < 0 ? bytes.size() : feed;
        if (end - at > LONGEST_LINE)
            return;
        QByteArray line = bytes.mid(at, end - at);
        at = end + 1;
        if (line.endsWith('\r'))
            line.chop(1);
        if (!AddLine(line))
            return;
    }
}

bool V1ResourceList::AddLine(const NarrowText &line)
{
    QString path = env.NarrowToWide(line);
    const bool canWrite = env.WideToNarrow(path) == line;
    bool relative = false;
    for (qsizetype at = path.indexOf(u".\\"_s); at >= 0; at = path.indexOf(u".\\"_s, at)) {
        if (at > 0 && path[at - 1] == u'.') {
            at += 2; // keep ".." in the path: the pack understands it
            continue;
        }
        path.replace(at, 2, projectFolder);
        at += projectFolder.size();
        relative = true;
    }
    if (relative && projectFolder.startsWith(u'/'))
        path.replace(u'\\', u'/');
    if (path.isEmpty())
        return true;
    if (LastSeparator(path) < 0)
        return false;
    rows.push_back({FileName(path), path, canWrite ? NarrowText() : line});
    return true;
}

void V1ResourceList::Add(const QStringList &paths)
{
    for (const QString &path : paths)
        rows.push_back({FileName(path), path});
}

void V1ResourceList::Remove(const std::set<size_t> &indices)
{
    for (auto index = indices.rbegin(); index != indices.rend(); ++index) {
        if (*index < rows.size())
            rows.erase(rows.begin() + ptrdiff_t(*index));
    }
}

QString V1ResourceList::StoredPath(const QString &path) const
{
    if (projectFolder.isEmpty() || !path.startsWith(projectFolder))
        return path;
    QString stored = u".\\"_s + path.sliced(projectFolder.size());
    stored.replace(u'/', u'\\');
    stored.replace(u"\\\\"_s, u"\\"_s);
    return stored;
}

bool V1ResourceList::Save() const
{
    if (projectPath.isEmpty())
        return false;
    NarrowText text;
    for (const Row &row : rows) {
        if (&row != &rows.front())
            text += "\r\n";
        if (!row.line.isEmpty())
            text += row.line;
        else if (!row.name.isEmpty() && !row.path.isEmpty())
            text += env.WideToNarrow(StoredPath(row.path));
    }
    WriteList(V1ListPath(projectPath), text);
    CopyToConfiguration();
    return true;
}

void V1ResourceList::CopyToConfiguration() const
{
    const QString list = projectFolder + u"config_list.ini"_s;
    if (!PathExists(list))
        return;
    const QString selected =
        Profile::Load(list).String(u"CONFIGSELECTED", u"SELECTED", QString()).left(LONGEST_CONFIGURATION);
    const QString folder = projectFolder + u"config/"_s + selected;
    const bool there = !selected.isEmpty() && IsFolder(folder);
    if (!there && !(CreateFolderOnDisk(projectFolder + u"config"_s) && CreateFolderOnDisk(folder)))
        return;
    QByteArray bytes;
    if (ReadFile(V1ListPath(projectPath), bytes) == 0)
        WriteList(folder + u'/' + FileName(V1ListPath(projectPath)), bytes);
}

/// Writes a file of the project, unless a link leads out of the project.
void V1ResourceList::WriteList(const QString &path, const QByteArray &bytes) const
{
    FileTransaction files(env, {projectFolder, {}, {}, env.settings.Int("Path", "follow_links", 0) != 0});
    if (env.ReplaceFile(path, bytes) == 0)
        (void)files.Commit();
}
