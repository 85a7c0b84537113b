#pragma once

#include <QString>

/// In which direction texts of a language run, by the language's name in English or in the language itself, such as
/// "Arabic"; left to right for a name that isn't known.
[[nodiscard]] Qt::LayoutDirection DirectionOfLanguage(const QString &name);
