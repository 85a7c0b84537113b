#pragma once

#include <QByteArrayView>
#include <QString>

#include <array>

/// Looks for one text in many, without an index and without a copy of what it looks into.
///
/// Without regard to case, characters are compared by their Unicode simple case folding, which makes one character of
/// one: "k" finds the Kelvin sign, "ss" doesn't find "ß". An empty text is in every text.
///
///     const TextFinder finder(u"wetter"_s, /*matchCase=*/false);
///     if (finder.In(cell->text)) ...
class TextFinder
{
public:
    TextFinder(const QString &text, bool matchCase);

    [[nodiscard]] bool In(QStringView text) const { return IndexIn(text) >= 0; }
    /// The first place from `from` on, which is 0 or more; -1 if there is none. What is found there is as long as the
    /// text that is looked for.
    [[nodiscard]] qsizetype IndexIn(QStringView text, qsizetype from = 0) const;
    /// The same as `In`, for characters of ASCII, a byte each.
    [[nodiscard]] bool InAscii(QByteArrayView text) const;
    [[nodiscard]] qsizetype Size() const { return needle.size(); }

private:
    static constexpr size_t MOST_CASES = 4; // of one character, as of "θ"
    [[nodiscard]] qsizetype NextFirst(const char16_t *text, qsizetype from, qsizetype end) const;
    [[nodiscard]] bool IsAt(const char16_t *text) const;

    QString needle; // folded, if case doesn't matter
    bool matchesCase;
    bool isAscii; // `needle`
    // What folds to the first character of `needle`, filled up with the last; `firstCount` is 1, 2 or 4 of them.
    std::array<char16_t, MOST_CASES> firsts{};
    size_t firstCount = 1;
};
