// SPDX-License-Identifier: MIT
#pragma once

#include "BenchModel.h"
#include "StringFileReader.h"
#include "StringTable.h"

#include <algorithm>
#include <chrono>
#include <cstring>

inline constexpr int LANGUAGES = 12;

struct NoGrid : IStringGrid
{
    void ReportCellError(int, int, int) override {}
    void ShowMessage(int) override {}
};

inline QByteArray FileOf(qint64 rows)
{
    QString text =
        QStringLiteral("\uFEFFNumber of Language\t%1\r\nString ID\tResource Type\tDescription").arg(LANGUAGES);
    for (int n = 0; n < LANGUAGES; ++n)
        text += QStringLiteral("\tLanguage%1(%1)").arg(n);
    for (qint64 row = 0; row < rows; ++row) {
        text += QStringLiteral("\r\nID_STRING_%1\tNormal\tnote").arg(row + 1, 4, 16, QLatin1Char('0')).toUpper();
        for (int n = 0; n < LANGUAGES; ++n)
            text += QStringLiteral("\tT%1 weather will be sunny in place %2").arg(n).arg(row);
    }
    text.replace(QStringLiteral("NORMAL\tNOTE"), QStringLiteral("Normal\tnote"));
    text += QStringLiteral("\r\n##number\t%1\r\n").arg(rows);
    return {reinterpret_cast<const char *>(text.utf16()), text.size() * 2};
}

inline Utf16Lines::Source SourceOf(const QByteArray &file, qsizetype &at)
{
    return [&file, &at](void *buffer, size_t size) {
        const qsizetype piece = std::min(qsizetype(size), file.size() - at);
        std::memcpy(buffer, file.constData() + at, size_t(piece));
        at += piece;
        return ssize_t(piece);
    };
}

/// A table read from a file, shown in `Grid`.
template <typename Grid = NoGrid> struct TableWorld : StringsWorld
{
    explicit TableWorld(const QByteArray &file)
    {
        qsizetype at = 0;
        StringFileReader reader(model, SourceOf(file, at));
        if (reader.Read(file.size()) != 0)
            std::abort();
        table.Rebuild();
    }
    Grid grid;
    StringTable table{model, grid};
};

inline double Seconds(std::chrono::steady_clock::time_point from)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
}
