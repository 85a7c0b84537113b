#pragma once

#include "Text.h"

#include <vector>

class Environment;

/// The language that a column header names: "name(number)" gives the number and cuts `text` to the name; any other text
/// is looked up in the language table. -1 when it isn't known.
[[nodiscard]] int ParseLanguageHeader(const Environment &env, QString &text);

/// A language that a project can have.
struct KnownLanguage
{
    QString name;
    int number;
};
/// The lines "name=number" of the language table in their order. A line without a number, or with a name of more than
/// 64 characters, is skipped.
[[nodiscard]] std::vector<KnownLanguage> KnownLanguages(const Environment &env);
