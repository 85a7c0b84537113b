// SPDX-License-Identifier: MIT
#include "ByteReader.h"
#include "TestTable.h"
#include "XlsBuilder.h"

#include <QFile>

#include <functional>

namespace
{

constexpr quint16 SHARED_FORMULA = 0x04BC;
constexpr quint16 BOOLEAN = 0x0205;
constexpr quint16 BLANK = 0x0201;
constexpr quint16 BLANKS = 0x00BE;
constexpr quint16 CHART = 0x0020;

/// Returns the cells of a file with "|" between them and "/" between rows, or the reason for a refusal.
std::string Shown(const QByteArray &file)
{
    const Reading reading(ReadXls, file);
    QStringList rows;
    for (const QStringList &row : reading.rows)
        rows += row.join(u'|');
    return (reading.result.reason + rows.join(u'/')).toStdString();
}

XlsBuilder BookOf(const QByteArray &records, const QByteArray &globals = {})
{
    return {.globals = globals, .sheets = {{0, records}}};
}

QByteArray Narrow(const QByteArray &text)
{
    return Pack(quint16(text.size()), quint8(0)) + text;
}

/// Returns a workbook of a shared text, a text and a number.
XlsBuilder SmallBook()
{
    return BookOf(Rec(BIFF_LABELSST, CellData(0, 0, 0)) + Rec(BIFF_LABEL, CellData(1, 0) + Narrow("text")) +
                      Rec(BIFF_RK, CellData(2, 0, 1 << 2 | 2)),
                  Rec(BIFF_SST, Pack(1, 1) + Narrow("shared")));
}

/// A table of texts in pieces between which a record may end: characters, and bytes of everything else.
class TextTable
{
public:
    void Add(QStringView text, quint8 flags, quint16 runs = 0, quint32 extension = 0)
    {
        AddBytes(Pack(quint16(text.size()), flags));
        AddBytes(flags & TEXT_RICH ? Pack(runs) : QByteArray());
        AddBytes(flags & TEXT_EXTENDED ? Pack(extension) : QByteArray());
        for (const QChar c : text)
            pieces.push_back({c.unicode(), flags & TEXT_WIDE ? WIDE : NARROW});
        AddBytes(QByteArray(4 * runs + extension, '\x5A'));
        ++count;
    }

    /// Returns the records, with a CONTINUE before each piece for which `isCut` is true. With `widens`, every other cut
    /// within a text makes the characters after it wide, whatever the flags of the text are.
    [[nodiscard]] QByteArray Records(const std::function<bool(size_t)> &isCut, bool widens = false) const
    {
        QByteArray records;
        BiffWriter writer([&records](QByteArrayView piece) { records += piece; });
        writer.Begin(BIFF_SST).Add<quint32>(count, count);
        bool isWidened = false;
        for (size_t i = 0; i < pieces.size(); ++i) {
            const auto &[value, kind] = pieces[i];
            isWidened = isWidened && kind != BYTE;
            if (isCut(i)) {
                writer.Begin(BIFF_CONTINUE);
                isWidened = widens && kind != BYTE && !isWidened;
                if (kind != BYTE)
                    writer.Add<quint8>(kind == WIDE || isWidened ? TEXT_WIDE : 0);
            }
            kind == WIDE || isWidened ? writer.Add<quint16>(value) : writer.Add<quint8>(value);
        }
        writer.Flush();
        return records;
    }

    [[nodiscard]] size_t Pieces() const { return pieces.size(); }

private:
    enum Kind
    {
        BYTE,
        NARROW,
        WIDE
    };

    void AddBytes(const QByteArray &bytes)
    {
        for (const char byte : bytes)
            pieces.push_back({quint8(byte), BYTE});
    }

    std::vector<std::pair<quint16, Kind>> pieces;
    quint32 count = 0;
};

} // namespace

