// SPDX-License-Identifier: MIT
#include "SpreadsheetImport.h"

#include "StringProject.h"

using namespace Qt::StringLiterals;
using namespace std::string_literals;
using ::testing::HasSubstr;

namespace
{

/// Records the planned change of each text, in the order of the sheet.
struct Fates : IImportWatch
{
    void RowPlanned(const ImportPlan &plan, size_t index) override
    {
        for (const ImportPlan::Cell &cell : plan.Cells(index))
            all += CellName(cell.column, cell.row + 1) + u' ' + u"FN=KR-X"[int(cell.fate)] + u' ' + cell.inSource +
                   (cell.fate == CellFate::Kept || cell.fate == CellFate::Replaced ? u'/' + cell.inTable : QString()) +
                   u'\n';
    }
    QString all;
};

/// A project with workbooks beside it; "|" separates cells.
struct SheetProject : StringProject
{
    int Import(const QByteArray &readable)
    {
        folder.Put("in.csv", QByteArray(readable).replace('|', ','));
        return ImportSpreadsheet(*this, folder.Path("in.csv")).code;
    }

    /// Imports with a preview of the plan, which must change nothing and must stay the same when all rows are planned.
    int Import(const QByteArray &readable, QString &fates)
    {
        folder.Put("in.csv", QByteArray(readable).replace('|', ','));
        const std::string before = Written();
        SpreadsheetImport import(*this, {folder.Path("in.csv"), u"in.csv"_s});
        Fates early;
        const int code = import.Read(&early).code;
        EXPECT_EQ(Written(), before);
        Fates late;
        for (size_t row = 0; row < import.Plan().RowCount(); ++row)
            late.RowPlanned(import.Plan(), row);
        EXPECT_EQ(early.all, late.all);
        fates = early.all;
        import.Plan().Apply();
        return code;
    }
};

const QByteArray HEAD = "Number of Language|2\nString ID|Resource Type|Description|English|French\n";
const QByteArray FILE_HEAD = "Number of Language|2\nString ID|Resource Type|Description|English(9)|French(12)\n";

} // namespace

TEST(Spreadsheet, AnImportFillsEmptyCellsCreatesMissingRowsAndKeepsTheRest)
{
    SheetProject project;
    ASSERT_EQ(project.Read(FILE_HEAD + "ID_A|Push||a|\nID_B|Normal|note|b|\n##number|2\n"), 0);
    (void)project.Messages();
    QString fates;
    EXPECT_EQ(project.Import(HEAD + "ID_A|Normal|told|other|oui|beyond\n"
                                    "ID_B|Push|note||b\n"
                                    "##number|2\n"
                                    "ID_NEW|Push||new|\n",
                             fates),
              0);
    EXPECT_EQ(project.Messages(), "[demo] import - 0 error(s), 0 warning(s)\r\n");
    EXPECT_EQ(
        project.Written(),
        (FILE_HEAD + "ID_A|Normal|told|a|oui\nID_B|Push|note|b|b\nID_NEW|Push||new|\n##number|3\n").toStdString());
    EXPECT_EQ(fates, u"B3 R Normal/Push\nC3 F told\nD3 K other/a\nE3 N oui\nF3 - beyond\n"
                     "B4 R Push/Normal\nC4 = note\nD4 K /b\nE4 N b\nB6 N Push\nD6 N new\n"_s);
    const std::string before = project.Written();
    EXPECT_EQ(project.Import(HEAD + "ID_A|Normal|told|a|oui\nID_B|Push||b|\n"), 0) << "empty cells clear nothing";
    EXPECT_EQ(project.Written(), before);
    fates.clear();
    EXPECT_EQ(project.Import("Number of Language|1\nString ID|Description|English\nID_B||b\n", fates), 0);
    EXPECT_EQ(fates, u"A3 R Normal/Push\nB3 K /note\nC3 = b\n"_s);
    EXPECT_THAT(project.Written(), HasSubstr("ID_B|Normal|note|b|b\n")) << "without a kind it is cleared";
    project.ids.Find("ID_B", ANY_RESOLUTION)->push = true;
    const auto image = project.CreateFileRes("ID_IMAGE", ANY_RESOLUTION);
    fates.clear();
    EXPECT_EQ(project.Import("Number of Language|1\nString ID|Resource Type|Description|\"French\n\"\n"
                             "ID_IMAGE|Push|x|y\nID_B|odd|note|b\nID_LATE|push||\n",
                             fates),
              0);
    EXPECT_EQ(fates.toStdString(), "B3 - Push\nC3 - x\nD3 - y\nB4 R Normal/Push\nC4 = note\nD4 = b\nB5 - push\n");
    EXPECT_THAT(project.Written(), testing::StartsWith(FILE_HEAD.toStdString()));
}

