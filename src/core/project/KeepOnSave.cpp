// SPDX-License-Identifier: MIT
#include "KeepOnSave.h"

#include "KeptFiles.h"

using namespace Qt::StringLiterals;

QString KeepOnSave::Keep(const QString &projectPath, const QStringList &files)
{
    const QString problem = KeptFiles(projectPath).Keep(files, entry);
    return problem.isEmpty()
               ? problem
               : u"%1 Copies of the files can't be kept, so nothing was saved: %2. Set XDG_STATE_HOME to the "
                 "folder for such copies."_s.arg(reason, problem);
}

QString KeepOnSave::Finish(bool isSaved, bool hasJournal)
{
    const QString kept = std::exchange(entry, {});
    if (!isSaved && !kept.isEmpty() && hasJournal) {
        return u"%1 Open or save the project again to finish this save; the files that it replaces are kept in "
               "%2; \"morvanite-cli kept\" lists and restores them."_s.arg(reason, kept);
    }
    if (!isSaved) {
        KeptFiles::Drop(kept);
        return {};
    }
    const QString why = std::exchange(reason, {});
    return kept.isEmpty()
               ? QString()
               : u"%1 The files that the save replaced are kept in %2; \"morvanite-cli kept\" lists and restores "
                 "them."_s.arg(why, kept);
}
