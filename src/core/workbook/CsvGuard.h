#pragma once

#include <QString>

// What keeps a spreadsheet from taking a text for a formula: one apostrophe in front.
//
// It guards a text that begins, behind any blanks, with one of = + - @ or their full-width forms, or with a tab or a
// line end. Apostrophes that such a text has in front already are looked through, so "'=a" gets one more and comes back
// as it was; "'tis" needs none.

/// Says whether a text goes into a .csv file with an apostrophe in front.
[[nodiscard]] bool NeedsCsvGuard(QStringView text);

/// The text without the apostrophe that was put in front of it.
[[nodiscard]] QStringView WithoutCsvGuard(QStringView text);
