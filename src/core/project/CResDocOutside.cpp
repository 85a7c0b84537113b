// SPDX-License-Identifier: MIT
// The part of CResDoc that loads what other programs change in the document's files.

#include "CResDoc.h"
#include "Environment.h"
#include "FileClassifier.h"
#include "HostFiles.h"
#include "Paths.h"
#include "ProjectSave.h"
#include "StringFile.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

CResDoc::Attempt CResDoc::TryToLoad() const
{
    Attempt attempt;
    const auto back = qScopeGuard([this, output = std::exchange(env.output, nullptr),
                                   explain = std::exchange(env.explain, nullptr), projectPath = tables.projectPath] {
        env.output = output;
        env.explain = explain;
        env.ResetCounts();
        tables.projectPath = projectPath;
    });
    const Notifier<const Finding &>::Diversion found(
        env.found, [&attempt](const Finding &finding) { attempt.findings.push_back(finding); });
    env.output = [&](QStringView text) { attempt.report += text; };
    env.explain = [&](const QString &text) { attempt.explained.append(text); };
    try {
        const CFrameServices nobody;
        CResDoc document(env, tables, nobody);
        document.m_strPathName = m_strPathName;
        document.Serialize(true);
        attempt.isLoaded = true;
        attempt.losses = env.ErrorCount + env.DroppedCount;
        attempt.untouchedLayouts = document.UntouchedLayouts();
    } catch (const ArchiveException &) { // isLoaded stays false
    }
    return attempt;
}

/// Returns whether the attempt couldn't load a layout file that is loaded here.
bool CResDoc::LacksLayouts(const Attempt &attempt) const
{
    const QByteArrayList here = UntouchedLayouts();
    return std::any_of(attempt.untouchedLayouts.begin(), attempt.untouchedLayouts.end(),
                       [&here](const QByteArray &file) { return !here.contains(file); });
}

QByteArrayList CResDoc::UntouchedLayouts() const
{
    QByteArrayList all;
    for (const auto &[resolution, files] : untouchedLayouts)
        all += files;
    return all;
}

void CResDoc::TellFailure(const Attempt &attempt)
{
    if (env.output)
        env.output(attempt.report);
    for (const Finding &finding : attempt.findings)
        env.Note(finding);
    for (const QString &text : attempt.explained)
        env.Explain(text);
}

CResDoc::Outside CResDoc::TakeInChanges()
{
    compared = stamps.Renewed(); // before the comparison: later changes count as new
    const Outside outside = CompareFiles();
    if (outside == Outside::None || outside == Outside::TakenIn)
        compared = stamps;
    return outside;
}

CResDoc::Outside CResDoc::CompareFiles()
{
    // A save that another process didn't finish is a change like any other.
    unreadable = !RecoverProjectFiles(env, m_strPathName);
    if (unreadable)
        return Outside::Unreadable;
    env.RefreshSettings();
    const bool hasOtherTypes = !IsModified() && FileClassifier::AllPatterns(env.settings) != filePatterns;
    const FileStamps::Changes changes = stamps.Since();
    if (changes.files.isEmpty() && !reloadFailed && !hasOtherTypes)
        return Outside::None;
    const QString files = changes.files.join(u", "_s);
    if (IsModified() && !reloadFailed) { // after a failed reload they can't be saved anyway
        env.Explain(u"Another program has changed %1; the project that is open here has unsaved changes, so it was "
                    "not read again"_s.arg(files));
        keepOnSave.Require(u"Another program has changed %1 since it was opened here."_s.arg(files));
        return Outside::LeftOut;
    }
    const Attempt attempt = TryToLoad();
    const bool isOnlyRemoved = !changes.vanished.isEmpty() && changes.vanished == changes.files;
    if (!reloadFailed && isOnlyRemoved && (!attempt.isLoaded || attempt.losses > losses)) {
        unreadable = true;
        env.Explain(
            u"Another program has removed %1; the open project stays as it was"_s.arg(changes.vanished.join(u", "_s)));
        keepOnSave.Require(u"Another program has changed %1 since it was opened here."_s.arg(files));
        return Outside::Gone;
    }
    unreadable = !attempt.isLoaded || (reloadFailed && LacksLayouts(attempt));
    if (unreadable) {
        TellFailure(attempt);
        env.Explain(files.isEmpty()
                        ? u"The project still can't be read"_s
                        : u"Another program has changed %1, and the project can't be read any more"_s.arg(files));
        return Outside::Unreadable;
    }
    env.Explain(!files.isEmpty() ? u"Another program has changed %1; it was read again"_s.arg(files)
                : reloadFailed   ? u"The project could not be read before; it was read again"_s
                                 : u"The file types in the settings have changed; the project was read again"_s);
    try {
        ReloadResources();
    } catch (const ArchiveException &) { // changed again since the attempt
        return Outside::Unreadable;
    }
    return Outside::TakenIn;
}

