// SPDX-License-Identifier: MIT
#include "PackageBuilder.h"
#include "TestTable.h"

#include <QFile>

namespace
{

QByteArray SheetOf(const QByteArray &rows)
{
    return QByteArray(Package::SHEET).replace("%1", rows);
}

/// Returns the peak of the process's memory since the last call, in bytes. Returns 0 with a sanitizer, which keeps
/// freed memory.
qint64 PeakMemory()
{
#ifdef __SANITIZE_ADDRESS__
    return 0;
#else
    QFile status(u"/proc/self/status"_s);
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    const QByteArray text = status.readAll();
    QFile reset(u"/proc/self/clear_refs"_s);
    EXPECT_TRUE(reset.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && reset.write("5") == 1);
    return text.mid(text.indexOf("VmHWM:") + 6).trimmed().split(' ').first().toLongLong() * 1024;
#endif
}

constexpr char BOOK_LINKS[] = "xl/_rels/workbook.xml.rels";

} // namespace

TEST(Xlsx, ReadsTheTextsOfCellsOfEveryType)
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

    QStringList wide{QString(), u"inline"_s, u" formula"_s};
    wide.resize(26);
    wide.append(u"1.5"_s);
    EXPECT_EQ(Read(ReadXlsx, file), Rows({{u"plain"_s, u"rich "_s, u" a\r\n_x000D_ \U0001F600 _x00g0_ _x0041"_s},
                                          {},
                                          wide,
                                          u"-1000|||43831|||||2"_s.split(u'|')}));
}

TEST(Xlsx, ReadsADateAsItsSerialNumber)
{
    const auto read = [](const QByteArray &properties, const QByteArray &dates) {
        QByteArray cells;
        for (const QByteArray &date : dates.split(' '))
            cells += "<c t='d'><v>" + date + "</v></c>";
        return Read(ReadXlsx, Package().Properties(properties).Rows("<row>" + cells + "</row>").Build());
    };
    EXPECT_EQ(
        read("", "2024-02-29T18:00:00Z 1900-03-01 1900-02-28 1900-01-01T06:00:00.000 12:00:00 2024-02-29T13:45:30"),
        Rows({{u"45351.75"_s, u"61"_s, u"59"_s, u"1.25"_s, u"0.5"_s, u"45351.573264"_s}}));
    EXPECT_EQ(read("<workbookPr date1904='1'/>", "1904-01-02 2024-02-29"), Rows({{u"1"_s, u"43889"_s}}));
    EXPECT_EQ(read("<workbookPr date1904='false'/>", "2024-02-29"), Rows({{u"45351"_s}}));
}

TEST(Xlsx, FindsTheFirstWorksheetAnywhere)
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
         Package(package).Links(BOOK_LINKS, {{"worksheet", "/xl/sheet.xml"}, {"sharedStrings", "/xl/strings.xml"}})},
        {"elsewhere",
         Package(package)
             .Rename("xl/sheet.xml", "deep/er/one.xml")
             .Rename("xl/strings.xml", "s.xml")
             .Links(BOOK_LINKS, {{"worksheet", "./../deep/x/../er/one.xml"}, {"sharedStrings", "../s.xml"}})},
        {"at the top", Package(package)
                           .Rename("xl/workbook.xml", "book.xml")
                           .Rename(BOOK_LINKS, "_rels/book.xml.rels")
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
                                       .Links(BOOK_LINKS, {{"worksheet", "other.xml"},
                                                           {"chartsheet", "chart.xml"},
                                                           {"worksheet", "sheet.xml"},
                                                           {"sharedStrings", "strings.xml"}})},
    };
    for (const auto &[what, made] : cases) {
        SCOPED_TRACE(what);
        EXPECT_EQ(Read(ReadXlsx, made.Build()), Rows({{u"found"_s}}));
    }
}

TEST(Xlsx, Accepts64BitSizes)
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
    EXPECT_EQ(Read(ReadXlsx, file), Rows({{u"7"_s}}));
}

