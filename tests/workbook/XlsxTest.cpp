#include "FileLimit.h"
#include "PackageBuilder.h"
#include "TempFolder.h"
#include "TestTable.h"

#include <QThread>

namespace
{

QByteArray SheetOf(const QByteArray &rows)
{
    return QByteArray(Package::SHEET).replace("%1", rows);
}

/// The most memory that the process had since the last call, in bytes. None with a sanitizer, which keeps what is
/// freed.
qint64 PeakMemory()
{
#ifdef __SANITIZE_ADDRESS__
    return 0;
#else
    QFile status(QStringLiteral("/proc/self/status"));
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    const QByteArray text = status.readAll();
    QFile reset(QStringLiteral("/proc/self/clear_refs"));
    EXPECT_TRUE(reset.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && reset.write("5") == 1);
    return text.mid(text.indexOf("VmHWM:") + 6).trimmed().split(' ').first().toLongLong() * 1024;
#endif
}

/// A file whose first `from` became `to`, which is as long.
QByteArray Patched(QByteArray file, const QByteArray &from, const QByteArray &to)
{
    const qsizetype at = file.indexOf(from);
    EXPECT_GE(at, 0);
    return file.replace(at, to.size(), to);
}

/// A field of a part's entry in the directory.
QByteArray PatchedEntry(const Package &package, const QByteArray &part, qsizetype field, const QByteArray &value)
{
    QByteArray file = package.Build();
    return file.replace(file.lastIndexOf(part) - 46 + field, value.size(), value);
}

} // namespace

TEST(Xlsx, AnyTableComesBackAsItWas)
{
    for (unsigned seed = 0; seed < 100; ++seed) {
        SCOPED_TRACE(seed);
        const TestTable table = AwkwardTable(seed);
        ASSERT_EQ(Read(ReadXlsx, Written(WriteXlsx, table)), table.rows);
    }
}

TEST(Xlsx, CellsOfEveryTypeGiveTheirTexts)
{
    const QByteArray file =
        Package()
            .Strings("<si><t>plain</t></si>"
                     "<si><r><rPr><b/></rPr><t>ri</t></r><r><t xml:space='preserve'>ch </t></r>"
                     "<rPh sb='0' eb='1'><t>sound</t></rPh><phoneticPr fontId='1'/></si>"
                     "<si><t> a_x000d_&#10;_x005F_x000D_ _xD83D__xDE00_ _x00g0_ _x0041</t></si><si/>")
            .Rows("<row><c t='s'><v>0</v></c><c t='s'><v>1</v></c><c t='s'><v>2</v></c><c t='s'><v>3</v></c></row>"
                  "<row r='3'><c r='B3' t='inlineStr'><is><t>in</t><r><t>line</t></r><rPh><t>x</t></rPh></is></c>"
                  "<c t='str'><f>A1&amp;\"x\"</f><v> formula</v></c><c r='AA3'><v>1.50</v></c></row>"
                  "<row><c t='n'><v>-1e3</v></c><c t='b'><v>1</v></c><c t='e'><v>#N/A</v></c><c t='d'><v>2020-01-01</v>"
                  "</c><c/><c><v/></c><c t='str'/><c t='s'/><c><f>1+1</f><v>2</v></c></row>")
            .Build();

    Rows rows = Read(ReadXlsx, file);
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[0], QStringList({QStringLiteral("plain"), QStringLiteral("rich "),
                                    QStringLiteral(" a\r\n_x000D_ \U0001F600 _x00g0_ _x0041")}));
    EXPECT_EQ(rows[1], QStringList());
    EXPECT_EQ(rows[2].takeLast(), QStringLiteral("1.5"));
    EXPECT_EQ(rows[2].first(3), QStringList({QString(), QStringLiteral("inline"), QStringLiteral(" formula")}));
    EXPECT_EQ(rows[3].size(), 9);
    EXPECT_EQ(rows[3].join(u'|'), QStringLiteral("-1000||||||||2"));
}

