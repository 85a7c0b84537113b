// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>

#include <array>

/// Searches many texts for one text, without an index and without copying the texts.
///
/// If case is ignored, characters are compared by their Unicode simple case folding, which maps one character to one
/// character: "k" finds the Kelvin sign, but "ss" doesn't find "ß". An empty text is in every text.
///
///     const TextFinder finder(u"wetter"_s, /*matchCase=*/false);
///     if (finder.In(cell->Text())) ...
class TextFinder
{
public:
    TextFinder(const QString &text, bool matchCase);

    [[nodiscard]] bool In(QStringView text) const { return IndexIn(text) >= 0; }
    /// Returns the first index, from `from` on, at which the searched text is found; -1 if there is none. `from` must
    /// be 0 or more. The text that is found has the same length as the searched text.
    [[nodiscard]] qsizetype IndexIn(QStringView text, qsizetype from = 0) const;
    /// The same as `In`, for ASCII characters of one byte each.
    [[nodiscard]] bool InAscii(QByteArrayView text) const;
    [[nodiscard]] qsizetype Size() const { return needle.size(); }

private:
    static constexpr size_t MOST_CASES = 4; // of one character, such as "θ"
    [[nodiscard]] qsizetype NextFirst(const char16_t *text, qsizetype from, qsizetype end) const;
    [[nodiscard]] bool IsAt(const char16_t *text) const;

    QString needle; // case-folded if case is ignored
    bool matchesCase;
    bool isAscii; // `needle`
    // The units that fold to the first character of `needle`. `firstCount` of them are used, which is 1, 2 or 4; the
    // last unit is repeated to fill them.
    std::array<char16_t, MOST_CASES> firsts{};
    size_t firstCount = 1;
};
