// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"
#include "RowNotes.h"

/// Returns the limits of a row: those of its notes, and otherwise those of the settings for its ID.
[[nodiscard]] TextLimit LimitOf(const CheckSettings &settings, QStringView id, const RowNotes &notes);
