// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QSet>

#include <vector>

class CResModel;

/// A set of Unicode code points.
class CodePoints
{
public:
    /// Adds the code points of a text. Ignores halves of surrogate pairs.
    void Add(QStringView text);
    void Add(const CodePoints &others);
    [[nodiscard]] bool Has(char32_t character) const
    {
        return character / BITS < words.size() && (words[character / BITS] >> (character % BITS) & 1) != 0;
    }
    /// Returns the code points in ascending order.
    [[nodiscard]] std::vector<char32_t> All() const;

private:
    static constexpr size_t BITS = 64;
    std::vector<quint64> words; // a bit for each code point; as many words as the largest needs
};

/// Returns the code points that the device draws for the texts of one language of a project. Those of escape sequences
/// such as "\n" don't count.
[[nodiscard]] CodePoints CodePointsOf(const CResModel &model, qint32 language);
/// The same for the texts of some IDs.
[[nodiscard]] CodePoints CodePointsOf(const CResModel &model, qint32 language, const QSet<NarrowText> &ids);

/// How code points are written.
enum class CodePointFormat
{
    List,   ///< a line "U+00DF ß" for each
    Ranges, ///< a line "U+0020-U+007E" for each range, or "U+00DF"
    C,      ///< a table of ranges in C
};

/// Returns code points as text (UTF-8).
[[nodiscard]] QByteArray CodePointsText(const CodePoints &points, CodePointFormat format);

/// Returns "U+00DF".
[[nodiscard]] QString CodePointName(char32_t character);
