// How a document takes in what other programs change in its files.

#include "CResDoc.h"
#include "Environment.h"
#include "FileClassifier.h"
#include "ProjectSave.h"

#include <QScopeGuard>

#include <utility>

using namespace Qt::StringLiterals;

CResDoc::Attempt CResDoc::TryToLoad() const
{
    Attempt attempt;
    const auto back =
        qScopeGuard([this, output = std::exchange(env.output, nullptr), explain = std::exchange(env.explain, nullptr)] {
            env.output = output;
            env.explain = explain;
            env.ResetCounts();
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
    } catch (const ArchiveException &) { // which the attempt tells
    }
    return attempt;
}

CResDoc::Outside CResDoc::TakeInChanges()
{
    compared = stamps.Renewed(); // before the comparison: what changes from now on counts as new
    const Outside outside = CompareFiles();
    if (outside == Outside::None || outside == Outside::TakenIn)
        compared = stamps;
    return outside;
}

CResDoc::Outside CResDoc::CompareFiles()
{
    // What a save of another process left undone is a change like any other.
    unreadable = !RecoverProjectFiles(env, m_strPathName);
    if (unreadable)
        return Outside::Unreadable;
    env.RefreshSettings();
    const bool hasOtherTypes = !IsModified() && FileClassifier::AllPatterns(env.settings) != filePatterns;
    const FileStamps::Changes changes = stamps.Since();
    if (changes.files.isEmpty() && !treeLost && !hasOtherTypes)
        return Outside::None;
    const QString files = changes.files.join(u", "_s);
    if (IsModified() && !treeLost) { // a failed reload has taken the changes here already
        env.Explain(u"Another program has changed %1; what is open here has changes that aren't saved, so that was not "
                    "taken in"_s.arg(files));
        keepOnSave.Require(u"Another program has changed %1 since it was opened here."_s.arg(files));
        return Outside::LeftOut;
    }
    const Attempt attempt = TryToLoad();
    const bool isOnlyRemoved = !changes.vanished.isEmpty() && changes.vanished == changes.files;
    if (!treeLost && isOnlyRemoved && (!attempt.isLoaded || attempt.losses > losses)) {
        unreadable = true;
        env.Explain(
            u"Another program has removed %1; the project stays open as it was"_s.arg(changes.vanished.join(u", "_s)));
        keepOnSave.Require(u"Another program has changed %1 since it was opened here."_s.arg(files));
        return Outside::Gone;
    }
    unreadable = !attempt.isLoaded;
    if (unreadable) {
        if (env.output)
            env.output(attempt.report);
        for (const Finding &finding : attempt.findings)
            env.Note(finding);
        for (const QString &text : attempt.explained)
            env.Explain(text);
        env.Explain(files.isEmpty()
                        ? u"The project still can't be read"_s
                        : u"Another program has changed %1, and the project can't be read any more"_s.arg(files));
        return Outside::Unreadable;
    }
    env.Explain(!files.isEmpty() ? u"Another program has changed %1; it was read again"_s.arg(files)
                : treeLost       ? u"The project could not be read before; it was read again"_s
                                 : u"The settings have other types of files now; the project was read again"_s);
    try {
        ReloadResources();
    } catch (const ArchiveException &) { // changed again since the attempt
        return Outside::Unreadable;
    }
    return Outside::TakenIn;
}
