// SPDX-License-Identifier: MIT
#include "CResDoc.h"

#include "CatalogueFile.h"
#include "DialogFilter.h"
#include "Environment.h"
#include "FileClassifier.h"
#include "HostFiles.h"
#include "IDGen.h"
#include "LayoutExport.h"
#include "OpeningCheck.h"
#include "Paths.h"
#include "ProjectConfig.h"
#include "ProjectContext.h"
#include "ProjectFile.h"
#include "ProjectFolders.h"
#include "ProjectLayouts.h"
#include "ProjectLock.h"
#include "ProjectSave.h"
#include "StringFile.h"

#include <utility>

namespace
{

constexpr int OLDEST_VERSION = 20;

} // namespace

CResDoc::CResDoc(Environment &process, ProcessTables &processTables, const CFrameServices &frameServices)
    : ProjectEnvironment{Environment(process)}, CResModel(ownEnv, processTables), services(frameServices)
{
    ids.observer = &spy;
    tables.LoadOnce(env);
    classes = std::make_shared<ClassCatalogue>();
    (void)SetCurrentFolder(env.ProgramDir());
}

CResDoc::~CResDoc()
{
    spy.doc = nullptr;
    ClearFolder(root); // while the observer of its nodes still exists
}

void CResDoc::LoadClasses()
{
    const QString file = CataloguePath(env);
    if (file.isEmpty())
        return;
    std::shared_ptr<ClassCatalogue> &known = tables.catalogues[file];
    if (!known)
        known = std::make_shared<ClassCatalogue>();
    classes = tables.classes = known;
    std::vector<Finding> errors;
    if (known->loaded || LoadCatalogue(env, file, *known, errors))
        return;
    for (const Finding &error : errors)
        env.Note(error);
    for (const QString &error : CatalogueErrors(errors)) {
        if (env.explain)
            env.Explain(error);
        else
            env.WriteOutput("%s\r\n", qUtf8Printable(error));
    }
}

bool CResDoc::IsCommandRunning(const QString &path) const
{
    return services.GetCommandID && services.GetCommandID(path) != 0;
}

bool CResDoc::BuildFolderTree(const QString &path)
{
    ProjectConfig config;
    ReadConfig(env, path, config);
    if (config.zepVersion < OLDEST_VERSION) {
        const QString problem = !config.problem.isEmpty()
                                    ? config.problem
                                    : QStringLiteral("has the zepversion %1, but the lowest supported version is %2")
                                          .arg(config.zepVersion)
                                          .arg(OLDEST_VERSION);
        env.Explain(QStringLiteral("The project's configuration %1: %2").arg(problem, config.file));
        return false;
    }
    MakeProjectFolders(*this, tables.resolutions.IndexOf(config.width, config.height));
    return true;
}

void CResDoc::Serialize(bool loading)
{
    if (!loading)
        return;
    env.RefreshSettings();
    env.ResetCounts();
    if (!RecoverProjectFiles(env, m_strPathName))
        throw ArchiveException{CAUSE_BAD_DOCUMENT};
    LoadOneState();
    name = FileTitle(m_strPathName);
    spy.doc = this;
    tables.projectPath = m_strPathName;
}

void CResDoc::LoadOneState()
{
    constexpr int MOST_LOADS = 5;
    for (int loads = 1;; ++loads) {
        bool isLoaded = true;
        try {
            Load();
        } catch (const ArchiveException &) {
            isLoaded = false;
        }
        // While a save is between its renames, its journal exists.
        const bool isAtRest = !HasJournal(env, m_strPathName) || RecoverProjectFiles(env, m_strPathName);
        const QString changed = stamps.Since().files.join(QStringLiteral(", "));
        if (isAtRest && isLoaded && changed.isEmpty())
            return;
        if (!isAtRest || changed.isEmpty())
            throw ArchiveException{CAUSE_BAD_DOCUMENT};
        if (loads == MOST_LOADS) {
            env.ExplainFailure(QStringLiteral("another program keeps changing %1 while the project is read; try again "
                                              "when that program has finished")
                                   .arg(changed));
            throw ArchiveException{CAUSE_BAD_DOCUMENT};
        }
        env.Explain(
            QStringLiteral("Another program changed %1 while it was read; the project is read again").arg(changed));
        EmptyTree();
        env.ResetCounts();
    }
}