TEST(Xlsx, ReportsErrors)
{
    const auto rows = [](const QByteArray &xml) { return Package().Rows(xml).Build(); };
    const QByteArray file = rows("<row><c><v>12345</v></c></row>");
    const auto entry = [&file](qsizetype field, const QByteArray &value) { // changes the sheet's entry in the directory
        return QByteArray(file).replace(file.lastIndexOf("xl/sheet.xml") - 46 + field, value.size(), value);
    };
    const QByteArray compound("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0", 41);
    ExpectRefused(ReadXlsx,
                  {{NoWorkbook, "isn't a ZIP file", {}},
                   {NoWorkbook, "isn't a ZIP file", "ID,type\r\n"},
                   {NoWorkbook, "protected by a password", compound},
                   {NoWorkbook, "older format", compound.first(20)},
                   {NoWorkbook, "_rels/.rels is missing", Package().Remove("_rels/.rels").Build()},
                   {NoWorkbook, "no workbook part", Package().Links("_rels/.rels", {{"image", "a.png"}}).Build()},
                   {NoWorkbook, "unknown element document", Package().Set("xl/workbook.xml", "<document/>").Build()},
                   {Broken, "xl/workbook.xml is missing", Package().Remove("xl/workbook.xml").Build()},
                   {Broken, "xl/sheet.xml is missing", Package().Remove("xl/sheet.xml").Build()},
                   {Broken, "relationship r1 is missing", Package().Links(BOOK_LINKS, {}).Build()},
                   {Broken, "no worksheet", Package().Links(BOOK_LINKS, {{"chartsheet", "sheet.xml"}}).Build()},
                   {Broken, "xl/sheet.xml, line 2:", rows("\n</row>")},
                   {Broken, "no element found", Package().Set("xl/sheet.xml", SheetOf("").chopped(12)).Build()},
                   {Broken, "document type",
                    Package().Set("xl/sheet.xml", "<!DOCTYPE a [<!ENTITY a 'a'>]>" + SheetOf("")).Build()},
                   {Broken, "row 1, column 2: there is no shared string \"0\"; the number of shared strings is 0",
                    rows("<row><c/><c t='s'><v>0</v></c></row>")},
                   {Broken, "\"-1\"; the number of shared strings is 0", rows("<row><c t='s'><v>-1</v></c></row>")},
                   {Broken, "\"1,5\" is not a number", rows("<row><c><v>1,5</v></c></row>")},
                   {Broken, "\"nan\" is not a number", rows("<row><c><v>nan</v></c></row>")},
                   {Broken, "\"x\" is not a cell type", rows("<row><c t='x'/></row>")},
                   {Broken, "\"2024-13-01\" is not a date", rows("<row><c t='d'><v>2024-13-01</v></c></row>")},
                   {Broken, "\"0\" is not a row", rows("<row r='0'/>")},
                   {Broken, "\"1A\" is not a cell", rows("<row><c r='1A'/></row>")},
                   {TooLarge, "row 4294967297: a sheet has at most 1048576 rows", rows("<row r='4294967297'/>")},
                   {TooLarge, "row 1048577", rows("<row r='1048576'/><row/>")},
                   {TooLarge, "column 16385 in row 1", rows("<row><c r='XFE1'/></row>")},
                   {Broken, "checksum", QByteArray(file).replace("12345", "12346")},
                   {Broken, "is encrypted", entry(8, "\1")},
                   {Broken, "unknown method 12", entry(10, "\x0C")},
                   {Broken, "checksum", entry(24, "\xFF")},
                   {Broken, "can't be decompressed", entry(24, "\1")},
                   {Broken, "overlap", entry(20, "\xFE")},
                   {Broken, "it is not at", entry(42, "\1")},
                   {Broken, "extend beyond the end of the file", entry(22, "\xFF")},
                   {Broken, "sizes are missing", entry(20, QByteArray(4, '\xFF'))},
                   {Broken, "another part has the name xl/sheet.xml", Package().Add("XL/sheet.xml", "x").Build()}});
}

TEST(Xlsx, RefusesEveryTruncationAndSurvivesDamage)
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

TEST(Xlsx, ReadsALargePartToItsEndAndRefusesItsDamage)
{
    std::mt19937 random(1);
    QByteArray rows;
    for (int i = 0; i < 60'000; ++i)
        rows += "<row><c><v>" + QByteArray::number(random()) + "</v></c></row>";
    rows += "<row><c><v>7</v></c></row>";
    const QByteArray whole = Package().Set("xl/sheet.xml", SheetOf(rows), true).Build();
    EXPECT_EQ(Read(ReadXlsx, whole).size(), 60'001U);
    for (const qsizetype at : {whole.size() / 3, whole.size() / 2, whole.size() * 9 / 10}) {
        QByteArray damaged = whole;
        damaged[at] = char(damaged[at] ^ 0x10);
        EXPECT_TRUE(ReadFailing(ReadXlsx, damaged).HasFailed()) << at;
    }
}

TEST(Xlsx, RefusesZipBombsWithLittleMemory)
{
    const auto sheet = [](const QByteArray &rows) {
        return Package().Set("xl/sheet.xml", SheetOf(rows), true).Build();
    };
    const QByteArray blanks(64 << 20, ' ');
    // A part of that size, for which the directory has a smaller size.
    QByteArray wrongSize = sheet(blanks);
    wrongSize.replace(Package::U32({quint32(SheetOf(blanks).size())}), Package::U32({1000}));
    // These compress well, but not suspiciously, and need more memory than they have bytes.
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
        {"compressed bytes may have at most", sheet(blanks)},
        {"can't be decompressed", wrongSize},
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
        EXPECT_THAT(ReadFailing(ReadXlsx, file).reason.toStdString(), testing::HasSubstr(reason));
        EXPECT_LT(PeakMemory() - before, 256 << 20);
    }
}

TEST(Xlsx, ALoneSurrogateBecomesAReplacementCharacter)
{
    const QString text = QString(QChar(0xD83D)) + u'a' + QChar(0xDE00) + QChar(0xD83D) + QChar(0xDE00) + QChar(0xDC00);
    EXPECT_EQ(Read(ReadXlsx, Written(WriteXlsx, {{text}})), Rows({{u"\uFFFDa\uFFFD\U0001F600\uFFFD"_s}}));
}
