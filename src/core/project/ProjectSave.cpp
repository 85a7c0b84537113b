#include "ProjectSave.h"

#include "Environment.h"
#include "Paths.h"
#include "SaveJournal.h"

SavedProject SavedProjectOf(const Environment &env, const QString &path)
{
    const QString folder = DirectoryOf(path);
    const auto placeOf = [&](const char *section, const char *key, const char *otherwise, const QString &base) {
        return ResolvePath(env.settings.String(section, key, otherwise), base);
    };
    SavedProject project;
    project.folder = folder;
    const QString lists = placeOf("Path", "main_xml", "res", folder);
    const QString headers = placeOf("Path", "header_output", ".\\ResID", folder);
    project.outside = {lists, headers, DirectoryOf(placeOf("ResID", "main_header", "ResID.h", headers))};
    project.journal = lists + QStringLiteral("/.%1.journal").arg(FileTitle(path));
    project.followsLinks = env.settings.Int("Path", "follow_links", 0) != 0;
    return project;
}

bool RecoverProjectFiles(Environment &env, const QString &path)
{
    const SavedProject project = SavedProjectOf(env, path);
    if (IsRelativePath(project.journal)) {
        env.ExplainFailure(
            QStringLiteral("the path of a project and its files may have %1 characters, and \"%2\" has %3; "
                           "move the project to a shorter path")
                .arg(LONGEST_PATH)
                .arg(path)
                .arg(path.size()));
        return false;
    }
    return FinishInterruptedSave(env, project);
}
