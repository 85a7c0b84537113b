// SPDX-License-Identifier: MIT
// Tests that in every format a written text reads back equal, is what other programs read, or is refused.
#include "FileLimit.h"
#include "PartUnpacker.h"
#include "TempFolder.h"
#include "TestTable.h"

#include <QProcess>
#include <QThread>

#include <csignal>
#include <unistd.h>

namespace
{

constexpr struct
{
    const char *name;
    Writer *write;
    Reader *read;
    unsigned tables; ///< a number of tables that takes about the same time in each format
} FORMATS[] = {
    {"a.csv", WriteCsv, ReadCsv, 2000}, {"a.xls", WriteXls, ReadXls, 300}, {"a.xlsx", WriteXlsx, ReadXlsx, 100}};

/// Returns a workbook converted by another program to another format. Doesn't check whether the program is installed:
/// without it the test must fail.
QByteArray Converted(const QString &program, const QByteArray &file, const QByteArray &from, const QByteArray &to)
{
    const TempFolder folder;
    folder.Put("in/book." + from, file);
    const QString book = folder.Path("in/book." + from);
    QStringList arguments{book, folder.Path("book." + to)};
    if (program == QStringLiteral(SYSTEM_PYTHON))
        arguments.prepend(QStringLiteral(WORKBOOK_ORACLE));
    if (program == u"soffice")
        arguments = {u"-env:UserInstallation=file://"_s + folder.Path("profile"),
                     u"--headless"_s,
                     u"--convert-to"_s,
                     to == "csv" ? u"csv:Text - txt - csv (StarCalc):44,34,76,1"_s : QString::fromLatin1(to),
                     u"--outdir"_s,
                     folder.Path(),
                     book};
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(120'000) && process.exitCode() == 0)
        << qPrintable(program) << ": " << qPrintable(process.errorString()) << '\n'
        << process.readAll().constData();
    return folder.Get("book." + to);
}

/// Texts that programs often change. Gnumeric has no escapes for control characters, so it gets none.
Rows CommonTable(bool hasEscapes)
{
    Rows rows = {{u"ID"_s, u"type"_s, u"English"_s, u"\u4F60\u597D"_s},
                 {u"=1+1"_s, u"-5"_s, u"@x"_s, u"+a"_s},
                 {u"007"_s, u"TRUE"_s, u"1/2"_s, u"1e5"_s},
                 {u" blanks  "_s, u"two\nlines\n"_s, u"\ttab"_s, u"\"q\"\""_s},
                 {u"<&>]]>'"_s, u"_x004 _x"_s, u"\U0001F600\U00020000"_s, u"a,b;c"_s},
                 {u"\u05E9\u202E"_s, u"http://example.org/"_s, QString(), u"e\u0301 \u00A0"_s},
                 {QString(32'000, QChar(0x4E00))}};
    if (hasEscapes)
        rows.push_back({u"_x0041_"_s, u"a\u001Fb_x000D__"_s});
    return rows;
}

} // namespace

TEST(Workbook, ReadsBackEveryTable)
{
    for (const auto &[name, write, read, tables] : FORMATS) {
        for (unsigned seed = 0; seed < tables; ++seed) {
            const Rows rows = AwkwardTable(seed);
            ASSERT_EQ(Read(read, Written(write, rows)), rows) << name << ' ' << seed;
        }
        EXPECT_EQ(Read(read, Written(write, {})), Rows()) << name;
    }
}

TEST(Workbook, StopsWhenTheCallerNoLongerWantsTheSheet)
{
    const std::atomic<bool> stop = true;
    for (const auto &[name, write, read, tables] : FORMATS) {
        Sheet sheet;
        sheet.stop = &stop;
        EXPECT_EQ(read(Written(write, {{u"a"_s}}), sheet).fault, Stopped) << name;
    }
}

TEST(Workbook, AThreadThatUnpacksGetsNoSignalThatEndsTheProgram)
{
    const PartUnpacker unpacker("x", /*isDeflated=*/false, 2 << 20);
    const QStringList threads = QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    EXPECT_EQ(threads.size(), 2);
    for (const QString &thread : threads) {
        QFile status(u"/proc/self/task/%1/status"_s.arg(thread));
        ASSERT_TRUE(status.open(QIODevice::ReadOnly));
        const QByteArray all = status.readAll();
        const quint64 blocked = all.mid(all.indexOf("SigBlk:") + 7, 17).trimmed().toULongLong(nullptr, 16);
        EXPECT_EQ((blocked >> (SIGTERM - 1) & 1) != 0, thread.toInt() != getpid());
    }
}

TEST(Workbook, TheLaterTextOfACellWinsInAnyOrderOfCells)
{
    Sheet sheet;
    for (quint32 i = 0; i < 1000; ++i)
        sheet.Add(999 - i % 500, 0, QString::number(i));
    sheet.Finish();
    for (quint32 i = 500; i < 1000; ++i)
        ASSERT_EQ(sheet.At(999 - i % 500, 0), QString::number(i));
}

TEST(Workbook, OtherProgramsReadTheSameCells)
{
    for (const bool isOffice : {false, true}) {
        const Rows rows = CommonTable(isOffice);
        const QString program = isOffice ? u"soffice"_s : u"ssconvert"_s;
        const QByteArray file = Written(WriteXlsx, rows);
        EXPECT_EQ(Read(ReadCsv, Converted(program, file, "xlsx", "csv")), rows) << qPrintable(program);
        EXPECT_EQ(Read(ReadXlsx, Converted(program, file, "xlsx", "xlsx")), rows) << qPrintable(program);
    }
    for (unsigned seed = 0; seed < 4; ++seed) {
        const Rows rows = RandomTable(seed, ALPHABETS);
        for (const QString &program : {QStringLiteral(SYSTEM_PYTHON), u"ssconvert"_s})
            ASSERT_EQ(Read(ReadCsv, Converted(program, Written(WriteXls, rows), "xls", "csv")), rows)
                << seed << ' ' << qPrintable(program);
    }
}

TEST(Workbook, ReadsRandomTablesFromOtherPrograms)
{
    for (unsigned seed = 0; seed < 4; ++seed) {
        // No text that is guarded, that Gnumeric reads as a number, or that it counts wrongly (beyond 0xFFFF).
        const Rows plain = RandomTable(seed, {u"z\u00E9\u4F60"_s, u"xy z"_s});
        EXPECT_EQ(Read(ReadXls, Converted(u"ssconvert"_s, Written(WriteCsv, plain), "csv", "xls")), plain) << seed;
        const Rows rows = RandomTable(seed, ALPHABETS.sliced(1));
        EXPECT_EQ(Read(ReadXls, Converted(QStringLiteral(SYSTEM_PYTHON), Written(WriteCsv, rows), "csv", "xls")), rows)
            << seed;
    }
}

TEST(Workbook, HasABoldFrozenHeaderAndWrappedTexts)
{
    const Rows rows = {{u"ID"_s}, {QString(), QString(), QString(), u"=1+1"_s}, {u"'x"_s}};
    EXPECT_EQ(Converted(QStringLiteral(SYSTEM_PYTHON), Written(WriteXls, rows), "xls", "txt").toStdString(),
              "Strings frozen rows 2\n"
              "widths 30 14 40 40\n"
              "row 0 Arial weight 700 @ wrapped top\n"
              "row 1 Arial weight 400 @ wrapped top\n"
              "row 2 Arial weight 400 @ wrapped top\n");
}

TEST(Workbook, AcceptsTheLargestTablesAndRefusesLargerOnesWithPlaceAndLimit)
{
    Rows corners(65536);
    corners.front() = corners.back() = {u"a"_s};
    corners.back().resize(255);
    corners.back().append(QString(32767, u'z'));
    EXPECT_TRUE(Read(ReadXls, Written(WriteXls, corners)) == corners);
    const Rows longest = {{QString(32'767, u'\1')}, {u"\U0001F600"_s.repeated(16'383) + u'x'}};
    EXPECT_EQ(Read(ReadXlsx, Written(WriteXlsx, longest)), longest);
    const Rows widest = {QStringList(16'383) + QStringList(u"a"_s)};
    EXPECT_EQ(Read(ReadXlsx, Written(WriteXlsx, widest)), widest);

    const Rows tooLong = {{}, {QString(), QString(32'768, u'x')}};
    const struct
    {
        Writer *write;
        Rows rows;
        const char *reason;
    } refusals[] = {
        {WriteXls, Rows(65'537), "row 65537: an .xls sheet has at most 65536 rows, but 65537 are needed"},
        {WriteXls, {QStringList(300)}, "column 257: an .xls sheet has at most 256 columns, but 300 are needed"},
        {WriteXls, tooLong, "row 2, column 2: a text has 32768 characters, but an .xls cell has room for 32767 only"},
        {WriteXlsx, Rows(1'048'577), "row 1048577: an .xlsx sheet has at most 1048576 rows"},
        {WriteXlsx, {QStringList(16'385)}, "column 16385: an .xlsx sheet has at most 16384 columns"},
        {WriteXlsx, tooLong,
         "row 2, column 2: the text has 32768 characters, but an .xlsx cell has room for 32767 only"},
        {WriteCsv, Rows(1'048'577),
         "1048577 rows and 0 columns are too many: a sheet has at most 1048576 rows and 16384 columns"},
        {WriteCsv,
         {QStringList(16'385)},
         "1 rows and 16385 columns are too many: a sheet has at most 1048576 rows and 16384 columns"},
    };
    for (const auto &[write, rows, reason] : refusals) {
        TestTable table(rows);
        WorkbookResult result;
        EXPECT_TRUE(InMemory([&](std::FILE *file) { result = write(table, file); }).isEmpty());
        EXPECT_EQ(result.fault, TooLarge);
        EXPECT_EQ(result.reason.toStdString(), reason);
    }
    struct : TestTable
    {
        using TestTable::TestTable;
        [[nodiscard]] qint64 RowCount() const override { return qint64(4) << 30; }
    } endless(Rows{});
    EXPECT_EQ(WriteXls(endless, nullptr).fault, TooLarge);
}

TEST(Workbook, WritesTheSameBytesForTheSameTableAndNoOtherFiles)
{
    const TempFolder folder;
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", folder.Path().toUtf8());
    const qsizetype openFiles = QDir(u"/proc/self/fd"_s).count();
    const Rows rows = RandomTable(3, ALPHABETS);
    const QByteArray xls = Written(WriteXls, rows);
    const QByteArray xlsx = Written(WriteXlsx, rows);
    QThread::msleep(1100);
    EXPECT_TRUE(Written(WriteXls, rows) == xls);
    EXPECT_TRUE(Written(WriteXlsx, rows) == xlsx);
    TestTable tooLong({{QString(40'000, u'x')}});
    EXPECT_TRUE(WriteXlsx(tooLong, nullptr).HasFailed());
    EXPECT_EQ(folder.Names(), QStringList());
    EXPECT_EQ(QDir(u"/proc/self/fd"_s).count(), openFiles);
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
}
