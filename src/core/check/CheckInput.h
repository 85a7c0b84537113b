// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"
#include "DeviceSizes.h"
#include "Finding.h"
#include "PictureAlpha.h"

class CheckFacts;
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
    /// The absolute path of a header of an earlier version, for "id-renumbered"; empty if there is none.
    QString oldHeader;
    CountAlpha countAlpha = nullptr; ///< for "image-alpha-few"; null if the decoders of pictures can't be loaded
    CheckFacts *facts = nullptr;     ///< what several rules look at; CheckProject sets it
    /// The rows of the string table whose source texts another row may have too (RowsWithEqualSource). CheckProject
    /// sets it for the rules.
    std::vector<const CStringRes *> repeatedRows = {};
    MeasureLayouts measureLayouts = nullptr; ///< for "payload-budget", which finds nothing without it
};

/// Returns whether the screen of a resolution index is among those that are checked. Always true for -1, no screen.
[[nodiscard]] bool ChecksScreen(const CheckInput &input, qint32 resolution);