void CResDoc::EmptyTree()
{
    ClearFolder(root);
    untouchedLayouts.clear();
    leftOutLayouts.clear();
    watches.UnwatchLayouts();
}

void CResDoc::Load()
{
    findings.Clear();
    stamps.Clear();
    if (!env.UseProjectSettings(DirectoryOf(m_strPathName)))
        throw ArchiveException{CAUSE_BAD_DOCUMENT};
    NoteFile(env.settings.ProjectFile());
    filePatterns = FileClassifier::AllPatterns(env.settings);
    LoadClasses();
    const ProjectPaths paths(m_strPathName, env);
    const QString configuration = paths.ConfigPath();
    NoteFile(configuration);
    WatchFile(configuration, WATCH_CONFIGURATION);
    // A project can be opened without its .vcproj file, of which only the path counts. But if the files that belong to
    // the path are missing, the path may be wrong.
    const QString wrongPath = WhyNotProjectFile(m_strPathName);
    const bool hasFiles = PathExists(configuration) && PathExists(paths.Absolute(paths.ResourcePath()));
    const bool isBuilt = (wrongPath.isEmpty() || PathExists(configuration)) && BuildFolderTree(m_strPathName);
    if (!isBuilt || ReadProject(m_strPathName, *this) != 0) {
        if (!wrongPath.isEmpty() && !hasFiles) {
            env.Note({"project.unreadable", Severity::Error, m_strPathName, 0, {}, wrongPath});
            env.Explain(wrongPath);
        }
        throw ArchiveException{CAUSE_BAD_DOCUMENT};
    }
    losses = env.ErrorCount + env.DroppedCount;
    keepOnSave.Forget();
    KeepWhatIsLeftOut();
}

void CResDoc::KeepWhatIsLeftOut()
{
    if (env.ErrorCount + env.DroppedCount == 0) {
        if (const std::optional<Finding> &comment = findings.Comment())
            keepOnSave.Require(FindingText(*comment) + u'.');
        return;
    }
    QString why = QStringLiteral("Opening %1 reported %2 error(s) and left out %3 element(s)")
                      .arg(FileName(m_strPathName))
                      .arg(env.ErrorCount)
                      .arg(env.DroppedCount);
    if (!findings.All().empty()) {
        const Finding &first = findings.All().front();
        why += QStringLiteral(", first in %1, line %2: %3").arg(FileName(first.file)).arg(first.line).arg(first.text);
    }
    keepOnSave.Require(why + u'.');
}

void CResDoc::KeepUnread(const QStringList &paths)
{
    for (const QString &path : paths) {
        if (!stamps.Have(path) && PathExists(path))
            keepOnSave.Require(QStringLiteral("%1 was not read when the project was opened.").arg(path));
    }
}

bool CResDoc::KeepReplaced(const QStringList &files)
{
    const QString problem = keepOnSave.Keep(m_strPathName, files);
    if (!problem.isEmpty())
        env.Explain(problem);
    return problem.isEmpty();
}

bool CResDoc::OnSaveDocument(const QString &path)
{
    env.RefreshSettings();
    ProjectLock lock; // held until the stamps of the written files are taken
    const bool isLocked = lock.Take(env, SavedProjectOf(env, path));
    const Outside outside = isLocked ? TakeInChanges() : Outside::Unreadable;
    const bool isBlocked = outside == Outside::Unreadable || reloadFailed;
    env.ResetCounts();
    if (isLocked && isBlocked) {
        env.Explain(
            QStringLiteral("%1: nothing was saved because the project's files can't be read, and the project that is "
                           "open here is older or incomplete. Repair the files, or close the project and open it again")
                .arg(path));
    }
    lastSave = isBlocked ? RefuseSave(path) : SaveAll(path);
    lock.Release(); // the boxes wait for the user
    if (const QString notice = keepOnSave.Finish(lastSave.write == 0, HasJournal(env, path)); !notice.isEmpty()) {
        if (services.Notify)
            services.Notify(*this, notice);
        else
            env.Explain(notice);
    }
    if (services.user && !IsCommandRunning(path)) {
        if (lastSave.write != 0)
            services.user->MessageBox(QStringLiteral("Failed to save the resources."));
        else if (lastSave.generate != 0)
            services.user->MessageBox(QStringLiteral("Failed to generate header files."));
    }
    if (lastSave.write == 0 && lastSave.generate == 0)
        SetModifiedFlag(false);
    else if (lastSave.write != 0 && outside == Outside::Gone)
        SetModifiedFlag(true); // the content in memory is the only copy
    return true;
}