std::optional<WatchClass> CResDoc::WatchedClass(quint32 handle) const
{
    const std::optional<ProjectWatches::Watched> watched = watches.Find(handle);
    return watched ? std::optional(watched->watchClass) : std::nullopt;
}

void CResDoc::OnWatchedFileChanged(quint32 handle)
{
    const std::optional<ProjectWatches::Watched> watched = watches.Find(handle);
    if (!watched)
        return;
    env.RefreshSettings();
    env.ResetCounts();
    findings.Clear();
    if (!SetCurrentFolder(DirectoryOf(m_strPathName)))
        return; // the file was removed with its folder: there is nothing to load
    // First loads into another document, because another program may still be writing the file.
    const Attempt attempt = TryToLoad();
    if (!attempt.isLoaded || LacksLayouts(attempt))
        RefuseReload(*watched, attempt);
    const bool wasModified = IsModified();
    if (watched->watchClass == WATCH_LAYOUT)
        ReloadLayouts(watched->layout);
    else if (watched->watchClass == WATCH_STRINGS)
        ReloadStrings();
    else
        ReloadResources();
    if (!wasModified)
        SetModifiedFlag(false); // the reload only changed the document to what the file has
}

void CResDoc::RefuseReload(const ProjectWatches::Watched &watched, const Attempt &attempt)
{
    const QString what = watched.watchClass == WATCH_LAYOUT    ? watched.layout
                         : watched.watchClass == WATCH_STRINGS ? refPath
                                                               : u"The project "_s + m_strPathName;

    reloadFailed = true;
    TellFailure(attempt);
    env.Explain(u"%1 can't be read again; the open project stays as it was, and it can't be saved until its "
                "files can be read"_s.arg(what));
    throw ArchiveException{CAUSE_BAD_DOCUMENT};
}

void CResDoc::ReloadResources()
{
    reloadFailed = true;
    EmptyTree();
    try {
        LoadOneState();
        reloadFailed = false;
    } catch (const ArchiveException &) {
        UpdateAllViews(nullptr); // to show what the failure has left
        SetModifiedFlag(false);  // and not to save it
        throw;
    }
    UpdateAllViews(nullptr);
    SetModifiedFlag(false);
}

void CResDoc::ReloadStrings()
{
    if (reloadFailed)
        return ReloadResources();
    NoteFile(refPath);
    if (const CResFolder *strings = root.FindFolder(KIND_STRINGS, 2))
        treeGoes.Tell(*strings);
    const bool isRead = ReadStringFile(refPath, *this) == 0;
    if (isRead)
        KeepWhatIsLeftOut();
    const CResFolder *selected = selection ? selection->SelectedFolder() : nullptr;
    if (selected && selected->kind == KIND_STRINGS)
        UpdateAllViews(selection->ProjView()); // also after a failure, to show what it has left
    reloadFailed = !isRead;                    // some of the texts may have been replaced already
    if (!isRead)
        throw ArchiveException{CAUSE_BAD_DOCUMENT};
}
