// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"
#include "Finding.h"

#include <functional>
#include <vector>

struct RowNotes;

/// Returns a text with the paths of files in a folder relative to the folder, so that it is the same on all machines.
[[nodiscard]] QString WithRelativePaths(const QString &text, const QString &folder);

/// Takes the findings of rules. Gives each finding the ID and the level of its rule, makes the paths in its text
/// relative to the project's folder, and drops those that the settings ignore. So no rule knows about levels or about
/// what is ignored.
///
///     RuleReport report(settings, [&](Finding &&finding) { ... });
///     report.Begin(*FindRule(u"file-missing"));
///     report.Add({.file = path, .id = id, .text = u"the file doesn't exist"_s});
class RuleReport
{
public:
    using Sink = std::function<void(Finding &&)>;

    /// `checkSettings` must outlive this object.
    RuleReport(const CheckSettings &checkSettings, Sink findingSink);

    /// Sets the rule of the next findings. Returns false if the rule is off; it need not be run then.
    bool Begin(const Rule &next);
    /// Adds a finding of the current rule. Its `code` and `severity` are replaced.
    void Add(Finding finding);
    /// Adds findings, each one of the rule that its `code` names. The current rule isn't defined afterwards.
    void AddFound(const std::vector<Finding> &findings);
    /// The same as `Add` for a finding about a row of the string table, unless the row's notes ignore the rule.
    void AddForRow(const RowNotes &notes, Finding finding);

private:
    const CheckSettings &settings;
    Sink sink;
    const Rule *rule = nullptr;
    Severity severity = Severity::Error;
};
