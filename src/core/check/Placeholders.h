// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <QVarLengthArray>

#include <bitset>

// The placeholders in the texts of an application: those of printf, those in braces, and numbered ones.

/// A placeholder of printf, such as "%-5.2f", "%1$s" or "%%".
struct PrintfPlaceholder
{
    struct Argument
    {
        quint16 type = 0; ///< the C type that printf takes; equal for "%d" and "%i"; 0 for none
        int number = 0;   ///< from 1; 0 for the next one
    };
    qsizetype size = 0;    ///< of the whole placeholder; 0 if there is none
    Argument arguments[3]; ///< the width and the precision if they are "*", and the value
    bool isPercent = false;
};

/// Returns the placeholder that begins with the "%" at a place of a text. A percent sign of prose isn't one, such as in
/// "50% of it" or "50 % d'autonomie", although printf would take it for one.
[[nodiscard]] PrintfPlaceholder PrintfPlaceholderAt(QStringView text, qsizetype at);

/// A numbered placeholder, such as "%1" or "%L1".
struct NumberedPlaceholder
{
    qsizetype size = 0; ///< 0 if there is none
    int number = 0;     ///< from 0 to 99
};

/// Returns the numbered placeholder that begins with the "%" at a place of a text.
[[nodiscard]] NumberedPlaceholder NumberedPlaceholderAt(QStringView text, qsizetype at);

/// A placeholder in braces, such as "{}", "{0}", "{name}", "{0:>5}" or "{n, plural, one {...} other {...}}".
struct BracePlaceholder
{
    qsizetype size = 0; ///< 0 if there is none
    QStringView name;   ///< empty for the next one
};

/// Returns the placeholder that begins with the "{" at a place of a text.
[[nodiscard]] BracePlaceholder BracePlaceholderAt(QStringView text, qsizetype at);

/// Returns those of the kinds (PlaceholderKind) that a source text uses. "%1" alone is a numbered placeholder and "%5d"
/// one of printf; "%1s" is a numbered one, since a width of 1 has no use.
[[nodiscard]] quint32 PlaceholderKindsOf(QStringView source, quint32 allowed);

/// Returns the size of the placeholder of one of the kinds, or of the escape sequence, that begins at a place of a
/// text; 0 if none does.
[[nodiscard]] qsizetype MarkupSizeAt(QStringView text, qsizetype at, quint32 kinds);

/// Returns whether two texts have the same placeholders, as they are written and in the same order. A fast test: if it
/// returns false, the placeholders can still be equal in effect.
[[nodiscard]] bool HaveSamePlaceholders(QStringView a, QStringView b);

/// The arguments that printf reads for a text.
struct PrintfUse
{
    struct Argument
    {
        quint16 type = 0; ///< 0 if the text doesn't use it
        QStringView text; ///< the first placeholder that uses it
    };
    QVarLengthArray<Argument, 16> arguments; ///< by number, from 1
    bool hasPair = false;                    ///< "%%"
    bool isMixed = false;   ///< has both numbered and other placeholders, or one argument with two types
    qsizetype invalid = -1; ///< the place of the first "%" that doesn't begin a placeholder; -1 if there is none

    /// Returns whether printf can use the text, and the text has something for it.
    [[nodiscard]] bool IsFormat() const { return invalid < 0 && !isMixed && (hasPair || !arguments.isEmpty()); }
};

/// Scans a text for placeholders of printf. With `hasNumbered`, "%1s" is a numbered placeholder and left out.
[[nodiscard]] PrintfUse PrintfUseOf(QStringView text, bool hasNumbered);

/// The numbers of numbered placeholders.
using NumberedUse = std::bitset<100>;

[[nodiscard]] NumberedUse NumberedUseOf(QStringView text);

/// The placeholders in braces of a text.
struct BraceUse
{
    QVarLengthArray<QStringView, 16> names; ///< sorted, each once, without the empty one
    int unnamed = 0;                        ///< how many have no name
};

[[nodiscard]] BraceUse BraceUseOf(QStringView text);
