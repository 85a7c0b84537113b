// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Explains the result of a pack to the user in one sentence, with what to do if that is known. Empty for 0.
[[nodiscard]] QString PackFailureText(int code);
