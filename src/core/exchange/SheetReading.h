// SPDX-License-Identifier: MIT
#pragma once

#include "ImportFile.h"
#include "Sheet.h"
#include "Workbook.h"

#include <atomic>
#include <future>

/// Reads a sheet of a workbook, in a thread of its own if the system has one, while the caller does other work, such as
/// loading the project.
class SheetReading
{
public:
    /// Begins. `wanted` is the sheet's name or number, as in `Sheet::wanted`.
    SheetReading(ImportFile workbook, const QString &wanted);
    /// Ends the reading early, and waits for its end.
    ~SheetReading() { stop = true; }
    SheetReading(const SheetReading &) = delete;
    SheetReading &operator=(const SheetReading &) = delete;

    [[nodiscard]] const ImportFile &File() const { return file; }
    /// Waits for the end, and moves the sheet into `to`. Call it only once.
    [[nodiscard]] WorkbookResult Take(Sheet &to);

private:
    const ImportFile file;
    std::atomic<bool> stop = false;
    Sheet sheet;
    std::future<WorkbookResult> result; // the last member: its destructor waits
};
