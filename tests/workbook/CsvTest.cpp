#include "TestTable.h"

TEST(Csv, AnyTableComesBackAsItWas)
{
    for (unsigned seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE(seed);
        const TestTable table = AwkwardTable(seed);
        ASSERT_EQ(Read(ReadCsv, Written(WriteCsv, table)), table.rows);
    }
}

TEST(Csv, TheFileIsWhatSpreadsheetsTakeAndNoTextAFormula)
{
    const TestTable table({{QStringLiteral("ID"), QStringLiteral("two words"), QStringLiteral("a,\"b\"")},
                           {QStringLiteral("=1"), QStringLiteral("'=1"), QStringLiteral(" @a")},
                           {QStringLiteral("'tis"), QStringLiteral("a\nb")},
                           {},
                           {QStringLiteral("-"), QStringLiteral("\uFF0B1"), QString(QChar(0xD800)) + QChar(u'\0')}});
    EXPECT_EQ(Written(WriteCsv, table), "\xEF\xBB\xBF"
                                        "ID,two words,\"a,\"\"b\"\"\"\r\n"
                                        "'=1,''=1,' @a\r\n"
                                        "'tis,\"a\nb\",\r\n"
                                        ",,\r\n"
                                        "'-,'\xEF\xBC\x8B"
                                        "1,\xEF\xBF\xBD\xEF\xBF\xBD\r\n");
}

TEST(Csv, FilesOfOtherProgramsAreRead)
{
    const Rows expected = {{QStringLiteral("ID"), QStringLiteral("a,b"), QStringLiteral("\u00E9")},
                           {},
                           {QStringLiteral("x;y"), QString(), QStringLiteral("say \"hi\"\r\n,")}};
    const QString comma = QStringLiteral("ID,\"a,b\",\u00E9\r\n\r\nx;y,,\"say \"\"hi\"\"\r\n,\"\r\n");
    const QString semicolon = QStringLiteral("ID;a,b;\u00E9\n\n\"x;y\";;\"say \"\"hi\"\"\r\n,\"");
    const QString tab = QStringLiteral("ID\ta,b\t\u00E9\r\rx;y\t\t\"say \"\"hi\"\"\r\n\",\r");
    for (const QByteArray &file : {comma.toUtf8(), "\xEF\xBB\xBF" + comma.toUtf8(), semicolon.toUtf8(), tab.toUtf8(),
                                   Utf16(tab, QStringConverter::Utf16LE), Utf16(comma, QStringConverter::Utf16BE)}) {
        SCOPED_TRACE(file.toPercentEncoding(" ,;\"").constData());
        EXPECT_EQ(Read(ReadCsv, file), expected);
    }
    EXPECT_EQ(Read(ReadCsv, "a \"quoted\" word,\"b\" c"),
              Rows({{QStringLiteral("a \"quoted\" word"), QStringLiteral("b c")}}));
    EXPECT_EQ(Read(ReadCsv, {}), Rows());
    EXPECT_EQ(Read(ReadCsv, "\xEF\xBB\xBF"), Rows());
}

TEST(Csv, WhatIsWrongIsSaid)
{
    const struct
    {
        WorkbookFault fault;
        const char *reason;
        QByteArray file;
    } cases[] = {
        {WorkbookFault::Broken, "line 4: a quote isn't closed", "a,\"b\nc\"\r\nd\re,\"f\ng"},
        {WorkbookFault::Broken, "line 2 isn't UTF-8", "a,b\n\xE9,b\n"},
        {WorkbookFault::Broken, "isn't UTF-16",
         QByteArray("\xFF\xFE"
                    "a\0b",
                    5)},
        {WorkbookFault::NoWorkbook, "a zero stands in it", QByteArray("a,b\n\0", 5)},
        {WorkbookFault::NoWorkbook, "isn't text in UTF-8 or UTF-16", QByteArray("\xFF\xFE\0\0a\0\0\0", 8)},
        {WorkbookFault::TooLarge, "line 1048577, column 1:", QByteArray(1'048'576, '\n') + "a"},
        {WorkbookFault::TooLarge, "line 1, column 16385:", QByteArray(16'384, ',') + "a"},
        {WorkbookFault::TooLarge, "take too much memory",
         (QByteArray(16'383, ',').replace(",", "a,") + '\n').repeated(400)},
    };
    for (const auto &[fault, reason, file] : cases) {
        SCOPED_TRACE(reason);
        const WorkbookResult result = ReadFailing(ReadCsv, file);
        EXPECT_EQ(result.fault, fault);
        EXPECT_TRUE(result.reason.contains(QLatin1String(reason))) << result.reason.toStdString();
    }

    struct Endless : TestTable
    {
        Endless() : TestTable({{}}) {}
        [[nodiscard]] qint64 RowCount() const override { return Sheet::MOST_ROWS + 1; }
    } endless;
    EXPECT_EQ(WriteCsv(endless, nullptr).fault, WorkbookFault::TooLarge);
}
