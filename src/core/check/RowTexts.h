// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <vector>

class CStringRes;
class TextContext;

/// The texts of one row of the string table, in the order of the project's languages. Keeps its memory from row to row.
class RowTexts
{
public:
    /// The context must outlive this object.
    explicit RowTexts(const TextContext &textContext);

    /// Takes the texts of a row, given its record in the Description folder. They are views of its records.
    void Take(const CStringRes &head);

    /// The text of the language at a place in `TextContext::Languages`; empty if the row has none.
    [[nodiscard]] QStringView operator[](size_t language) const { return texts[language]; }
    [[nodiscard]] bool operator==(const RowTexts &other) const { return texts == other.texts; }
    /// Returns whether all texts are empty.
    [[nodiscard]] bool AreEmpty() const;
    /// Returns a hash of all texts. It isn't the same on all machines.
    [[nodiscard]] size_t Hash() const;

private:
    const TextContext &context;
    std::vector<QStringView> texts;
};
