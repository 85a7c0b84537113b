// SPDX-License-Identifier: MIT
#pragma once

#include "Document.h"

#include <chrono>
#include <optional>
#include <unordered_map>

/// Closes documents that no command has used for some time, so that a server doesn't keep every project that it has
/// ever opened in memory. Documents with changes stay open. Main thread only; not within a command.
///
///     idle.Used(path, now);                  // after each command
///     poll(..., idle.NextLook(now));
///     idle.CloseUnused(now);
class IdleDocuments
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// `unusedFor`: a document is closed when it hasn't been used for this time; 0 means never. The manager must
    /// outlive this object.
    IdleDocuments(CDocManager &manager, std::chrono::minutes unusedFor) : documents(manager), limit(unusedFor) {}

    /// Records that a command for the document with that path has ended. A path without a document is ignored.
    void Used(const QString &path, Time now);
    /// Closes the documents that are due. Returns their number. A document that it sees for the first time counts as
    /// used now.
    int CloseUnused(Time now);
    /// The time until the next document is due; nothing if there is none.
    [[nodiscard]] std::optional<std::chrono::milliseconds> NextLook(Time now) const;

private:
    CDocManager &documents;
    std::chrono::minutes limit;
    std::unordered_map<const CDocument *, Time> lastUse; // of open documents
};