TEST(Spreadsheet, ReportsEachFaultWithMessageCellAndCode)
{
    const std::string tooFew = "Error 1: invalid number of languages.\r\n";
    const auto expected = [](const char *word, const char *cell) {
        return "Error 1: invalid file format; \"" + std::string(word) + "\" expected at cell " + cell + ".\r\n";
    };
    struct Fault
    {
        QByteArray sheet;
        int code;
        std::string message;
        const char *explanation = "";
    };
    const Fault faults[] = {
        {"a|b\nc|d\n", 4306, "Warning 1: the sheet is almost empty.\r\n",
         "in.csv: there are texts in 2 rows and 2 columns, and a string table has at least 3 of each; only the first "
         "sheet "
         "is read, and its first row must have \"Number of Language\" in A1 and the number of languages in B1\n"},
        {"a|b|c\nd|e|f\n", 4306, "Warning 1: the sheet is almost empty.\r\n"},
        {"Number|2|x\nString ID|y|z\na|b|c\n", 11, expected("Number of Language", "A1"),
         "in.csv: has \"Number\" in cell A1; only the first sheet"},
        {"My Number of Languages|3\nString ID|resource type|Description|a|b\nx\n", 11, tooFew},
        {"Number of Language|2\nString ID|Description|a\nx\n", 11, tooFew,
         "in.csv: cell B1 says 2 languages, which need 4 columns, but only 3 columns have texts\n"},
        {"Number of Language|2\n|Resource Type|Description|a|b\nx\n", 11, expected("String ID", "A2"),
         "in.csv: cell A2 has nothing instead of \"String ID\"\n"},
        {"Number of Language|1\nString ID|RESOURCE TYPE|Description|a\nx\n", 11, expected("Resource Type", "B2")},
        {"Number of Language|1\nString ID|Resource Type|Text|a\nx\n", 11, expected("Description", "C2")},
        {"Number of Language|1\nString ID|Text|a\nx\n", 11, expected("Description", "B2")},
        {"Number of Language|2\nString ID|Description|French|Elvish\nx\n", 1608,
         "Error 1: language \"Elvish\" is unrecognized.\r\n",
         "in.csv: cell D2 has \"Elvish\", but neither the project nor section Language of tuvik.ini has"},
        {"Number of Language|no|x\nString ID|Description\nx\n", 0, "Warning 1: Number of Language = 0.\r\n",
         "in.csv: cell B1 has \"no\" instead of the number of languages, so no language is read\n"},
    };
    for (const auto &[sheet, code, message, explanation] : faults) {
        SheetProject project;
        std::string explained;
        project.env.explain = [&explained](const QString &text) { explained += text.toStdString() + '\n'; };
        EXPECT_EQ(project.Import(sheet), code) << sheet.constData();
        EXPECT_THAT(project.Messages(), testing::StartsWith(message + (code == 0 ? "" : "[demo] import - ")));
        EXPECT_THAT(explained, HasSubstr(explanation));
    }
    SheetProject project;
    const auto image = project.CreateFileRes("ID_IMAGE", ANY_RESOLUTION);
    EXPECT_EQ(project.Import(HEAD + "ID_IMAGE|Normal|x\n|Normal|no id\n1BAD|push|y|\n"), 0);
    EXPECT_EQ(project.Messages(), "Error 1: ID conflicts - ID_IMAGE (Line 3).\r\n"
                                  "Warning 1: empty ID discarded (Line 4).\r\n"
                                  "Error 2: invalid ID format - [1BAD].\r\n"
                                  "Error 3: invalid push format - [push].\r\n"
                                  "[demo] import - 3 error(s), 1 warning(s)\r\n");
    EXPECT_THAT(project.Written(), HasSubstr("\n1BAD|Normal|y||\n##number|1\n")) << "the row is imported nevertheless";
    for (const auto &[file, bytes, message] :
         {std::tuple("missing.xls", "", "Error 1: failed to connect to Excel.\r\n"s),
          {"no.xls", "no workbook at all", "Error 1: failed to connect to Excel.\r\n"},
          {"cut.csv", "a,\"b", "Error 1: failed to import from Excel.\r\n"},
          {"what.ods", "x", "Error 1: failed to connect to Excel.\r\n"}}) {
        if (*bytes)
            project.folder.Put(file, bytes);
        const SpreadsheetResult result = ImportSpreadsheet(project, project.folder.Path(file));
        EXPECT_EQ(result.code, 1726);
        EXPECT_TRUE(result.reason.startsWith(project.folder.Path(file))) << qPrintable(result.reason);
        EXPECT_EQ(project.Messages(), message + "[demo] import - 1 error(s), 0 warning(s)\r\n");
    }
}

