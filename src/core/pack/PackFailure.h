#pragma once

#include <QString>

/// What the result of a pack means, for the person who reads it: in one sentence, with what to do where that can be
/// told. Empty for 0.
[[nodiscard]] QString PackFailureText(int code);
