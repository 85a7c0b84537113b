#pragma once

#include <QtGlobal>

/// How much memory the texts of a file may take: enough for any honest file of its size, and no more.
class TextBudget
{
public:
    /// So many bytes of memory for each byte of the file, beside what any file gets.
    TextBudget(qsizetype fileSize, qsizetype perByte) : left(AT_LEAST + perByte * fileSize) {}

    /// False when the memory for a cell, and for a text of its own with so many characters, isn't granted.
    [[nodiscard]] bool GrantCell() { return Grant(CELL); }
    [[nodiscard]] bool GrantText(qsizetype length) { return Grant(TEXT + qsizetype(sizeof(char16_t)) * length); }

private:
    static constexpr qsizetype AT_LEAST = 96 << 20;
    static constexpr qsizetype CELL = 64; // twice a Sheet::Cell: the list of cells moves when it grows
    static constexpr qsizetype TEXT = 32; // what the heap takes for a text of one character

    [[nodiscard]] bool Grant(qsizetype size)
    {
        left -= size;
        return left >= 0;
    }

    qsizetype left;
};