CResDoc::SaveResult CResDoc::RefuseSave(const QString &path)
{
    env.Report({"project.write-failed", Severity::Error, path, 0, {}, {}}, "failed to write to file \"%s\".",
               qUtf8Printable(path));
    env.EndReport(FileTitle(path), "save");
    return {0, CANNOT_WRITE};
}

CResDoc::SaveResult CResDoc::SaveAll(const QString &path)
{
    FileTransaction files(env, SavedProjectOf(env, path));
    SaveResult result;
    result.generate = GenerateIds(&path);
    result.write = WriteProject(path, *this, files);
    return result;
}

void CResDoc::OnCloseDocument()
{
    if (services.watch)
        services.watch->Stop();
    (void)SetCurrentFolder(env.ProgramDir());
}

void CResDoc::ReportSaveLoadException(const QString &path, const ArchiveException &exception, bool saving)
{
    if (IsCommandRunning(path))
        env.WriteOutput("\r\n### error %d ###\r\n", exception.cause);
    else if (services.user)
        services.user->MessageBox(
            (saving ? QStringLiteral("%1 could not be saved. The output explains why.")
             : reloadFailed
                 ? QStringLiteral(
                       "%1 could not be read again. The open project stays as it was. The output explains why.")
                 : QStringLiteral("%1 could not be opened. The output explains why."))
                .arg(path));
}

int CResDoc::GenerateIds(const QString *path)
{
    if (!path)
        return IDGen::Generate(&ids, QString(), *this);
    const QString folder = DirectoryOf(*path);
    if (!SetCurrentFolder(folder))
        return CANNOT_WRITE;
    if (const QStringList missing = MissingLayouts(*this); !missing.isEmpty()) {
        for (const QString &reason : missing)
            env.Explain(reason);
        env.ExplainFailure(QStringLiteral(
            "the headers are not changed because the IDs would get other numbers without these layouts"));
        return IDGen::Generate(&ids, QString(), *this);
    }
    for (const QString &reason : LeftOutLayouts(*this))
        env.ExplainFailure(reason + QStringLiteral("; the IDs are numbered without it"));
    ExportLayoutTables(env, folder);
    return IDGen::Generate(&ids, env.settings.String("Path", "header_output", ".\\ResID"), *this);
}

QStringList CResDoc::ProjectFiles()
{
    const ProjectContext context(m_strPathName, *this);
    QStringList files{context.ConfigPath(), context.Absolute(context.ResourcePath())};
    if (!refPath.isEmpty())
        files.append(refPath);
    for (const NarrowText &path : LayoutFiles(*this)) {
        if (const QString file = context.Absolute(env.NarrowToWide(path)); !files.contains(file))
            files.append(file);
    }
    return files;
}

void CResDoc::WatchFile(const QString &path, WatchClass watchClass)
{
    watches.Watch(path, watchClass);
    if (watchClass == WATCH_STRINGS)
        refPath = path;
}

void CResDoc::ChooseFiles(quint32 mask, bool multiSelect, const QString &initialName, QStringList &results)
{
    constexpr qsizetype NAME_BUFFER = 2048;
    const DialogFilter filter = DialogFilterOf(*this, mask);
    if (filter.count == 0 || !services.user)
        return;
    const bool isPrefilled = !initialName.isEmpty() && initialName.size() < NAME_BUFFER;
    const QString prefilled = isPrefilled ? ResolvePath(initialName, DirectoryOf(m_strPathName)) : QString();
    for (QString path :
         services.user->OpenFileDialog(filter.text + QStringLiteral("||"), filter.count, multiSelect, prefilled)) {
        path.replace(QStringLiteral(":\\\\"), QStringLiteral(":\\"));
        results.append(path);
    }
}
