#pragma once

#include "Text.h"

class Environment;

/// The language that a column header names: "name(number)" gives the number and cuts `text` to the name; any other text
/// is looked up in the language table. -1 when it isn't known.
[[nodiscard]] int ParseLanguageHeader(const Environment &env, QString &text);
