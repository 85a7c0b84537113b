// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>

/// The three versions of a file: the common ancestor, the version to merge into, and the other one.
enum MergeSide : size_t
{
    BASE,
    OURS,
    THEIRS,
    MERGE_SIDES,
};

/// The lines around both versions of a row that is in conflict.
inline constexpr char MARKER_OURS[] = "<<<<<<< ours";
inline constexpr char MARKER_BETWEEN[] = "=======";
inline constexpr char MARKER_THEIRS[] = ">>>>>>> theirs";

/// The sides as messages name them.
inline constexpr const char *SIDE_NAMES[MERGE_SIDES] = {"base", "ours", "theirs"};

/// What becomes of a text that both sides have changed in different ways.
enum class OnConflict
{
    Mark,     ///< the merged file has both versions of its row, between conflict markers
    KeepBase, ///< it stays as it is in the base, so that the merged file can be the base of another merge
};

/// The result of merging three versions of a file.
struct MergeResult
{
    QString refusal;       ///< why the files can't be merged; empty if they were
    QByteArray bytes;      ///< the merged file; after a refusal both versions as one conflict, or empty
    QStringList conflicts; ///< which row each conflict is about, and what both sides changed in it
};
