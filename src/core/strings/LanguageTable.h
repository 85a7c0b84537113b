// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <vector>

class Environment;

/// Returns the number of the language in a column header. For "name(number)" returns the number and cuts `text` to the
/// name; looks up any other text in the language table. Returns -1 when the language isn't known.
[[nodiscard]] int ParseLanguageHeader(const Environment &env, QString &text);

/// A language that a project can have.
struct KnownLanguage
{
    QString name;
    int number;
    QString code; ///< its BCP 47 tag, such as "pt-BR"; empty if the table has none
};
/// Returns the languages of the lines "name=number" of the language table, in their order, with the codes of the lines
/// "number=code". Skips lines without a number or with a name of more than 64 characters.
[[nodiscard]] std::vector<KnownLanguage> KnownLanguages(const Environment &env);
