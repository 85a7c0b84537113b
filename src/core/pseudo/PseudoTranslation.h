// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class CResDoc;

/// Replaces the texts of one language of an open project, given by name, number or code, by those that PseudoText makes
/// of the source language's. A row that lacks the language gets a text too. Nothing tells the document of it, which
/// must not be saved afterwards. The source language and the kinds of placeholders are those of the check's settings.
/// Returns an empty text, or what is wrong. `isKnown` becomes false if the project has no such language.
[[nodiscard]] QString TranslateToPseudo(CResDoc &document, const QString &language, bool &isKnown);
