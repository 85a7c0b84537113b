// SPDX-License-Identifier: MIT
#include "StringProject.h"

using namespace Qt::StringLiterals;

constexpr const char *TABLE = "Number of Language|2\nString ID|Resource Type|Description|English(9)|French(12)\n"
                              "ID_HELLO|Normal|greeting|Hello|Bonjour\n"
                              "ID_BYE|Push||Bye|\n"
                              "##number|2\n";

TEST(StringFileReader, BuildsFoldersRowsAndChainsAndNotifiesTheObserver)
{
    CountingObserver observer;
    StringProject project;
    project.ids.observer = &observer;
    ASSERT_EQ(project.Read(TABLE), 0);
    EXPECT_EQ(project.Messages(), "");
    EXPECT_EQ(project.Written(), TABLE);
    EXPECT_EQ(observer.added, 5);
    EXPECT_FALSE(project.Language(9)->observer);
    EXPECT_EQ(NamesIn(*project.Language(-1)), "ID_HELLO ID_BYE");
    EXPECT_EQ(NamesIn(*project.Language(12)), "ID_HELLO") << "an empty field makes no record";
    EXPECT_EQ(project.strings.subfolders[0]->title, QString());

    auto *head = static_cast<CStringRes *>(project.Language(-1)->resources.First());
    EXPECT_EQ(head->NextInRow()->NextInRow(), project.Language(12)->resources.First());
    EXPECT_TRUE(head->Id()->refs == 3 && !head->Id()->push);
    EXPECT_EQ(project.ids.Find("ID_BYE", ANY_RESOLUTION)->pushKind, PUSH_STRING);
    project.strings.Clear();
    EXPECT_EQ(observer.removed, 5);
}

TEST(StringFileReader, ReportsWhichFileItReads)
{
    StringProject project;
    const QString path = project.folder.Path("strings.txt");
    EXPECT_EQ(ReadStringFile(path, project), 110);
    project.folder.Put("strings.txt", StringFileBytes(TABLE));
    EXPECT_EQ(ReadStringFile(path, project), 0);
    EXPECT_EQ(project.Messages(), "Error 1: failed to open file \"" + path.toStdString() + "\".\r\n" +
                                      "Loading strings from \"" + path.toStdString() + "\"...\r\n");
    EXPECT_EQ(project.Written(), TABLE);
}

TEST(StringFileReader, ReportsErrorsOfTheHeader)
{
    const auto format = [](const std::string &word, int line) {
        return "Error 1: invalid file format; \"" + word + "\" expected at line " + std::to_string(line) + ".\r\n";
    };
    const auto language = [](const std::string &word) {
        return "Error 1: language \"" + word + "\" is unrecognized.\r\n";
    };
    const auto count = [](const char *number) {
        return std::string("Warning 1: Number of Language = ") + number + ".\r\n";
    };
    const std::string noLine = "Error 1: failed to read a new line.\r\n";
    for (const auto &[file, code, message] : {
             std::tuple("", 1012, noLine),
             {"Number of Language|1\n", 1012, noLine},
             {"Number of language|1\n", 11, format("Number of Language", 1)},
             {"|Number of Language|1\n", 11, format("Number of Language", 1)},
             {"Number of Languages|0\nString IDs|\n", 11, count("0") + format("String ID", 2)},
             {"Number of Language|1\nString ID|RESOURCE type|Description|x(1)\n", 11, format("Resource Type", 2)},
             {"Number of Language|1\nString ID|Resource Type|description|x(1)\n", 11, format("Description", 2)},
             {"Number of Language|1\nString ID|Type|Description|x(1)\n", 11, format("Description", 2)},
             {"Number of Language|1\nString ID|Description|Klingon\n", 1608, language("Klingon")},
             {"Number of Language|2147483647\nString ID|Description|x(1)\n", 1608, language("")},
             {"Number of Language|1\nString ID|Description|x(-1)\n", 1608, language("x")},
             {"Number of Language|many\nString ID|Description|x\n##number\n", 0, count("0")},
             {"Number of Language\nString ID|Description|x\n##number\n", 0, count("0")},
             {"Number of Language|-99999999999\nString ID|Description|x\n##number\n", 0, count("-2147483648")},
         }) {
        StringProject project;
        EXPECT_EQ(project.Read(file), code) << file;
        EXPECT_EQ(project.Messages(), message) << file;
    }
}

TEST(StringFileReader, AcceptsFilesWithoutTypesOrNumbersAndUsesTheLastColumnOfALanguage)
{
    StringProject project;
    ASSERT_EQ(project.Read("Number of Language|3\nString ID|Description|French|English|Again(12)\n"
                           "ID_A|Push|un|one|deux\nID_B||un||\n##NUMBER|999\nID_BEHIND|||\n"),
              0);
    EXPECT_EQ(project.Messages(), "");
    EXPECT_EQ(project.Written(), "Number of Language|2\nString ID|Resource Type|Description|French(12)|English(9)\n"
                                 "ID_A|Normal|Push|deux|one\nID_B|Normal||un|\n##number|2\n");
}

