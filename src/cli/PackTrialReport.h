// SPDX-License-Identifier: MIT
#pragma once

#include "PackTrial.h"

class Session;

/// Prints the sizes that a trial of a pack has found to standard output, and its faults to standard error. `output` is
/// the path of the file that a pack would write.
void ReportTrial(Session &session, const PackTrial &trial, const QString &output);
