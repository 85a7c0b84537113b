// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"
#include "UiIcon.h"

/// Returns the icon for findings of a severity.
[[nodiscard]] constexpr UiIcon IconOf(Severity severity)
{
    return severity == Severity::Error ? UiIcon::Error : severity == Severity::Warning ? UiIcon::Warning : UiIcon::Note;
}