TEST(Spreadsheet, AnExportWarnsOfHalfASurrogatePairAndNullsUnlessTheFormatKeepsThem)
{
    const auto warning = [](const std::string &number, const std::string &language) {
        return "Warning " + number + ": the text of ID_A in " + language +
               " is written with U+FFFD, since it has characters that the format can't have.\r\n";
    };
    const std::string ofPair = warning("1", "Description");
    SheetProject project;
    ASSERT_EQ(project.Read(FILE_HEAD + "ID_A|Normal||a|b\nID_B|Normal||\xF0\x9F\x98\x80|\n##number|2\n"), 0);
    auto &head = static_cast<CStringRes &>(*project.root.FindFolder(KIND_STRINGS, 2)->subfolders[0]->resources.First());
    CStringRes *const cell = head.FindLanguage(9);
    ASSERT_NE(cell, nullptr);
    head.SetText(QString(QChar(0xD83D)) + u'x');
    cell->SetText(u"a\0b"_s);
    (void)project.Messages();
    for (const auto &[file, expected] :
         {std::pair{"out.xls", ""s}, {"out.xlsx", ofPair}, {"out.csv", ofPair + warning("2", "English")}}) {
        EXPECT_EQ(ExportSpreadsheet(project, project.folder.Path(file)).code, 0);
        EXPECT_THAT(project.Messages(), testing::StartsWith(expected + "[demo] export - 0 error(s)")) << file;
    }
}

TEST(Spreadsheet, AnExportReadsBackEqualInEachFormatAndAFailedOneKeepsTheOldFile)
{
    const QByteArray table =
        FILE_HEAD + "ID_A|Push|=1+1|'a|\xF0\x9F\x98\x80 \xE4\xB8\xAD\nID_B|Normal||12|1.50\n##number|2\n";
    for (const char *file : {"out.xls", "OUT.XLSX", "out.csv"}) {
        SheetProject project;
        ASSERT_EQ(project.Read(table), 0);
        (void)project.Messages();
        EXPECT_EQ(ExportSpreadsheet(project, project.folder.Path(file)).code, 0);
        EXPECT_EQ(project.Messages(), "[demo] export - 0 error(s), 0 warning(s)\r\n");
        SheetProject other;
        EXPECT_EQ(ImportSpreadsheet(other, project.folder.Path(file)).code, 0) << file;
        EXPECT_EQ(other.Written(), table.toStdString());
        EXPECT_EQ(ImportSpreadsheet(other, project.folder.Path(file)).reason, NothingImported());
    }
    SheetProject project;
    ASSERT_EQ(project.Read(FILE_HEAD + "ID_A|Normal|" + QByteArray(40000, 'x') + "||\n##number|1\n"), 0);
    project.folder.Put("out.xls", "the old one");
    const SpreadsheetResult result = ExportSpreadsheet(project, project.folder.Path("out.xls"));
    EXPECT_EQ(result.code, 1726);
    EXPECT_THAT(result.reason.toStdString(), HasSubstr("32767"));
    EXPECT_THAT(project.Messages(), HasSubstr("Error 1: failed to export to Excel.\r\n[demo] export - 1 error(s)"));
    EXPECT_EQ(project.folder.Get("out.xls"), "the old one");
    SheetProject empty;
    ASSERT_EQ(ExportSpreadsheet(empty, empty.folder.Path("out.csv")).code, 0);
    EXPECT_EQ(empty.folder.Get("out.csv"),
              "\xEF\xBB\xBFNumber of Language,0,\r\nString ID,Resource Type,Description\r\n"
              "##number,0,\r\n");
}

