// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

/// What the description of a row tells the check, in one bracket at its end:
/// "[length:12, width:80, lines:2, ignore:end-punctuation, same]". Views into the description.
struct RowNotes
{
    int length = 0;          ///< the most characters of a text; 0 for no limit
    int width = 0;           ///< the most pixels of a line; 0 for no limit
    int lines = 0;           ///< the most lines of a text; 0 for no limit
    bool isSame = false;     ///< the translations may be equal to the source text
    bool hasUnknown = false; ///< the bracket has a word without meaning
    QStringView words;       ///< all that is in the bracket

    /// Returns whether the row ignores a rule.
    [[nodiscard]] bool Ignores(QStringView ruleId) const;
};

/// Reads the notes at the end of a description. A bracket that has no known word isn't a note but text.
[[nodiscard]] RowNotes NotesOf(QStringView description);

/// Calls `tell(word)` with each word of the notes that has no meaning.
void ForEachUnknownNote(const RowNotes &notes, const std::function<void(QStringView word)> &tell);
