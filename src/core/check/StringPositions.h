// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

#include <vector>

class CResDoc;

/// Sets the place of each finding about a row of the string table, which is a finding with an ID and no file: the
/// string file, the line of the row, and, with a language, the column of the text. A column that is set without a
/// language is one of the row's description, and becomes one of the line. Rows that aren't in the file yet get
/// line 0. Reads the file only if there is such a finding.
void PlaceInStringFile(CResDoc &document, std::vector<Finding> &findings);