TEST(Xlsx, TheFirstWorksheetIsFoundWhereverItLies)
{
    const QByteArray row = "<row><c t='s'><v>0</v></c></row>";
    const Package package = Package().Strings("<si><t>found</t></si>").Rows(row);
    const QByteArray strict = "<p:worksheet xmlns:p='http://purl.oclc.org/ooxml/spreadsheetml/main'><p:sheetData>"
                              "<p:row><p:c t='s'><p:v>0</p:v></p:c></p:row></p:sheetData></p:worksheet>";
    const QByteArray inForeignElements =
        "<worksheet xmlns='http://schemas.openxmlformats.org/spreadsheetml/2006/main' xmlns:x='urn:x'>"
        "<x:sheetData><row r='0'/></x:sheetData><x:any><sheetData><row r='0'/></sheetData></x:any><sheetData>" +
        row + "</sheetData></worksheet>";
    const QByteArray threeSheets =
        "<workbook xmlns='http://schemas.openxmlformats.org/spreadsheetml/2006/main' xmlns:q='http://purl.oclc.org/"
        "ooxml/officeDocument/relationships'><sheets><sheet name='chart' sheetId='2' q:id='r2'/><sheet name='hidden' "
        "sheetId='3' state='veryHidden' q:id='r3'/><sheet name='other' sheetId='1' q:id='r1'/></sheets></workbook>";
    const std::vector<std::pair<const char *, Package>> cases = {
        {"absolute targets",
         Package(package).Links("xl/_rels/workbook.xml.rels",
                                {{"worksheet", "/xl/sheet.xml"}, {"sharedStrings", "/xl/strings.xml"}})},
        {"elsewhere", Package(package)
                          .Rename("xl/sheet.xml", "deep/er/one.xml")
                          .Rename("xl/strings.xml", "s.xml")
                          .Links("xl/_rels/workbook.xml.rels",
                                 {{"worksheet", "./../deep/x/../er/one.xml"}, {"sharedStrings", "../s.xml"}})},
        {"at the top", Package(package)
                           .Rename("xl/workbook.xml", "book.xml")
                           .Rename("xl/_rels/workbook.xml.rels", "_rels/book.xml.rels")
                           .Rename("xl/sheet.xml", "sheet.xml")
                           .Rename("xl/strings.xml", "strings.xml")
                           .Links("_rels/.rels", {{"extended-properties", "no.xml"}, {"officeDocument", "/book.xml"}})},
        {"other case and slashes", Package(package).Rename("xl/sheet.xml", "XL\\Sheet.XML")},
        {"strict, with a prefix", Package(package).Set("xl/sheet.xml", strict)},
        {"in UTF-16",
         Package(package).Set("xl/sheet.xml", Utf16(QString::fromLatin1(SheetOf(row)), QStringConverter::Utf16LE))},
        {"beside foreign elements", Package(package).Set("xl/sheet.xml", inForeignElements)},
        {"hidden, behind a chart", Package(package)
                                       .Set("xl/workbook.xml", threeSheets)
                                       .Links("xl/_rels/workbook.xml.rels", {{"worksheet", "other.xml"},
                                                                             {"chartsheet", "chart.xml"},
                                                                             {"worksheet", "sheet.xml"},
                                                                             {"sharedStrings", "strings.xml"}})},
    };
    for (const auto &[what, made] : cases) {
        SCOPED_TRACE(what);
        EXPECT_EQ(Read(ReadXlsx, made.Build()), Rows({{QStringLiteral("found")}}));
    }
}

TEST(Xlsx, SizesOf64BitsAreTaken)
{
    const QByteArray sheet = SheetOf("<row><c><v>7</v></c></row>");
    QByteArray file = Package().Rows("<row><c><v>7</v></c></row>").Build();
    const QByteArray size = Package::U32({quint32(sheet.size()), 0});
    const QByteArray wide = Package::U16({0x9999, 0}) + Package::U16({1, 16}) + size + size;
    const qsizetype entry = file.lastIndexOf("xl/sheet.xml") - 46;
    file.replace(entry + 20, 8, QByteArray(8, '\xFF'));
    file.replace(entry + 30, 2, Package::U16({quint16(wide.size())}));
    file.insert(entry + 46 + 12, wide);
    const qsizetype end = file.lastIndexOf("PK\5\6");
    const qsizetype start = file.indexOf("PK\1\2");
    file.replace(end + 12, 4, Package::U32({quint32(end - start)}));
    EXPECT_EQ(Read(ReadXlsx, file), Rows({{QStringLiteral("7")}}));
}