TEST(XlsReader, ReadsTheTextOfEachKindOfCell)
{
    const auto rk = [](qint32 packed) { return Rec(BIFF_RK, CellData(0, 0, packed)); };
    const quint64 half = 0x3FE0000000000000;
    const quint64 isText = 0xFFFF000000000000;
    const auto formula = [](quint64 result, quint16 type = BIFF_FORMULA) {
        return Rec(type, CellData(0, 0, result, quint64(0), quint16(0)));
    };
    const auto label = [](const QByteArray &text) { return Rec(BIFF_LABEL, CellData(0, 0) + text); };
    for (const auto &[records, text] : {
             std::pair(Rec(BIFF_NUMBER, CellData(0, 0, half)), "0.5"),
             {rk(qint32(quint32(-7) << 2 | 2)), "-7"},
             {rk(qint32(12345 << 2 | 3)), "123.45"},
             {rk(0x3FE00000), "0.5"},
             {rk(0x3FE00001), "0.005"},
             {label(Narrow("caf\xE9")), "caf\u00E9"},
             {label(Pack(quint16(2), quint8(1), u'\u4F60', u'!')), "\u4F60!"},
             {label(Pack(quint16(4), quint8(0), 'a', 'b')) + Rec(BIFF_CONTINUE, Pack(quint8(1), u'c', u'd')), "abcd"},
             {Rec(BIFF_RSTRING, CellData(0, 0) + Narrow("rich") + Pack(quint16(1), 0)), "rich"},
             {Rec(BOOLEAN, CellData(0, 0, quint8(1), quint8(0))), ""},
             {Rec(BLANK, CellData(0, 0)) + Rec(BLANKS, CellData(0, 1, quint16(0), quint16(2))), ""},
             {formula(half), "0.5"},
             {formula(half, BIFF_FORMULA3), "0.5"},
             {formula(half, BIFF_FORMULA4), "0.5"},
             {formula(isText, BIFF_FORMULA3) + Rec(BIFF_STRING, Narrow("sum")), "sum"},
             {formula(isText, BIFF_FORMULA4) + Rec(BIFF_STRING, Narrow("sum")), "sum"},
             {formula(isText | 1), ""},
             {formula(isText | 2), ""},
             {formula(isText | 3), ""},
             {formula(isText) + Rec(BIFF_STRING, Narrow("sum")), "sum"},
             {formula(isText) + Rec(SHARED_FORMULA) + Rec(BIFF_STRING, Narrow("sum")), "sum"},
             {formula(isText) + Rec(BIFF_STRING, Pack(quint16(4), quint8(0), 'a')) +
                  Rec(BIFF_CONTINUE, QByteArray("\0bcd", 4)),
              "abcd"},
             {formula(isText) + formula(half) + Rec(BIFF_STRING, Narrow("no text is due")), "0.5"},
             {Rec(BIFF_STRING, Narrow("no text is due")), ""},
             {label(Narrow("old")) + label(Narrow("new")), "new"},
             {label(Narrow("mine")) + Rec(BIFF_BOF, Pack(BIFF8, CHART)) + label(Narrow("of a chart")) + Rec(BIFF_EOF),
              "mine"},
             {Rec(BIFF_MULRK, Pack(quint16(0), quint16(0), quint16(0), 1 << 2 | 2, quint16(0), 2 << 2 | 2, quint16(1))),
              "1|2"},
         })
        EXPECT_EQ(Shown(BookOf(records).Build()), text);
}

TEST(XlsReader, ReadsTheFirstWorksheetEvenIfHidden)
{
    const auto label = [](const char *text) { return Rec(BIFF_LABEL, CellData(0, 0) + Narrow(text)); };
    XlsBuilder book;
    book.sheets = {
        {2, label("chart"), CHART}, {1, label("macro")}, {0, label("hidden"), BOF_WORKSHEET, 2}, {0, label("seen")}};
    EXPECT_EQ(Shown(book.Build()), "hidden");
    book.sheets.resize(2);
    ExpectRefused(ReadXls, {{NoWorkbook, "it has no worksheet", book.Build()}});
}

