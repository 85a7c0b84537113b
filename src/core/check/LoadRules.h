// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"

class Environment;
class ProcessTables;

/// Checks a project that can't be opened: returns what the opening reported, and why.
[[nodiscard]] std::vector<Finding> CheckUnopened(Environment &env, const ProcessTables &tables, const QString &path,
                                                 const CheckSettings &settings, const std::vector<Finding> &loaded);