TEST(Xlsx, WhatIsWrongIsSaid)
{
    const auto rows = [](const QByteArray &xml) { return Package().Rows(xml).Build(); };
    const Package package = Package().Rows("<row><c><v>12345</v></c></row>");
    const QByteArray compound("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0", 41);
    const struct
    {
        WorkbookFault fault;
        const char *reason;
        QByteArray file;
    } cases[] = {
        {WorkbookFault::NoWorkbook, "isn't a ZIP file", {}},
        {WorkbookFault::NoWorkbook, "isn't a ZIP file", "ID,type\r\n"},
        {WorkbookFault::NoWorkbook, "protected by a password", compound},
        {WorkbookFault::NoWorkbook, "older format", compound.first(20)},
        {WorkbookFault::NoWorkbook, "_rels/.rels is missing", Package().Remove("_rels/.rels").Build()},
        {WorkbookFault::NoWorkbook, "no workbook part", Package().Links("_rels/.rels", {{"image", "a.png"}}).Build()},
        {WorkbookFault::NoWorkbook, "unknown element document",
         Package().Set("xl/workbook.xml", "<document/>").Build()},
        {WorkbookFault::Broken, "xl/workbook.xml is missing", Package().Remove("xl/workbook.xml").Build()},
        {WorkbookFault::Broken, "xl/sheet.xml is missing", Package().Remove("xl/sheet.xml").Build()},
        {WorkbookFault::Broken, "relationship r1 is missing",
         Package().Links("xl/_rels/workbook.xml.rels", {}).Build()},
        {WorkbookFault::Broken, "no worksheet",
         Package().Links("xl/_rels/workbook.xml.rels", {{"chartsheet", "sheet.xml"}}).Build()},
        {WorkbookFault::Broken, "xl/sheet.xml, line 2:", Package().Set("xl/sheet.xml", SheetOf("\n</row>")).Build()},
        {WorkbookFault::Broken, "no element found", Package().Set("xl/sheet.xml", SheetOf("").chopped(12)).Build()},
        {WorkbookFault::Broken, "document type",
         Package().Set("xl/sheet.xml", "<!DOCTYPE a [<!ENTITY a 'a'>]>" + SheetOf("")).Build()},
        {WorkbookFault::Broken, "row 1, column 2: there is no shared string \"0\" of 0",
         rows("<row><c/><c t='s'><v>0</v></c></row>")},
        {WorkbookFault::Broken, "\"-1\" of 0", rows("<row><c t='s'><v>-1</v></c></row>")},
        {WorkbookFault::Broken, "\"1,5\" is no number", rows("<row><c><v>1,5</v></c></row>")},
        {WorkbookFault::Broken, "\"nan\" is no number", rows("<row><c><v>nan</v></c></row>")},
        {WorkbookFault::Broken, "\"x\" is no type", rows("<row><c t='x'/></row>")},
        {WorkbookFault::Broken, "\"0\" is no row", rows("<row r='0'/>")},
        {WorkbookFault::Broken, "\"1A\" is no cell", rows("<row><c r='1A'/></row>")},
        {WorkbookFault::TooLarge, "row 4294967297: a sheet has 1048576", rows("<row r='4294967297'/>")},
        {WorkbookFault::TooLarge, "row 1048577", rows("<row r='1048576'/><row/>")},
        {WorkbookFault::TooLarge, "column 16385 in row 1", rows("<row><c r='XFE1'/></row>")},
        {WorkbookFault::Broken, "checksum", Patched(package.Build(), "12345", "12346")},
        {WorkbookFault::Broken, "is encrypted", PatchedEntry(package, "xl/sheet.xml", 8, "\1")},
        {WorkbookFault::Broken, "unknown method 12", PatchedEntry(package, "xl/sheet.xml", 10, "\x0C")},
        {WorkbookFault::Broken, "checksum", PatchedEntry(package, "xl/sheet.xml", 24, "\xFF")},
        {WorkbookFault::Broken, "can't be unpacked", PatchedEntry(package, "xl/sheet.xml", 24, "\1")},
        {WorkbookFault::Broken, "overlap", PatchedEntry(package, "xl/sheet.xml", 20, "\xFE")},
        {WorkbookFault::Broken, "doesn't lie at", PatchedEntry(package, "xl/sheet.xml", 42, "\1")},
        {WorkbookFault::Broken, "end behind the file", PatchedEntry(package, "xl/sheet.xml", 22, "\xFF")},
        {WorkbookFault::Broken, "sizes are missing", PatchedEntry(package, "xl/sheet.xml", 20, QByteArray(4, '\xFF'))},
        {WorkbookFault::Broken, "another named xl/sheet.xml", Package().Add("XL/sheet.xml", "x").Build()},
    };
    for (const auto &[fault, reason, file] : cases) {
        SCOPED_TRACE(reason);
        const WorkbookResult result = ReadFailing(ReadXlsx, file);
        EXPECT_EQ(result.fault, fault);
        EXPECT_TRUE(result.reason.contains(QLatin1String(reason))) << result.reason.toStdString();
    }
}

