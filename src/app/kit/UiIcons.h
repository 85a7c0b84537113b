#pragma once

#include "UiIcon.h"

#include <QIcon>

/// An icon that draws itself in the size and for the screen it is asked for, in colours that suit a light and a dark
/// desktop.
[[nodiscard]] QIcon MakeIcon(UiIcon icon);