TEST(XlsReader, ReadsSharedTextsSplitAnywhere)
{
    TextTable table;
    table.Add(u"ab\u00FFcd", 0);
    table.Add(u"", 0);
    table.Add(u"x\u4F60\U0001F600", TEXT_WIDE | TEXT_RICH, 2);
    table.Add(u"ext", TEXT_EXTENDED, 0, 3);
    table.Add(u"wxyz", TEXT_WIDE | TEXT_RICH | TEXT_EXTENDED, 1, 5);
    QByteArray cells;
    for (int i = 0; i < 5; ++i)
        cells += Rec(BIFF_LABELSST, CellData(i, 0, i));
    const auto shown = [&cells](const QByteArray &records) { return Shown(BookOf(cells, records).Build()); };

    const std::string expected = "ab\u00FFcd//x\u4F60\U0001F600/ext/wxyz";
    ASSERT_EQ(shown(table.Records([](size_t) { return false; })), expected);
    EXPECT_EQ(shown(table.Records([](size_t) { return true; })), expected);
    for (size_t first = 0; first < table.Pieces(); ++first) {
        for (size_t second = first; second < table.Pieces(); ++second) {
            const auto isCut = [&](size_t i) { return i == first || i == second; };
            ASSERT_EQ(shown(table.Records(isCut, false)), expected) << first << ' ' << second;
            ASSERT_EQ(shown(table.Records(isCut, true)), expected) << first << ' ' << second;
        }
    }
}

TEST(XlsReader, ReportsWhyItRefusesAFile)
{
    constexpr quint32 MANY = 0xFFFFFFFF;
    const XlsBuilder book = BookOf({});
    XlsBuilder old = book;
    old.version = 0x0500;
    const auto with = [](const QByteArray &records) { return BookOf(records).Build(); };
    const auto withGlobals = [](const QByteArray &globals) { return BookOf({}, globals).Build(); };
    QByteArray numbers; // of 309 digits each
    for (int row = 0; row < 300; ++row)
        numbers += Rec(BIFF_MULRK, Pack(quint16(row), quint16(0)) + Pack(quint16(15), 0x7FE00000).repeated(256) +
                                       Pack(quint16(255)));
    ExpectRefused(
        ReadXls,
        {{NoWorkbook, "it isn't a compound file", "PK\3\4"},
         {NoWorkbook, "the compound file has no stream \"Workbook\"", book.Build("Other")},
         {NoWorkbook, "its format is that of Excel 5.0 or 95, which is older than Excel 97", book.Build("Book")},
         {NoWorkbook, "it is of version 0x500 (Excel 97-2003 has 0x600)", old.Build()},
         {NoWorkbook, "it is protected by a password", withGlobals(Rec(BIFF_FILEPASS, Pack(quint16(1))))},
         {Broken, "the table of texts ends within text 2 of 4294967295",
          withGlobals(Rec(BIFF_SST, Pack(MANY, MANY) + Narrow("one")))},
         {Broken, "the table of texts ends within text 1 of 1",
          withGlobals(Rec(BIFF_SST, Pack(1, 1, quint16(2), quint8(1), u'a', 'b')) + Rec(BIFF_CONTINUE, Pack(1)))},
         {Broken,
          "record 0x200 at 0x31: 4294967295 rows and 0 columns are too many: an .xls sheet has at most 65536 rows and "
          "256 columns",
          with(Rec(BIFF_DIMENSIONS, Pack(0, MANY, 0)))},
         {Broken, "row 3, column 2: text 7 of 0 is missing", with(Rec(BIFF_LABELSST, CellData(2, 1, 7)))},
         {Broken, "row 1, column 257: an .xls sheet has at most 256 columns",
          with(Rec(BIFF_LABEL, CellData(0, 256) + Narrow("a")))},
         {Broken, "row 1, column 1: the text is cut off",
          with(Rec(BIFF_LABEL, CellData(0, 0, quint16(9), quint8(0), 'a')))},
         {Broken, "row 1, column 1: the number is cut off", with(Rec(BIFF_NUMBER, CellData(0, 0, 1)))},
         {Broken, "record 0x6 at 0x31: 10 bytes are too few", with(Rec(BIFF_FORMULA, CellData(0, 0, 1)))},
         {TooLarge, "the numbers have more digits than a file of this size may have", with(numbers)}});
}

