// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"
#include "Finding.h"

class CResDoc;
class CStringRes;
class TextContext;

/// What a check looks at. All of it must outlive the check.
struct CheckInput
{
    CResDoc &document; ///< the open project; the check doesn't change it
    const CheckSettings &settings;
    const TextContext &texts;
    const std::vector<Finding> &loaded; ///< the findings of the load of the project
    std::vector<ScreenSize> screens;    ///< the screens that are checked; empty for all that the project uses
    QString
        oldHeader; ///< the absolute path of a header of an earlier version, for "id-renumbered"; empty if there is none
    /// The rows of the string table whose source texts another row may have too (RowsWithEqualSource). `CheckProject`
    /// sets it for the rules.
    std::vector<const CStringRes *> repeatedRows = {};
};