TEST(StringFileReader, ContinuesAfterABadRow)
{
    StringProject project;
    const auto image = project.CreateFileRes("ID_LOGO", 0);
    const std::string head = "Number of Language|1\nString ID|Resource Type|Description|English(9)\n";
    ASSERT_EQ(project.Read(QByteArray::fromStdString(head) +
                           "ID_A|Odd|a|A\n\n|Normal|of nobody|X\n1 D|pUSH||B\n"
                           "ID_LOGO|Normal|c|C\nID_SHORT\nID_CUT|Normal|d\n##number|7\n"),
              0);
    EXPECT_EQ(project.Messages(), "Error 1: invalid resource type - [Odd].\r\n"
                                  "Error 2: invalid ID format - [1 D].\r\n"
                                  "Error 3: ID conflicts - ID_LOGO.\r\n"
                                  "Error 4: invalid resource type - [].\r\n");
    EXPECT_EQ(project.Written(),
              head + "ID_A|Normal|a|A\n1 D|Push||B\nID_SHORT|Normal||\nID_CUT|Normal|d|\n##number|4\n");
    EXPECT_EQ(project.rows, 4) << "only completely read rows";
}

TEST(StringFileReader, ReadingAgainUpdatesTextsAndKeepsTheRest)
{
    CountingObserver observer;
    StringProject project;
    project.ids.observer = &observer;
    ASSERT_EQ(project.Read(TABLE), 0);
    CBaseRes *const hello = project.Language(9)->resources.First();
    observer.changed = 0;
    ASSERT_EQ(project.Read("Number of Language|2\nString ID|Resource Type|Description|Renamed(9)|French(12)\n"
                           "ID_BYE|Normal||Bye|\nID_HELLO|Push|greeting|Hi|\n##number|2\n"),
              0);
    EXPECT_EQ(project.Language(9)->resources.First(), hello);
    EXPECT_EQ(observer.changed, 1) << "only Hello changed";
    EXPECT_EQ(project.Written(), QByteArray(TABLE).replace("Hello", "Hi").toStdString());

    project.Language(-1)->DeleteResource(hello->Id());
    ASSERT_EQ(project.Read(TABLE), 0);
    EXPECT_EQ(project.Messages(), "Error 1: ID conflicts - ID_HELLO.\r\n") << "a row that lost its description";
}

TEST(StringFileReader, ReadsTheExampleOfTheFormatDescription)
{
    QFile page(QStringLiteral(STRING_FILE_PAGE));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    QByteArray example = page.readAll();
    example = example.sliced(example.indexOf("```text\n") + 8);
    example = example.first(example.indexOf("```")).replace("\xE2\x86\x92", "|");
    StringProject project;
    ASSERT_EQ(project.Read(example), 0);
    EXPECT_EQ(project.Messages(), "");
    EXPECT_EQ(project.Written(), example.toStdString());
}

TEST(StringFileReader, CountsTheRowsAndCellsThatASaveWouldLose)
{
    const std::string head = "Number of Language|2\nString ID|Resource Type|Description|English(9)|French(12)";
    const std::string row = "ID_A|Normal|about|one|un";
    const auto dropped = [](const std::string &text) {
        StringProject project;
        project.AddFolder(project.root, KIND_BINARY).AddResource(project.CreateFileRes("ID_FILE", ANY_RESOLUTION));
        EXPECT_EQ(project.Read(QByteArray::fromStdString(text)), 0);
        QByteArray lines;
        for (const Finding &finding : project.findings.All())
            lines += QByteArray::number(finding.line) + ' ';
        EXPECT_EQ(project.env.DroppedCount, int(project.findings.All().size()));
        return lines;
    };
    EXPECT_EQ(dropped(head + '\n' + row + "\nID_B|Push\nID_B|Push||two\n||\n|Normal||\n\n##number|9\n\n"), "");
    EXPECT_EQ(dropped(head + '\n' + row + "\nID_FILE|Normal|a|b|c\n##number|2\n"), "4 ");
    EXPECT_EQ(dropped(head + '\n' + row + "|three||four\n##number|1\n"), "3 3 ");
    EXPECT_EQ(dropped(head + "|Other(13)||\n" + row + "||\n##number|1\n"), "2 ");
    EXPECT_EQ(dropped(head + '\n' + row + "\n|Normal|without an ID\n##number|1\n"), "4 ");
    EXPECT_EQ(dropped(head + '\n' + row + "\n##number|1\n" + row + "\n\nlast"), "5 7 ");
    // The second of two texts for a cell is used, and equal texts lose nothing.
    EXPECT_EQ(dropped(head + '\n' + row + '\n' + row + "\nID_A|Normal|about|two|\n##number|2\n"), "5 ");
    EXPECT_EQ(dropped("Number of Language|2\nString ID|Description|English(9)|English(9)\n"
                      "ID_A|a|one|two\nID_B|b|one|\nID_C|c||two\nID_D|d|one|one\n##number|4\n"),
              "3 ");
}

TEST(StringFileReader, AReloadCountsDroppedTextsButNotReplacedOnes)
{
    StringProject project;
    const QByteArray head = "Number of Language|1\nString ID|Description|English(9)\n";
    ASSERT_EQ(project.Read(head + "ID_A|a|one\n##number|1\n"), 0);
    ASSERT_EQ(project.Read(head + "ID_A|new|two\nID_B|b|one\n##number|2\n"), 0);
    EXPECT_EQ(project.env.DroppedCount, 0);
    ASSERT_EQ(project.Read(head + "ID_A|new|three\nID_A|new|four\nID_C|c|one\nID_C|c|two\n##number|4\n"), 0);
    EXPECT_EQ(project.env.DroppedCount, 2);
}
