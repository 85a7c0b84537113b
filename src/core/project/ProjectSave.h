#pragma once

#include "SavedProject.h"

class Environment;

/// What a save of the project at `path` (its ".vcproj" file) has to know of its places: its folder, its journal
/// ".NAME.journal" beside the resource list, and the folders that the settings have it write to.
[[nodiscard]] SavedProject SavedProjectOf(const Environment &env, const QString &path);

/// Finishes a save of the project that a kill or a crash interrupted, so that its files are all of one save; before
/// anything of it is read or written. False, having explained it, when that can't be (FinishInterruptedSave).
[[nodiscard]] bool RecoverProjectFiles(Environment &env, const QString &path);

/// Says whether a save of the project was interrupted, and has it explained then; for what must not write into the
/// project, not even to finish that save. Waits up to 10 s for a save that is under way.
[[nodiscard]] bool HasInterruptedSave(Environment &env, const QString &path);

/// Says whether the journal of a save is there: its files will be replaced although the save has failed.
[[nodiscard]] bool HasJournal(const Environment &env, const QString &path);