TEST(Spreadsheet, AnExportWithLanguagesKnownOnlyToTheProjectReadsBack)
{
    const QByteArray head = "Number of Language|4\nString ID|Resource Type|Description|Elvish(4)|French(7)|Elvish(5)|";
    const QByteArray empty = "Klingon (3)\nID_A|Normal|||||\n##number|1\n";
    SheetProject project;
    ASSERT_EQ(project.Read(head + "Klingon (3)\nID_A|Normal||four|seven|five|three\n##number|1\n"), 0);
    ASSERT_EQ(ExportSpreadsheet(project, project.folder.Path("out.csv")).code, 0);
    SheetProject other;
    ASSERT_EQ(other.Read(head + empty), 0);
    ASSERT_EQ(ImportSpreadsheet(other, project.folder.Path("out.csv")).code, 0);
    EXPECT_EQ((QStringList{other.Text(4), other.Text(5), other.Text(3)}),
              (QStringList{u"four"_s, u"five"_s, u"three"_s}));
    EXPECT_EQ(other.Text(12), u"seven"_s) << "the table goes first";
    ASSERT_EQ(other.Read(head + empty), 0);
    EXPECT_EQ(other.Import("Number of Language|1\nString ID|Description|elvISH \nID_A||x\n"), 0);
    EXPECT_EQ(other.Import("Number of Language|1\nString ID|Description|Entish\nID_A||x\n"), 1608);
    EXPECT_EQ(other.Import("Number of Language|1\nString ID|Description|\nID_A||x\n"), 1608);
}

TEST(Spreadsheet, AnExplanationNamesTheSheetOfAWorkbook)
{
    SheetProject project;
    std::string explained;
    project.env.explain = [&explained](const QString &text) { explained += text.toStdString() + '\n'; };
    for (const QString &file : {project.folder.Path("out.xls"), project.folder.Path("out.xlsx")}) {
        SheetProject empty;
        ASSERT_EQ(ExportSpreadsheet(empty, file).code, 0);
        (void)ImportSpreadsheet(project, file);
        EXPECT_THAT(explained, HasSubstr(file.toStdString() + ", sheet \"Strings\": cell B1 has \"0\""));
    }
}

TEST(Spreadsheet, RepeatedRowsAndColumnsUpdateTheFirst)
{
    SheetProject project;
    ASSERT_EQ(project.Read(FILE_HEAD + "ID_OLD|Normal||a||\n##number|1\n"), 0);
    QString fates;
    const QByteArray head = "Number of Language|3\nString ID|Resource Type|Description|English|French|English\n";
    EXPECT_EQ(project.Import(head + "ID_A|Push||one||two\nID_OLD|Push|||un|\nID_A|Push|late|three|deux|\n"
                                    "ID_OLD|Normal|||zwei|a\nID_A|Normal|||\n",
                             fates),
              0);
    EXPECT_EQ(fates.toStdString(), "B3 N Push\nD3 N one\nF3 K two/one\nB4 R Push/Normal\nD4 K /a\nE4 N un\nF4 K /a\n"
                                   "B5 = Push\nC5 F late\nD5 K three/one\nE5 N deux\nF5 K /one\n"
                                   "B6 R Normal/Push\nD6 K /a\nE6 K zwei/un\nF6 = a\n"
                                   "B7 R Normal/Push\nC7 K /late\nD7 K /one\nE7 K /deux\nF7 K /one\n");
    EXPECT_EQ(project.Written(),
              FILE_HEAD.toStdString() + "ID_OLD|Normal||a|un\nID_A|Normal|late|one|deux\n##number|2\n");
}

