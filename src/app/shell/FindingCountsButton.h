// SPDX-License-Identifier: MIT
#pragma once

#include "ProjectCheck.h"

#include <QToolButton>

#include <optional>

/// The numbers of findings in the status bar. With little room it has only the number of the most serious ones; the
/// tool tip has all. Hidden while no project is checked.
class FindingCountsButton : public QToolButton
{
public:
    explicit FindingCountsButton(QWidget *parent);

    /// Shows the numbers; none while there is no check. `isRunning` says that the first check hasn't ended. Fast enough
    /// to be called each time before the program waits for the user.
    void Show(const std::optional<FindingCounts> &shown, bool isRunning);

private:
    std::optional<FindingCounts> counts;
    bool isFirstRun = false;
    int room = 0; // width of the status bar
};
