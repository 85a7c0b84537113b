// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"

#include <QStringList>

class Environment;
class ProcessTables;
class RuleReport;
struct CheckInput;

// The rules whose findings come from the load of the project. The load reports what it finds (Environment::found), and
// each of its codes belongs to one rule.

/// Checks a project that can't be opened: returns what the opening reported, and at least one finding of the rule
/// "project-unreadable", which no setting switches off here. `explained` is what the opening explained in words.
[[nodiscard]] std::vector<Finding> CheckUnopened(Environment &env, const ProcessTables &tables, const QString &path,
                                                 const CheckSettings &settings, const std::vector<Finding> &loaded,
                                                 const QStringList &explained);

void IdConflict(const CheckInput &input, RuleReport &report);
void ElementDropped(const CheckInput &input, RuleReport &report);
void ConflictMarkerLeft(const CheckInput &input, RuleReport &report);
void StringFileForm(const CheckInput &input, RuleReport &report);
void SettingsMissing(const CheckInput &input, RuleReport &report);
void ResolutionUnlisted(const CheckInput &input, RuleReport &report);

/// Returns whether a finding of the load says that a layout file, or a layout of it, can't be read.
[[nodiscard]] bool IsLayoutFault(const Finding &finding);
/// Returns whether a load with these findings left out resources, so that their IDs aren't known.
[[nodiscard]] bool HasLeftOutResources(const std::vector<Finding> &loaded);
/// Returns whether a load with these findings left something out, so that a save would write other files.
[[nodiscard]] bool HasLeftSomethingOut(const std::vector<Finding> &loaded);
