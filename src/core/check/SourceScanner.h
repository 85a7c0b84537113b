// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

/// A name in a C or C++ source.
struct SourceName
{
    QByteArrayView text;
    int line = 0;           ///< from 1
    QByteArrayView before;  ///< what is before it in its line
    bool isDefined = false; ///< it is the name of a macro that this source defines
};

/// Finds the names (identifiers) in a C or C++ source. Skips comments, strings, characters, numbers and the lines of
/// #include, #error and #warning. Macros aren't expanded and #if isn't evaluated, so the names in all branches and in
/// the bodies of macros count. A name that is only a part of another, beside ##, doesn't.
///
///     SourceScanner scanner(bytes);
///     for (SourceName name; scanner.Next(name);) ...
class SourceScanner
{
public:
    /// The bytes must outlive this object and the names.
    explicit SourceScanner(QByteArrayView bytes) : source(bytes) {}

    /// Finds the next name. Returns false at the end of the source.
    [[nodiscard]] bool Next(SourceName &name);

private:
    [[nodiscard]] char At(qsizetype place) const { return place < source.size() ? source[place] : '\0'; }
    void SkipOther();
    [[nodiscard]] bool SkipComment();
    [[nodiscard]] bool SkipJoinedLine();
    void SkipToLineEnd();
    void SkipQuoted(char quote);
    void SkipRaw();
    void SkipNumber();
    void ReadDirective();
    [[nodiscard]] QByteArrayView TakeWord();
    [[nodiscard]] bool IsPastedWithNext() const;
    void BeginLine();

    QByteArrayView source;
    qsizetype at = 0;
    qsizetype lineStart = 0;
    int line = 1;
    bool isAtLineStart = true; // nothing but blanks and comments in the line so far
    bool isAfterPaste = false; // right behind ##
    bool isAfterDefine = false;
};
