// SPDX-License-Identifier: MIT
#pragma once

#include "UiIcon.h"

#include <QIcon>

/// An icon that is drawn at the requested size and scale, in colours that suit both a light and a dark desktop.
[[nodiscard]] QIcon MakeIcon(UiIcon icon);