TEST(Xlsx, EveryCutIsAFaultAndNoDamageACrash)
{
    const QByteArray whole = Written(WriteXlsx, AwkwardTable(3));
    for (qsizetype size = 0; size < whole.size(); ++size)
        ASSERT_TRUE(ReadFailing(ReadXlsx, whole.first(size)).HasFailed()) << size;
    for (qsizetype at = 0; at < whole.size(); ++at) {
        QByteArray damaged = whole;
        damaged[at] = char(damaged[at] ^ 0xFF);
        (void)ReadFailing(ReadXlsx, damaged);
    }
}

TEST(Xlsx, BombsAreRefusedWithLittleMemory)
{
    const auto sheet = [](const QByteArray &rows) {
        return Package().Set("xl/sheet.xml", SheetOf(rows), true).Build();
    };
    const QByteArray blanks(64 << 20, ' ');
    // A part that has the size of a bomb, but the directory tells another.
    QByteArray lying = sheet(blanks);
    lying.replace(Package::U32({quint32(SheetOf(blanks).size())}), Package::U32({1000}));
    // These shrink a lot, but not too much, and take more memory than they have bytes.
    std::mt19937 random(1);
    QByteArray cells = "<row>";
    QByteArray runs;
    for (int i = 0; i < 150'000; ++i) {
        const QByteArray number = QByteArray::number(random());
        cells += QByteArray("<c><v>1</v></c>").repeated(60) + "<c><v>" + number + "</v></c>";
        cells += i % 200 == 0 ? "</row><row>" : "";
        runs += "<r><t>" + QByteArray(900, 'x') + number + "</t></r>";
    }
    QByteArray names;
    for (int i = 0; i < 700'000; ++i)
        names += "<a" + QByteArray::number(i) + "/>";
    const QByteArray longText(15 << 20, 'x');
    const std::vector many(70'000, std::pair<QByteArray, QByteArray>("a", "b"));
    const std::pair<const char *, QByteArray> bombs[] = {
        {"is the most for", sheet(blanks)},
        {"can't be unpacked", lying},
        {"the cells take too much memory", sheet(cells + "</row>")},
        {"the texts take too much memory", sheet("<row><c t='inlineStr'><is>" + runs + "</is></c></row>")},
        {"the shared strings take too much memory", Package().Strings("<si>" + runs + "</si>", true).Build()},
        {"elements take too much memory", sheet(QByteArray("<a>").repeated(1'000'000))},
        {"its elements take too much memory", sheet(names)},
        {"a tag of more than", sheet("<a b='" + longText + "'/>")},
        {"a text of more than", Package().Strings("<si><t>" + longText + "</t></si>").Build()},
        {"more than 65536 relationships", Package().Links("_rels/.rels", many).Build()},
    };
    for (const auto &[reason, file] : bombs) {
        SCOPED_TRACE(reason);
        const qint64 before = PeakMemory();
        const WorkbookResult result = ReadFailing(ReadXlsx, file);
        EXPECT_TRUE(result.reason.contains(QLatin1String(reason))) << result.reason.toStdString();
        EXPECT_LT(PeakMemory() - before, 256 << 20);
    }
}

TEST(Xlsx, WhatDoesNotFitIsRefused)
{
    struct Sized : ISheetSource
    {
        Sized(qint64 r, int c) : rows(r), columns(c) {}
        [[nodiscard]] qint64 RowCount() const override { return rows; }
        [[nodiscard]] int ColumnCount() const override { return columns; }
        std::span<const QStringView> Row(qint64) override { return {}; }
        qint64 rows;
        int columns;
    };
    const auto write = [](ISheetSource &&source) {
        WorkbookResult result;
        EXPECT_EQ(InMemory([&](std::FILE *file) { result = WriteXlsx(source, file); }), QByteArray());
        EXPECT_EQ(result.fault, WorkbookFault::TooLarge);
        return result.reason.toStdString();
    };
    EXPECT_EQ(write(Sized(1'048'577, 1)), "row 1048577: an .xlsx sheet has 1048576");
    EXPECT_EQ(write(Sized(1, 16'385)), "column 16385: an .xlsx sheet has 16384");
    EXPECT_EQ(write(TestTable({{}, {QString(), QString(32'768, u'x')}})),
              "row 2, column 2: the text has 32768 characters, an .xlsx cell 32767");

    const Rows most = {{QString(32'767, u'\1')}, {QStringLiteral("\U0001F600").repeated(16'383) + u'x'}};
    EXPECT_EQ(Read(ReadXlsx, Written(WriteXlsx, TestTable(most))), most);
}

TEST(Xlsx, ALoneSurrogateBecomesAReplacementCharacter)
{
    const QString text = QString(QChar(0xD83D)) + u'a' + QChar(0xDE00) + QChar(0xD83D) + QChar(0xDE00) + QChar(0xDC00);
    EXPECT_EQ(Read(ReadXlsx, Written(WriteXlsx, TestTable({{text}}))),
              Rows({{QStringLiteral("\uFFFDa\uFFFD\U0001F600\uFFFD")}}));
}

TEST(Xlsx, TheSameTableGivesTheSameBytesAndLeavesNothingBehind)
{
    const TempFolder folder;
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", folder.Path().toUtf8());
    const qsizetype openFiles = QDir(QStringLiteral("/proc/self/fd")).count();
    const QByteArray file = Written(WriteXlsx, AwkwardTable(5));
    QThread::msleep(1100);
    EXPECT_EQ(Written(WriteXlsx, AwkwardTable(5)), file);
    TestTable tooLong({{QString(40'000, u'x')}});
    EXPECT_TRUE(WriteXlsx(tooLong, nullptr).HasFailed());
    EXPECT_EQ(folder.Names(), QStringList());
    EXPECT_EQ(QDir(QStringLiteral("/proc/self/fd")).count(), openFiles);
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
}

TEST(Workbook, AFullDiskIsNeverACutWorkbook)
{
    TestTable table(Rows(300, {QStringLiteral("ID"), QString(), QStringLiteral("some text")}));
    for (const auto &[name, write] : {std::pair("a.xlsx", &WriteXlsx), {"a.xls", &WriteXls}, {"a.csv", &WriteCsv}}) {
        SCOPED_TRACE(name);
        TempFolder folder;
        const QByteArray whole = Written(write, table);
        for (rlim_t limit = 500; limit < 100'000; limit += 1'777) {
            folder.Put(name, "as before");
            const WorkbookResult result = WithFileLimit(limit, [&] { return WriteWorkbook(folder.Path(name), table); });
            EXPECT_TRUE(result.fault == WorkbookFault::None || result.fault == WorkbookFault::CannotWrite);
            ASSERT_TRUE(folder.Get(name) == (result.HasFailed() ? "as before" : whole)) << limit;
            EXPECT_EQ(folder.Names().size(), 1);
        }
    }
}
