// SPDX-License-Identifier: MIT
#include "ProjectSave.h"

#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "SaveJournal.h"

using namespace Qt::StringLiterals;

namespace
{

/// Returns the folder of the resource list, with a slash at the end.
QString ListFolder(const Environment &env, const QString &projectFolder)
{
    return ResolvePath(env.settings.String("Path", "main_xml", "res"), projectFolder) + u'/';
}

QString JournalIn(const QString &listFolder, const QString &projectName)
{
    return listFolder + u".%1.journal"_s.arg(projectName);
}

} // namespace

SavedProject SavedProjectOf(const Environment &env, const QString &path)
{
    const QString folder = DirectoryOf(path);
    const auto placeOf = [&](const char *section, const char *key, const char *otherwise, const QString &base) {
        return ResolvePath(env.settings.String(section, key, otherwise), base);
    };
    const QString lists = ListFolder(env, folder);
    const QString headers = placeOf("Path", "header_output", ".\\ResID", folder);
    const QString name = FileTitle(path);
    SavedProject project;
    project.folder = folder;
    project.journal = JournalIn(lists, name);
    project.files = {lists + name + u".res.xml"_s, lists + u"ref_list_%1.txt"_s.arg(name),
                     placeOf("ResID", "main_header", "ResID.h", headers)};
    project.patterns = {lists + u"layout_%1_%s.xml"_s.arg(name),
                        headers + u'/' + env.settings.String("ResID", "comp_header", "uix_rp_%s_def.h")};
    project.config = placeOf("Path", "proj_cfg", ".\\config.xml", folder);
    project.followsLinks = env.settings.Int("Path", "follow_links", 0) != 0;
    return project;
}

bool RecoverProjectFiles(Environment &env, const QString &path)
{
    if (path.isEmpty()) {
        env.ExplainFailure(u"the path of the project is empty; give the path of a .vcproj file"_s);
        return false;
    }
    const SavedProject project = SavedProjectOf(env, path);
    if (IsRelativePath(project.journal)) {
        env.ExplainFailure(
            u"the path of a project and those of its files may have at most %1 characters, but \"%2\" has "
            "%3; move the project to a shorter path"_s.arg(LONGEST_PATH)
                .arg(path)
                .arg(path.size()));
        return false;
    }
    return FinishInterruptedSave(env, project);
}

bool HasInterruptedSave(Environment &env, const QString &path)
{
    if (!HasJournalOfInterruptedSave(env, SavedProjectOf(env, path)))
        return false;
    env.ExplainFailure(u"a save of \"%1\" was interrupted, so nothing was written; to finish that save, run "
                       "\"morvanite-cli save\" or open the project in the window"_s.arg(path));
    return true;
}

bool HasJournal(const Environment &env, const QString &path)
{
    return PathExists(JournalIn(ListFolder(env, DirectoryOf(path)), FileTitle(path)));
}
