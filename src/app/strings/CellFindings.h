// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QVariant>

#include <vector>

class ProjectCheck;
class StringTable;
struct Finding;

/// Returns the findings about a cell of the table, the most serious first. The cell of the ID has those about the whole
/// row. Valid until the check changes.
[[nodiscard]] std::vector<const Finding *> FindingsOfCell(const ProjectCheck &check, const StringTable &table, int row,
                                                          int col);

/// Returns the icon for these findings (ROLE_MARK): that of the first. Nothing without findings.
[[nodiscard]] QVariant MarkOf(const std::vector<const Finding *> &findings);

/// Returns "error: text [rule]" for each finding.
[[nodiscard]] QStringList FindingLines(const std::vector<const Finding *> &findings);
