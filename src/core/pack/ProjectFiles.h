#pragma once

struct packinfo;
class CResModel;
class OutputGuard;

/// Compares with the outputs every file of the project that the phases of this pack don't read: its own files, its
/// lists, what a save generates, and the images of other resolutions.
void CompareProjectFiles(OutputGuard &guard, const packinfo &info, const CResModel &document);
