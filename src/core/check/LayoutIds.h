// SPDX-License-Identifier: MIT
#pragma once

#include "ScreenSize.h"
#include "Text.h"

#include <QSet>

#include <vector>

class CResDoc;

/// Returns those of the names that the values of the components' properties have, such as "@ID_LOGO" and
/// "{@ID_UP, @ID_DOWN}", in the layouts of some screens and in those of no screen. All layouts count if there are no
/// screens.
[[nodiscard]] QSet<NarrowText> IdsInLayouts(const CResDoc &document, const QSet<NarrowText> &names,
                                            const std::vector<ScreenSize> &screens);
