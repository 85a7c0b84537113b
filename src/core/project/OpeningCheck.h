// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

#include <optional>
#include <vector>

class CResDoc;
class Environment;
class ProcessTables;

/// Checks whether a project was opened completely: a save would lose what the opening left out, and a build would go on
/// without it. Changes nothing.
///
///     CResDoc *doc = ...;
///     const OpeningCheck check(env, tables, path, doc);
///     for (const Finding &reason : check.AllReasons()) ...
class OpeningCheck
{
public:
    /// `document` is the document of the project at `path`, null when it didn't open. The counters of `environment`
    /// must be those of the opening. The environment, the tables and the document must outlive this object.
    OpeningCheck(Environment &environment, const ProcessTables &processTables, QString path, CResDoc *document);

    /// Returns the reasons for which the report of an opening has no line: conflict markers in the project's files, and
    /// a missing list of sizes.
    [[nodiscard]] std::vector<Finding> SilentReasons() const;
    /// Returns every reason not to go on: the reasons above, the errors of the opening, and what it left out. Empty
    /// when the project is complete.
    [[nodiscard]] std::vector<Finding> AllReasons() const;
    /// Returns why a pack for a screen of this size would have no images of its own: the list of sizes lacks it.
    /// Returns nullopt when the list has it.
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

/// Returns "FILE:LINE: text", or "FILE: text" for a finding about a whole file.
[[nodiscard]] QString FindingText(const Finding &finding);
