// SPDX-License-Identifier: MIT
#pragma once

#include "SavedProject.h"

class Environment;

/// Returns what a save of the project at `path` (its ".vcproj" file) needs to know about its places: its folder, its
/// journal ".NAME.journal" beside the resource list, and the folders to which it writes according to the settings.
[[nodiscard]] SavedProject SavedProjectOf(const Environment &env, const QString &path);

/// Finishes a save of the project that a kill or a crash interrupted, so that all its files are from the same save.
/// Call it before anything of the project is read or written. On failure, explains it and returns false
/// (FinishInterruptedSave).
[[nodiscard]] bool RecoverProjectFiles(Environment &env, const QString &path);

/// Returns whether a save of the project was interrupted, and explains it if so. For code that must not write into the
/// project, not even to finish that save. Waits up to 10 s for a save that is running.
[[nodiscard]] bool HasInterruptedSave(Environment &env, const QString &path);

/// Returns whether the journal of a save exists. If so, the files will still be replaced although the save has failed.
[[nodiscard]] bool HasJournal(const Environment &env, const QString &path);
