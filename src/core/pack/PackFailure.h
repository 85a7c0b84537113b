// SPDX-License-Identifier: MIT
#pragma once

#include "CodeText.h"

#include <QString>

#include <span>

/// Explains the result of a pack to the user in one sentence, with what to do if that is known. Empty for 0.
[[nodiscard]] QString PackFailureText(int code);

/// All negative codes of a pack.
[[nodiscard]] std::span<const CodeText> PackFailures();