TEST(Spreadsheet, RefusesTextsThatAStringFileCannotHoldAndImportsTheRest)
{
    SheetProject project;
    ASSERT_EQ(project.Read(FILE_HEAD + "ID_OLD|Normal|||old\n##number|1\n"), 0);
    (void)project.Messages();
    const QByteArray sheet = HEAD + "ID_NEW|Normal|\"a\nb\"|fine|\"a\tb\"\n\"ID\rX\"|Push|x|y|z\n"
                                    "ID_OLD|Normal||new|\"kept\nanyway\"\n";
    QString fates;
    EXPECT_EQ(project.Import(sheet, fates), 0);
    EXPECT_EQ(fates.toStdString(), "B3 N Normal\nC3 X a\nb\nD3 N fine\nE3 X a\tb\nB4 X Push\nC4 X x\nD4 X y\nE4 X z\n"
                                   "B5 = Normal\nD5 N new\nE5 K kept\nanyway/old\n");
    EXPECT_THAT(project.Messages(), HasSubstr("Error 1: a string can't hold a tab or a line end - ID_NEW, Description "
                                              "(Line 3).\r\nError 2: a string can't hold a tab or a line end - ID_NEW, "
                                              "French (Line 3).\r\nError 3: invalid ID format"));
    EXPECT_EQ(project.Written(),
              FILE_HEAD.toStdString() + "ID_OLD|Normal||new|old\nID_NEW|Normal||fine|\n##number|2\n");
    SpreadsheetImport import(project, {project.folder.Path("in.csv"), u"in.csv"_s});
    ASSERT_EQ(import.Read().code, 0);
    EXPECT_EQ(import.Plan().Refused(),
              (QStringList{u"ID_NEW (Description)"_s, u"ID_NEW (French)"_s, u"ID\rX (String ID)"_s}));
}

TEST(Spreadsheet, AnImportReloadsTheLanguageTable)
{
    SheetProject project;
    EXPECT_EQ(project.Import("Number of Language|1\nString ID|Description|Elvish\nID_A||x\n"), 1608);
    project.folder.Put("bin/tuvik.ini", "[Language]\nEnglish=9\nElvish=1234\n");
    ASSERT_EQ(project.Import("Number of Language|1\nString ID|Description|Elvish\nID_A||x\n"), 0);
    EXPECT_EQ(project.Text(1234), u"x"_s);
    project.folder.Put("in.csv", "Number of Language,2\nString ID,Description,Elvish,English\nID_A,,x,\n");
    EXPECT_EQ(ImportSpreadsheet(project, project.folder.Path("in.csv")).reason, QString()) << "English is made";
    EXPECT_EQ(ImportSpreadsheet(project, project.folder.Path("in.csv")).reason, NothingImported());
}

TEST(Spreadsheet, ReportsAThousandWarningsLineByLine)
{
    SheetProject project;
    EXPECT_EQ(project.Import(HEAD + QByteArray(",x\n").repeated(1500)), 0);
    EXPECT_EQ(project.env.WarningCount, 1500);
    EXPECT_THAT(project.Messages(),
                testing::EndsWith("Warning 1000: empty ID discarded (Line 1002).\r\n"
                                  "Warning: 500 more warnings like this one are not listed: empty ID discarded "
                                  "(Line 1003).\r\n[demo] import - 0 error(s), 1500 warning(s)\r\n"));
}

TEST(Spreadsheet, NamesCellsByLettersAndRow)
{
    EXPECT_EQ((QStringList{CellName(0, 1), CellName(25, 3), CellName(26, 3), CellName(701, 9), CellName(702, 9)}),
              QStringList({u"A1"_s, u"Z3"_s, u"AA3"_s, u"ZZ9"_s, u"AAA9"_s}));
}
