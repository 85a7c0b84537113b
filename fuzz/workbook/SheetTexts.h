// SPDX-License-Identifier: MIT
#pragma once

#include "Formats.h"
#include "MemoryFile.h"

#include <cstdlib>

inline void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// The upper left part of a sheet that was read, as the source of a new one.
class SheetTexts : public ISheetSource
{
public:
    SheetTexts(const Sheet &read, size_t columns) : sheet(read), texts(columns), views(columns) {}

    [[nodiscard]] qint64 RowCount() const override { return std::min(sheet.EndRow(), 100u); }
    [[nodiscard]] int ColumnCount() const override { return int(texts.size()); }
    std::span<const QStringView> Row(qint64 row) override
    {
        for (size_t column = 0; column < texts.size(); ++column)
            views[column] = texts[column] = sheet.At(quint32(row), quint32(column));
        return views;
    }

private:
    const Sheet &sheet;
    std::vector<QString> texts;
    std::vector<QStringView> views;
};

/// Writes a sheet that was read, and aborts if it doesn't read back with the same texts. In a format that can't hold
/// all of them, some characters may have become U+FFFD.
inline void RequireSameAgain(const Sheet &sheet, size_t columns, bool canHoldAll,
                             WorkbookResult write(ISheetSource &, std::FILE *),
                             WorkbookResult read(const QByteArray &, Sheet &))
{
    SheetTexts texts(sheet, columns);
    WorkbookResult result;
    const QByteArray file = InMemory([&](std::FILE *stream) { result = write(texts, stream); });
    if (result.fault == WorkbookFault::TooLarge)
        return;
    Sheet again;
    Require(!result.HasFailed() && !read(file, again).HasFailed());
    again.Finish();
    Require(again.EndRow() <= texts.RowCount());
    for (qint64 row = 0; row < texts.RowCount(); ++row) {
        quint32 column = 0;
        for (const QStringView text : texts.Row(row)) {
            const QString found = again.At(quint32(row), column++);
            Require(found == text ||
                    (!canHoldAll && found.size() == text.size() && found.contains(QChar::ReplacementCharacter)));
        }
    }
}
