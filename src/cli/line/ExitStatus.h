// SPDX-License-Identifier: MIT
#pragma once

/// Exit statuses.
enum ExitStatus : int
{
    EXIT_FINE = 0,
    EXIT_FAILED = 1,
    EXIT_WRONG_USE = 2,
    EXIT_NOT_MERGED = 255, ///< of `merge`: nothing is merged. git takes any status up to 128 for a merged file
};

/// Makes FinalStatus return EXIT_NOT_MERGED for every failure.
void SetMergeStatus();
/// Returns the exit status for a failure that isn't one of the command's work.
[[nodiscard]] int FinalStatus(int status);
