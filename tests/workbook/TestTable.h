// SPDX-License-Identifier: MIT
#pragma once

#include "Formats.h"
#include "MemoryFile.h"

#include <gmock/gmock.h>

#include <QStringEncoder>
#include <QStringList>

#include <random>

using namespace Qt::StringLiterals;

using enum WorkbookFault;
using Rows = std::vector<QStringList>;

/// Tells GoogleTest how to print a text.
inline void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.left(30).toUtf8().toPercentEncoding(" !#$&'()*+,/:;=?@[]<>|").toStdString() << '"';
}

/// A table of texts that a sheet is written from.
class TestTable : public ISheetSource
{
public:
    explicit TestTable(Rows texts) : rows(std::move(texts))
    {
        for (const QStringList &row : rows)
            columns = std::max(columns, int(row.size()));
    }

    [[nodiscard]] qint64 RowCount() const override { return qint64(rows.size()); }
    [[nodiscard]] int ColumnCount() const override { return columns; }
    std::span<const QStringView> Row(qint64 row) override
    {
        views.assign(rows[size_t(row)].begin(), rows[size_t(row)].end());
        return views;
    }

private:
    Rows rows;
    int columns = 0;
    std::vector<QStringView> views;
};

using Reader = WorkbookResult(const QByteArray &, Sheet &);
using Writer = WorkbookResult(ISheetSource &, std::FILE *);

inline QByteArray Written(Writer write, const Rows &rows)
{
    TestTable table(rows);
    return InMemory([&](std::FILE *file) { EXPECT_EQ(write(table, file).reason.toStdString(), ""); });
}

/// The result of a reader for a file: rows of cells without the empty ones at their ends, or the error.
struct Reading
{
    Reading(Reader read, const QByteArray &file)
    {
        Sheet sheet;
        result = read(file, sheet);
        sheet.Finish();
        rows.resize(sheet.EndRow());
        for (quint32 row = 0; row < sheet.EndRow(); ++row) {
            for (quint32 column = 0; column < sheet.EndColumn(row); ++column)
                rows[row].append(sheet.At(row, column));
        }
    }

    WorkbookResult result;
    Rows rows;
};

inline Rows Read(Reader read, const QByteArray &file)
{
    Reading reading(read, file);
    EXPECT_EQ(reading.result.reason.toStdString(), "");
    EXPECT_FALSE(reading.result.HasFailed());
    return reading.rows;
}

inline WorkbookResult ReadFailing(Reader read, const QByteArray &file)
{
    Sheet sheet;
    return read(file, sheet);
}

/// A file that is refused, and a part of the message.
struct Refused
{
    WorkbookFault fault;
    std::string reason;
    QByteArray file;
};

inline void ExpectRefused(Reader read, const std::vector<Refused> &files)
{
    for (const auto &[fault, reason, file] : files) {
        SCOPED_TRACE(reason);
        const WorkbookResult result = ReadFailing(read, file);
        EXPECT_EQ(result.fault, fault);
        EXPECT_THAT(result.reason.toStdString(), testing::HasSubstr(reason));
    }
}

/// Returns a text in UTF-16, with a byte order mark.
inline QByteArray Utf16(const QString &text, QStringConverter::Encoding encoding)
{
    return QStringEncoder(encoding, QStringConverter::Flag::WriteBom)(text);
}

/// Returns a table of texts that are difficult for every format, without empty cells at the ends of rows.
inline Rows AwkwardTable(unsigned seed)
{
    static const QStringList PIECES =
        u"a|'|\"|,|;|\t|\n|\r|\r\n| |=|-1|@|\uFF1D|_x|_x0041_|_x005f_|<&>]]>|\u00A0|\uFEFF|\U0001F600|\u4F60|\uFFFF|"
        "\u0001|\u001F|\u007F|\u0085|\u2028|\U0010FFFF|TRUE|007|\uD7FF\uE000"_s.split(u'|');
    std::mt19937 random(seed);
    const auto below = [&random](qsizetype most) { return qsizetype(random() % unsigned(most)); };
    Rows rows(size_t(1 + below(6)));
    for (QStringList &row : rows) {
        const qsizetype width = 1 + below(5);
        while (row.size() < width) {
            QString text;
            for (qsizetype i = below(6) + (row.size() + 1 == width); i > 0; --i)
                text += PIECES[below(PIECES.size())];
            row.append(text);
        }
    }
    return rows;
}

/// Characters of random texts; the other programs of the tests agree on them.
inline const QStringList ALPHABETS = {u"abcdefgh =+\"@,;\t\n"_s, u"\u00E4\u00DF\u0080\u00FF\u0001\u001F"_s,
                                      u"\u4F60\u597D\u0416\u05D0\u0301\uFB01"_s, u"\U0001F600\U00020000"_s,
                                      u"z\u00E9\u4F60\U0001F600"_s};

/// Returns a text of `length` UTF-16 units, without half of a surrogate pair.
inline QString RandomText(std::mt19937 &random, const QString &alphabet, qsizetype length)
{
    const QList<uint> letters = alphabet.toUcs4();
    QString text;
    while (text.size() < length)
        text += QChar::fromUcs4(letters[qsizetype(random() % size_t(letters.size()))]);
    return text.size() == length ? text : text.chopped(2) + u'.';
}

/// Returns texts whose lengths put every kind of position at the end of a record, below a row of one word.
inline Rows RandomTable(unsigned seed, const QStringList &alphabets)
{
    static constexpr int LENGTHS[] = {1, 2, 3, 40, 255, 256, 4100, 4111, 8200, 8221, 8224, 16430, 32767};
    std::mt19937 random(seed);
    std::map<std::pair<size_t, qsizetype>, QString> cells;
    for (int i = 0; i < 150; ++i) {
        const int length = LENGTHS[random() % (i % 5 == 0 ? std::size(LENGTHS) : 6)] + int(random() % 12);
        const auto row = size_t(1 + random() % 60);
        cells[{row, random() % 9}] =
            RandomText(random, alphabets[qsizetype(random() % size_t(alphabets.size()))], std::min(32767, length));
    }
    Rows rows(cells.rbegin()->first.first + 1);
    rows[0] = {u"first"_s};
    for (const auto &[place, text] : cells) {
        rows[place.first].resize(place.second);
        rows[place.first].append(text);
    }
    return rows;
}
