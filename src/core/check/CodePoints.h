// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class CResModel;

/// A set of Unicode code points.
class CodePoints
{
public:
    /// Adds the code points of a text. Ignores halves of surrogate pairs.
    void Add(QStringView text);
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

/// Returns the code points of all texts of one language of a project.
[[nodiscard]] CodePoints CodePointsOf(const CResModel &model, qint32 language);

/// Returns "U+00DF".
[[nodiscard]] QString CodePointName(char32_t character);
