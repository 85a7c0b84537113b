// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QStringList>

#include <utility>

/// The reason why the next save of a project must keep copies of the files that it replaces (KeptFiles), and the place
/// where the current save has kept them.
class KeepOnSave
{
public:
    /// Call this when the project's files contain something that the document doesn't have. `why` is a sentence for the
    /// user.
    void Require(const QString &why) { reason = why; }
    /// Call this when the document has everything that is in the files.
    void Forget() { reason.clear(); }
    [[nodiscard]] bool IsRequired() const { return !reason.isEmpty(); }

    /// Keeps copies of these files (absolute paths) before a save replaces them. Returns an empty text, or what went
    /// wrong, in a sentence for the user. The files must not be replaced when something went wrong.
    [[nodiscard]] QString Keep(const QString &projectPath, const QStringList &files);
    /// Ends a save. Returns what the user has to know about the copies, or an empty text. If the save failed, removes
    /// the copies, and the next save must keep copies again. The copies stay if the journal of the save exists
    /// (`hasJournal`), because the files are replaced when the project is opened next.
    [[nodiscard]] QString Finish(bool isSaved, bool hasJournal);

private:
    QString reason; // empty when no copies are needed
    QString entry;
};
