#pragma once

#include "Document.h"

#include <chrono>
#include <optional>
#include <unordered_map>

/// Closes documents that no command has asked for in a while, so that a server doesn't keep every project that it has
/// ever opened in memory. One that has changes stays. Main thread only; not within a command.
///
///     idle.Used(path, now);                  // after each command
///     poll(..., idle.NextLook(now));
///     idle.CloseUnused(now);
class IdleDocuments
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// `unusedFor`: a document is closed when it has not been used for so long; 0 is never. The manager must live
    /// longer.
    IdleDocuments(CDocManager &manager, std::chrono::minutes unusedFor) : documents(manager), limit(unusedFor) {}

    /// A command for the document of that path is over. A path that no document has is passed over.
    void Used(const QString &path, Time now);
    /// Closes what is due; how many that were. A document that it sees for the first time counts as used now.
    int CloseUnused(Time now);
    /// How long to wait for the next document to be due; nothing when there is none to wait for.
    [[nodiscard]] std::optional<std::chrono::milliseconds> NextLook(Time now) const;

private:
    CDocManager &documents;
    std::chrono::minutes limit;
    std::unordered_map<const CDocument *, Time> lastUse; // of open documents
};
