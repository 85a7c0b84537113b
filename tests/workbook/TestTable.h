#pragma once

#include "Formats.h"
#include "MemoryFile.h"

#include <gtest/gtest.h>

#include <QStringEncoder>
#include <QStringList>

#include <random>

using Rows = std::vector<QStringList>;

/// A table of texts: what a sheet is written from, and what is compared with one that was read.
class TestTable : public ISheetSource
{
public:
    TestTable(std::initializer_list<QStringList> texts) : rows(texts) {}
    explicit TestTable(Rows texts) : rows(std::move(texts)) {}

    [[nodiscard]] qint64 RowCount() const override { return qint64(rows.size()); }
    [[nodiscard]] int ColumnCount() const override
    {
        qsizetype most = 0;
        for (const QStringList &row : rows)
            most = std::max(most, row.size());
        return int(most);
    }
    std::span<const QStringView> Row(qint64 row) override
    {
        views.assign(rows[size_t(row)].begin(), rows[size_t(row)].end());
        return views;
    }

    Rows rows;

private:
    std::vector<QStringView> views;
};

using Reader = WorkbookResult(const QByteArray &, Sheet &);
using Writer = WorkbookResult(ISheetSource &, std::FILE *);

inline QByteArray Written(Writer write, TestTable table)
{
    return InMemory([&](std::FILE *file) { EXPECT_EQ(write(table, file).reason.toStdString(), ""); });
}

/// Reads a file and tells it as a table, rows of cells without the empty ones at their ends.
inline Rows Read(Reader read, const QByteArray &file)
{
    Sheet sheet;
    const WorkbookResult result = read(file, sheet);
    EXPECT_EQ(result.reason.toStdString(), "");
    EXPECT_FALSE(result.HasFailed());
    sheet.Finish();
    Rows rows(sheet.EndRow());
    for (quint32 row = 0; row < sheet.EndRow(); ++row) {
        for (quint32 column = 0; column < 64; ++column) {
            const QString text = sheet.At(row, column);
            while (!text.isEmpty() && rows[row].size() < column)
                rows[row].append(QString());
            if (!text.isEmpty())
                rows[row].append(text);
        }
    }
    return rows;
}

/// A text in UTF-16, with a byte order mark.
inline QByteArray Utf16(const QString &text, QStringConverter::Encoding encoding)
{
    return QStringEncoder(encoding, QStringConverter::Flag::WriteBom)(text);
}

/// How a failing test shows a text.
inline void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.left(30).toUtf8().toPercentEncoding(" !#$&'()*+,/:;=?@[]<>|").toStdString() << '"';
}

inline WorkbookResult ReadFailing(Reader read, const QByteArray &file)
{
    Sheet sheet;
    return read(file, sheet);
}

/// A table of texts that are hard on every format, without empty cells at the ends of rows.
inline TestTable AwkwardTable(unsigned seed)
{
    const QStringList pieces = {
        QStringLiteral("a"),          QStringLiteral("'"),
        QStringLiteral("\""),         QStringLiteral(","),
        QStringLiteral(";"),          QStringLiteral("\t"),
        QStringLiteral("\n"),         QStringLiteral("\r"),
        QStringLiteral("\r\n"),       QStringLiteral(" "),
        QStringLiteral("="),          QStringLiteral("-1"),
        QStringLiteral("@"),          QStringLiteral("\uFF1D"),
        QStringLiteral("_x"),         QStringLiteral("_x0041_"),
        QStringLiteral("_x005f_"),    QStringLiteral("<&>]]>"),
        QStringLiteral("\u00A0"),     QStringLiteral("\uFEFF"),
        QStringLiteral("\U0001F600"), QStringLiteral("\u4F60"),
        QStringLiteral("\uFFFF"),     QStringLiteral("\u0001"),
        QStringLiteral("\u001F"),     QStringLiteral("\u007F"),
        QStringLiteral("\u0085"),     QStringLiteral("\u2028"),
        QStringLiteral("\U0010FFFF"), QStringLiteral("TRUE"),
        QStringLiteral("007"),        QStringLiteral("\uD7FF\uE000"),
    };
    std::mt19937 random(seed);
    const auto below = [&random](qsizetype most) { return qsizetype(random() % unsigned(most)); };
    Rows rows(size_t(1 + below(6)));
    for (QStringList &row : rows) {
        const qsizetype width = 1 + below(5);
        while (row.size() < width) {
            QString text;
            for (qsizetype i = below(6) + (row.size() + 1 == width); i > 0; --i)
                text += pieces[below(pieces.size())];
            row.append(text);
        }
    }
    return TestTable(rows);
}
