// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

class CResModel;
class IDRecord;
class RuleReport;

/// Adds a finding about an ID to a report, unless the notes of the string's row ignore the rule. It gets its file and
/// line later (PlaceInLists). `basis` identifies what is wrong; without it, it is the ID alone.
void AddForId(RuleReport &report, const CResModel &model, const IDRecord &record, const QString &text,
              quint64 basis = 0);

/// Sets the file and the line of each finding that has an ID but no file: where the resource list or a layout file has
/// the resource. Leaves findings about strings as they are. Reads the files only if there is such a finding.
void PlaceInLists(class CResDoc &document, std::vector<Finding> &findings);
