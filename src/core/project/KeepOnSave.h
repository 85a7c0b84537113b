#pragma once

#include "Text.h"

#include <QStringList>

#include <utility>

/// Why the next save of a project has to keep copies of the files that it replaces (KeptFiles), and where the save
/// under way has kept them.
class KeepOnSave
{
public:
    /// There is something in the project's files that the document doesn't have. `why` is a sentence for the user.
    void Require(const QString &why) { reason = why; }
    /// The document has all that is in the files.
    void Forget() { reason.clear(); }
    [[nodiscard]] bool IsRequired() const { return !reason.isEmpty(); }

    /// Keeps copies of these files (absolute) before a save replaces them. What went wrong, in a sentence for the user,
    /// or an empty text. The files must not be replaced when something did.
    [[nodiscard]] QString Keep(const QString &projectPath, const QStringList &files);
    /// Ends a save. What the user has to know of the copies, or an empty text. The copies of a save that failed go, and
    /// the next one has to keep them again. They stay when its journal is there (`hasJournal`): the project's next
    /// opening replaces the files.
    [[nodiscard]] QString Finish(bool isSaved, bool hasJournal);

private:
    QString reason; // empty when nothing has to be kept
    QString entry;
};
