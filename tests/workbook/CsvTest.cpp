// SPDX-License-Identifier: MIT
#include "TestTable.h"

TEST(Csv, WritesFilesForSpreadsheetsWithoutFormulas)
{
    const Rows rows = {{u"ID"_s, u"two words"_s, u"a,\"b\""_s},
                       {u"=1"_s, u"'=1"_s, u" @a"_s},
                       {u"'tis"_s, u"a\nb"_s},
                       {},
                       {u"-"_s, u"\uFF0B1"_s, QString(QChar(0xD800)) + QChar(u'\0')}};
    EXPECT_EQ(Written(WriteCsv, rows), "\xEF\xBB\xBF"
                                       "ID,two words,\"a,\"\"b\"\"\"\r\n"
                                       "'=1,''=1,' @a\r\n"
                                       "'tis,\"a\nb\",\r\n"
                                       ",,\r\n"
                                       "'-,'\xEF\xBC\x8B"
                                       "1,\xEF\xBF\xBD\xEF\xBF\xBD\r\n");
    for (const QChar start : u"=+-@\uFF1D\uFF0B\uFF0D\uFF20\t\r\n"_s)
        EXPECT_TRUE(Written(WriteCsv, {{start + u"1"_s}}).contains('\'')) << int(start.unicode());
}

TEST(Csv, ReadsFilesOfOtherPrograms)
{
    const Rows expected = {{u"ID"_s, u"a,b"_s, u"\u00E9"_s}, {}, {u"x;y"_s, QString(), u"say \"hi\"\r\n,"_s}};
    const QString comma = u"ID,\"a,b\",\u00E9\r\n\r\nx;y,,\"say \"\"hi\"\"\r\n,\"\r\n"_s;
    const QString semicolon = u"ID;a,b;\u00E9\n\n\"x;y\";;\"say \"\"hi\"\"\r\n,\""_s;
    const QString tab = u"ID\ta,b\t\u00E9\r\rx;y\t\t\"say \"\"hi\"\"\r\n\",\r"_s;
    for (const QByteArray &file : {comma.toUtf8(), "\xEF\xBB\xBF" + comma.toUtf8(), semicolon.toUtf8(), tab.toUtf8(),
                                   Utf16(tab, QStringConverter::Utf16LE), Utf16(comma, QStringConverter::Utf16BE)}) {
        SCOPED_TRACE(file.toPercentEncoding(" ,;\"").constData());
        EXPECT_EQ(Read(ReadCsv, file), expected);
    }
    EXPECT_EQ(Read(ReadCsv, "a \"quoted\" word,\"b\" c"), Rows({{u"a \"quoted\" word"_s, u"b c"_s}}));
    EXPECT_EQ(Read(ReadCsv, {}), Rows());
    EXPECT_EQ(Read(ReadCsv, "\xEF\xBB\xBF"), Rows());
}

TEST(Csv, ReportsErrors)
{
    const QByteArray manyCells = QByteArray(16'383, ',').replace(",", "a,") + '\n';
    ExpectRefused(ReadCsv, {{Broken, "line 5: a quote isn't closed", "a,\"b\nc\"\r\nd\r\re,\"f\ng"},
                            {Broken, "line 2 isn't UTF-8", "a,b\n\xE9,b\n"},
                            {Broken, "isn't UTF-16", Utf16(u"ab"_s, QStringConverter::Utf16LE).chopped(1)},
                            {NoWorkbook, "it contains a null character", QByteArray("a,b\n\0", 5)},
                            {NoWorkbook, "isn't text in UTF-8 or UTF-16", Utf16(u"a"_s, QStringConverter::Utf32LE)},
                            {TooLarge, "line 1048577, column 1:", QByteArray(1'048'576, '\n') + "a"},
                            {TooLarge, "line 1, column 16385:", QByteArray(16'384, ',') + "a"},
                            {TooLarge, "take too much memory", manyCells.repeated(400)}});
}
