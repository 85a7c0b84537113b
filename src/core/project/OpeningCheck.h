#pragma once

#include "Finding.h"

#include <optional>
#include <vector>

class CResDoc;
class Environment;
class ProcessTables;

/// Says whether a project is whole once it has been opened: a save would lose what the opening has left out, and a
/// build would go on with it. Only reads.
///
///     CResDoc *doc = ...;
///     const OpeningCheck check(env, tables, path, doc);
///     for (const Finding &reason : check.AllReasons()) ...
class OpeningCheck
{
public:
    /// `doc` is the document of the project at `path`, null when it didn't open. The counters of `environment` must be
    /// those of the opening. All of it must live longer.
    OpeningCheck(Environment &environment, const ProcessTables &processTables, QString path, CResDoc *document);

    /// What the report of an opening has no line for: conflict markers in the project's files, and a list of sizes that
    /// isn't there.
    [[nodiscard]] std::vector<Finding> SilentReasons() const;
    /// Every reason not to go on: those, the errors of the opening, and what it left out. Empty when the project is
    /// whole.
    [[nodiscard]] std::vector<Finding> AllReasons() const;
    /// Why a pack for the screen `resolution` would have no pictures of its own: the list of sizes lacks it. Nothing
    /// when it is there.
    [[nodiscard]] std::optional<Finding> UnlistedResolution(int width, int height) const;

private:
    [[nodiscard]] QString SizesFile() const;
    void AddConflictMarkers(std::vector<Finding> &reasons) const;
    void AddMissingSizes(std::vector<Finding> &reasons) const;

    Environment &env;
    const ProcessTables &tables;
    QString projectPath;
    CResDoc *doc;
};

/// "FILE:LINE: text", or "FILE: text" for a whole file.
[[nodiscard]] QString FindingText(const Finding &finding);
