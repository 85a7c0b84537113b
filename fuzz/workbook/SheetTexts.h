#pragma once

#include "Formats.h"

#include <cstdlib>

inline void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// A sheet that was read, to be written again: the corner of it at the top left.
class SheetTexts : public ISheetSource
{
public:
    explicit SheetTexts(const Sheet &read) : sheet(read) {}

    [[nodiscard]] qint64 RowCount() const override { return std::min(sheet.EndRow(), 100u); }
    [[nodiscard]] int ColumnCount() const override { return int(std::size(texts)); }
    std::span<const QStringView> Row(qint64 row) override
    {
        for (quint32 column = 0; column < std::size(texts); ++column)
            texts[column] = sheet.At(quint32(row), column);
        return texts;
    }

private:
    const Sheet &sheet;
    QStringView texts[20];
};

/// Writes a sheet that was read, and aborts when reading that gives others than these texts.
inline void RequireSameAgain(const Sheet &sheet, WorkbookResult write(ISheetSource &, QByteArray &),
                             WorkbookResult read(QByteArrayView, Sheet &))
{
    SheetTexts texts(sheet);
    QByteArray file;
    const WorkbookResult result = write(texts, file);
    if (result.fault == WorkbookFault::TooLarge)
        return;
    Sheet again;
    Require(!result.HasFailed() && !read(file, again).HasFailed());
    again.Finish();
    for (qint64 row = 0; row < texts.RowCount(); ++row) {
        quint32 column = 0;
        for (const QStringView text : texts.Row(row)) {
            const QString &found = again.At(quint32(row), column++);
            // What no file can hold became another character.
            Require(found == text || (found.size() == text.size() && found.contains(QChar::ReplacementCharacter)));
        }
    }
}
