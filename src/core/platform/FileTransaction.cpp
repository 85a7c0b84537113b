// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "FileFault.h"
#include "FilePlace.h"
#include "HostFiles.h"
#include "Paths.h"
#include "SaveJournal.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

/// Returns the name that a file has until it is put in place.
QByteArray NameBefore(const FileReplacement &file)
{
    return TemporaryName(file.Target(), getpid(), file.Number());
}

} // namespace

FileTransaction::FileTransaction(Environment &environment, SavedProject savedProject)
    : env(environment), project(std::move(savedProject))
{
    env.transaction = this;
}

FileTransaction::~FileTransaction()
{
    End();
}

void FileTransaction::End()
{
    if (env.transaction == this)
        env.transaction = nullptr;
    staged.clear();
}

int FileTransaction::Write(QStringView path, const FilePieces &content, IfRefused ifRefused)
{
    const QByteArray host = HostPath(path);
    QByteArray place = FollowLinks(host);
    if (!project.folder.isEmpty() && !StaysInProject(host, HostPath(project.folder), place) && !project.followsLinks) {
        env.ExplainFailure(WhyOutside(ResolvePath(path.toString(), project.folder), place));
        return ELOOP;
    }
    FileReplacement file;
    const int error = file.WriteAt(place, content, leftovers);
    if (error != 0) {
        Explain(path, error);
        return error;
    }
    std::erase_if(staged, [&](const Staged &item) { return item.file.Target() == file.Target(); });
    staged.push_back({std::move(file), path.toString(), ifRefused});
    return 0;
}

void FileTransaction::Explain(QStringView path, int error)
{
    env.ExplainFailure(WhyNotWritten(path.toString(), error));
}

QStringList FileTransaction::Replaced() const
{
    QStringList replaced;
    for (const Staged &item : staged) {
        if (item.file.Replaces())
            replaced.append(ResolvePath(item.path, CurrentFolder()));
    }
    return replaced;
}

bool FileTransaction::IsUnchanged(const QString &absolute) const
{
    return std::any_of(staged.begin(), staged.end(), [&](const Staged &item) {
        return item.file.IsSame() && IsSamePath(ResolvePath(item.path, CurrentFolder()), absolute);
    });
}

std::optional<QString> FileTransaction::Commit(const std::function<bool()> &mayReplace)
{
    const SignalHold hold;
    SaveJournal journal;
    std::optional<QString> refused;
    if (const int error = BeginJournal(journal)) {
        refused = project.journal;
        if (error != EBUSY)
            Explain(project.journal, error);
    } else if (!staged.empty() && mayReplace && !mayReplace()) {
        refused = staged.front().path;
        journal.End();
    } else {
        refused = RenameAll();
        const bool isDone = !refused || TakeBack();
        SyncFolders();
        if (isDone)
            journal.End();
        if (isDone && refused) {
            for (const Staged &item : staged) {
                if (!item.file.IsSame())
                    unlink(NameBefore(item.file).constData());
            }
        }
    }
    End();
    return refused;
}

/// A single file needs no journal: its rename is atomic.
int FileTransaction::BeginJournal(SaveJournal &journal)
{
    std::vector<SaveJournal::Entry> entries;
    for (const Staged &item : staged) {
        if (!item.file.IsSame())
            entries.push_back({item.file.Target(), item.file.Number(), item.ifRefused == IfRefused::GoOn});
    }
    return project.journal.isEmpty() || entries.size() < 2 ? 0 : journal.Begin(env, project, entries);
}

std::optional<QString> FileTransaction::RenameAll()
{
    for (Staged &item : staged) {
        if (item.file.IsSame())
            continue;
        (void)item.file.KeepOld();
        const int error = item.file.PutInPlace();
        item.isInPlace = error == 0;
        if (error == 0)
            continue;
        Explain(item.path, error);
        if (item.ifRefused == IfRefused::Stop)
            return item.path;
    }
    return std::nullopt;
}

/// Restores the old content of the files that were renamed. Returns false when that is impossible, so that a later save
/// must finish this one.
bool FileTransaction::TakeBack()
{
    bool isPossible = std::all_of(staged.begin(), staged.end(),
                                  [](const Staged &item) { return !item.isInPlace || item.file.CanTakeBack(); });
    // First all files get their temporary names again: if the program is killed after that, the journal can finish the
    // save.
    isPossible = isPossible && std::all_of(staged.begin(), staged.end(), [&](const Staged &item) {
                     return !item.isInPlace || project.journal.isEmpty() ||
                            link(item.file.Target().constData(), NameBefore(item.file).constData()) == 0;
                 });
    for (auto item = staged.rbegin(); isPossible && item != staged.rend(); ++item) {
        if (const int error = item->isInPlace ? item->file.TakeBack() : 0) {
            Explain(item->path, error);
            isPossible = false;
        }
    }
    if (!isPossible && !project.journal.isEmpty()) {
        for (Staged &item : staged)
            item.file.LeaveTemporary();
        env.Explain(u"the old content of the other files can't be restored; open or save the project again to finish "
                    "this save"_s);
        return false;
    }
    return true;
}

void FileTransaction::SyncFolders() const
{
    QByteArray lastFolder;
    for (const Staged &item : staged) {
        if (const QByteArray folder = item.file.Folder(); item.isInPlace && folder != lastFolder) {
            SyncFolder(folder);
            lastFolder = folder; // syncs once for consecutive files of the same folder
        }
    }
}
