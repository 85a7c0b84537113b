// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// An apostrophe before a text keeps a spreadsheet program from reading the text as a formula.
//
// A text needs it if it begins, after any blanks, with one of = + - @ or their full-width forms, or with a tab or a
// line end. Apostrophes that are before such a text already are skipped, so "'=a" gets one more and is read back
// unchanged;
// "'tis" needs none.

/// Returns whether a text is written to a .csv file with an apostrophe before it.
[[nodiscard]] bool NeedsCsvGuard(QStringView text);

/// Returns the text without the apostrophe that was added before it.
[[nodiscard]] QStringView WithoutCsvGuard(QStringView text);
