// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

/// Returns whether a word is a keyword of C (up to C23) or C++ (up to C++20), or another spelling of an operator, so
/// that a macro of that name breaks sources.
[[nodiscard]] bool IsKeyword(QByteArrayView word);
