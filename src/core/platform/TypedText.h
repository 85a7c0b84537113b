#pragma once

#include "Text.h"

/// Why this program can't use what somebody typed on its command line: texts and paths are UTF-8 here, and a name that
/// is none could become that of another file. Shows the bytes that are no UTF-8 as "\xNN". Empty when it can be used.
[[nodiscard]] QString WhyNotUsable(QByteArrayView typed);