TEST(XlsReader, SurvivesEveryTruncation)
{
    const QByteArray stream = SmallBook().Stream();
    const Rows whole = Read(ReadXls, InContainer(stream));
    ASSERT_EQ(whole.size(), 3U);
    for (qsizetype size = 0; size < stream.size(); ++size) {
        const Reading cut(ReadXls, InContainer(stream.first(size)));
        EXPECT_EQ(cut.result.fault, Broken) << size;
        EXPECT_TRUE(cut.rows == Rows(whole.begin(), whole.begin() + qsizetype(cut.rows.size()))) << size;
    }
    for (const QByteArray &file : {InContainer(stream), LargeSectors(stream, 0)}) {
        ASSERT_EQ(Read(ReadXls, file), whole);
        for (qsizetype size = 0; size < file.size(); ++size) {
            const Reading cut(ReadXls, file.first(size));
            EXPECT_TRUE(cut.result.HasFailed() || cut.rows == whole) << size;
        }
    }
}

TEST(XlsReader, SurvivesAnyNumberInTheContainer)
{
    QByteArray large = SmallBook().Stream();
    large.resize(9000, 0);
    for (const QByteArray &file : {SmallBook().Build(), InContainer(large), LargeSectors(large, 0)}) {
        const Rows whole = Read(ReadXls, file);
        ASSERT_EQ(whole.size(), 3U);
        for (qsizetype at = 0; at + 4 <= file.size(); at += 2) {
            if (large.contains(file.mid(at, 8)) && at > 512)
                continue; // a part of the stream
            for (const quint32 value :
                 {0u, 1u, 2u, 3u, 5u, 0x00010000u, 0x7FFFFFFFu, 0xFFFFFFF0u, 0xFFFFFFFEu, 0xFFFFFFFFu}) {
                QByteArray hostile = file;
                qToLittleEndian(value, hostile.data() + at);
                const Reading reading(ReadXls, hostile);
                EXPECT_TRUE(reading.result.HasFailed() || reading.rows == whole) << at << ' ' << value;
            }
        }
    }
}

TEST(XlsReader, RefusesLoopsAndFalseSizesInTheContainerCheaply)
{
    QByteArray large = SmallBook().Stream();
    large.resize(9000, 0);
    const QByteArray file = InContainer(large);
    const auto with = [&file](qsizetype at, quint32 value) {
        QByteArray changed = file;
        qToLittleEndian(value, changed.data() + at);
        return changed;
    };
    const auto sectorAt = [&file](qsizetype at) { return 512 * (1 + qsizetype(*ByteReader(file).U32(quint64(at)))); };
    const qsizetype table = sectorAt(76);
    const qsizetype entry = sectorAt(48) + 128;
    const quint32 start = *ByteReader(file).U32(quint64(entry) + 116);
    ExpectRefused(
        ReadXls,
        {{Broken, "the stream \"Workbook\": the chain of sectors returns to sector 0",
          with(table + 4 * (start + 1), start)},
         {Broken,
          "the stream \"Workbook\": the chain of sectors leads to sector 0xffffffff after 1024 bytes, but there are "
          "only 20 sectors",
          with(table + 4 * (start + 1), 0xFFFFFFFF)},
         {Broken,
          "the stream \"Workbook\" has 4294967295 bytes according to the file, but the sectors have only 10240 bytes",
          with(entry + 120, 0xFFFFFFFF)},
         {Broken, "the compound file has sectors of 2^31 and 2^6 bytes, not of 2^9 or 2^12 and 2^6",
          with(30, 0x0006001F)},
         {Broken, "part 1 of 1 of the sector table isn't within the file", with(76, 0x7FFFFFFF)}});

    EXPECT_EQ(Read(ReadXls, LargeSectors(large, 200'000)).size(), 3U);
}

TEST(XlsReader, ReadsTheFilesOfOtherPrograms)
{
    for (const char *name : {"xlwt", "gnumeric", "libreoffice"}) {
        QFile file(QStringLiteral(WORKBOOK_SEEDS "/xls/") + QLatin1String(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        EXPECT_EQ(Shown(file.readAll()), "ID|Type|English/ID_HELLO||Gr\u00FC\u00DFe/ID_EMOJI||\U0001F600 \u4F60\u597D/"
                                         "|1.5|-12345678/|0.1|38113/||two\nlines")
            << name;
    }
}
