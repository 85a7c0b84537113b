// SPDX-License-Identifier: MIT
#pragma once

struct packinfo;
class CResModel;
class OutputGuard;

/// Compares every file of the project that the phases of this pack don't read with the outputs: its own files, its
/// lists, the files that a save generates, and the images of other resolutions.
void CompareProjectFiles(OutputGuard &guard, const packinfo &info, const CResModel &document);
