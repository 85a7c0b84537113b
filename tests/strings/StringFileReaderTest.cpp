#include "StringProject.h"

namespace
{

constexpr const char *TABLE = "Number of Language|2\n"
                              "String ID|Resource Type|Description|English(9)|French(12)\n"
                              "ID_HELLO|Normal|greeting|Hello|Bonjour\n"
                              "ID_BYE|Push||Bye|\n"
                              "##number|2\n";

} // namespace

TEST(StringFileReader, BuildsFoldersRowsAndChains)
{
    StringProject project;
    ASSERT_EQ(project.Read(TABLE), 0);
    EXPECT_EQ(project.Messages(), "");
    ASSERT_EQ(project.strings->subfolders.size(), 3u);
    EXPECT_EQ(project.strings->subfolders[0]->index, -1);
    EXPECT_EQ(project.strings->subfolders[0]->title, QString());
    EXPECT_EQ(project.strings->subfolders[2]->title, QStringLiteral("French"));
    EXPECT_EQ(NamesIn(*project.Language(-1)), "ID_HELLO ID_BYE");
    EXPECT_EQ(NamesIn(*project.Language(12)), "ID_HELLO") << "an empty field makes no record";

    auto *head = static_cast<CStringRes *>(project.Language(-1)->resources.First());
    EXPECT_EQ(head->text, QStringLiteral("greeting"));
    ASSERT_TRUE(head->next && head->next->next);
    EXPECT_EQ(head->next->text, QStringLiteral("Hello"));
    EXPECT_EQ(head->next->next->text, QStringLiteral("Bonjour"));
    EXPECT_EQ(head->Id()->refs, 3);
    EXPECT_FALSE(head->Id()->push);

    const IDRecord *bye = project.ids.Find("ID_BYE", ANY_RESOLUTION);
    ASSERT_TRUE(bye);
    EXPECT_TRUE(bye->push);
    EXPECT_EQ(bye->pushKind, PUSH_STRING);
}

TEST(StringFileReader, SaysWhichFileItReads)
{
    StringProject project;
    ASSERT_EQ(project.Read(TABLE), 0);
    EXPECT_EQ(project.TakeOutput(),
              "Loading strings from \"" + project.folder.Path("strings.txt").toUtf8() + "\"...\r\n");

    const QString absent = project.folder.Path("absent.txt");
    EXPECT_EQ(ReadStringFile(absent, project), 110);
    EXPECT_EQ(project.TakeOutput(), "Error 1: failed to open file \"" + absent.toUtf8() + "\".\r\n");
}

TEST(StringFileReader, TakesFilesWithoutTypesAndWithoutNumbers)
{
    StringProject project;
    ASSERT_EQ(project.Read("Number of Language|2\n"
                           "String ID|Description|French|English\n"
                           "ID_A|Push|un|one\n"
                           "##NUMBER|999\n"
                           "ID_BEHIND|||\n"),
              0);
    EXPECT_EQ(project.Messages(), "");
    EXPECT_EQ(project.Written(), "Number of Language|2\n"
                                 "String ID|Resource Type|Description|French(12)|English(9)\n"
                                 "ID_A|Normal|Push|un|one\n"
                                 "##number|1\n");
}

TEST(StringFileReader, ReportsAWrongHeader)
{
    struct Case
    {
        const char *file;
        int code;
        const char *message;
    };
    const Case cases[] = {
        {"Number of Languages|0\nString IDs|\n", 11,
         "Warning 1: Number of Language = 0.\r\nError 1: invalid file format; \"String ID\" expected at line 2.\r\n"},
        {"Number of language|1\n", 11, "Error 1: invalid file format; \"Number of Language\" expected at line 1.\r\n"},
        {"|Number of Language|1\n", 11, "Error 1: invalid file format; \"Number of Language\" expected at line 1.\r\n"},
        {"Number of Language|1\nString ID|RESOURCE type|Description|x(1)\n", 11,
         "Error 1: invalid file format; \"Resource Type\" expected at line 2.\r\n"},
        {"Number of Language|1\nString ID|Resource Type|description|x(1)\n", 11,
         "Error 1: invalid file format; \"Description\" expected at line 2.\r\n"},
        {"Number of Language|1\nString ID|Type|Description|x(1)\n", 11,
         "Error 1: invalid file format; \"Description\" expected at line 2.\r\n"},
        {"Number of Language|1\nString ID|Description|Klingon\n", 1608,
         "Error 1: language \"Klingon\" is unrecognized.\r\n"},
        {"Number of Language|2\nString ID|Description|x(1)\n", 1608, "Error 1: language \"\" is unrecognized.\r\n"},
        {"Number of Language|1\nString ID|Description|x(-1)\n", 1608, "Error 1: language \"x\" is unrecognized.\r\n"},
        {"Number of Language|1\nString ID|Description|x(1)\n", 1012, "Error 1: failed to read a new line.\r\n"},
        {"Number of Language|1\n", 1012, "Error 1: failed to read a new line.\r\n"},
        {"", 1012, "Error 1: failed to read a new line.\r\n"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.file);
        StringProject project;
        EXPECT_EQ(project.Read(c.file), c.code);
        EXPECT_EQ(project.Messages(), c.message);
    }
}

TEST(StringFileReader, CountsNoLanguageWhereTheCountIsNoNumberAboveZero)
{
    for (const auto &[count, shown] :
         {std::pair("many", "0"), {"-3", "-3"}, {"", "0"}, {"-99999999999", "-2147483648"}}) {
        StringProject project;
        EXPECT_EQ(project.Read((std::string("Number of Language|") + count +
                                "\nString ID|Description|English(9)\nID_A|a|b\n##number|1\n")
                                   .c_str()),
                  0);
        EXPECT_EQ(project.Messages(), std::string("Warning 1: Number of Language = ") + shown + ".\r\n");
        EXPECT_EQ(project.strings->subfolders.size(), 1u);
    }
}

TEST(StringFileReader, GoesOnBehindABadRow)
{
    StringProject project;
    const auto image = project.CreateFileRes("ID_LOGO", 0);
    ASSERT_EQ(project.Read("Number of Language|1\n"
                           "String ID|Resource Type|Description|English(9)\n"
                           "ID_A|Odd|a|A\n"
                           "\n"
                           "|Normal|of nobody|X\n"
                           "1 D|pUSH||B\n"
                           "ID_LOGO|Normal|c|C\n"
                           "ID_SHORT\n"
                           "ID_CUT|Normal|d\n"
                           "##number|7\n"),
              0);
    EXPECT_EQ(project.Messages(), "Error 1: invalid resource type - [Odd].\r\n"
                                  "Error 2: invalid ID format - [1 D].\r\n"
                                  "Error 3: ID conflicts - ID_LOGO.\r\n"
                                  "Error 4: invalid resource type - [].\r\n");
    EXPECT_EQ(project.Written(), "Number of Language|1\n"
                                 "String ID|Resource Type|Description|English(9)\n"
                                 "ID_A|Normal|a|A\n"
                                 "1 D|Push||B\n"
                                 "ID_SHORT|Normal||\n"
                                 "ID_CUT|Normal|d|\n"
                                 "##number|4\n");
}

TEST(StringFileReader, CountsTheRowsThatItReadWhole)
{
    StringProject project;
    const auto image = project.CreateFileRes("ID_LOGO", ANY_RESOLUTION);
    EXPECT_EQ(project.ReadPieces(StringFileBytes("Number of Language|0\nString ID|Description\n"
                                                 "ID_A|\n|\nID_LOGO|\nID_B|\n##number|9\n"),
                                 64),
              0);
    EXPECT_EQ(project.rows, 2);
}

TEST(StringFileReader, ReadingAgainChangesTextsAndKeepsWhatIsThere)
{
    StringProject project;
    ASSERT_EQ(project.Read(TABLE), 0);
    project.Messages();
    CBaseRes *const hello = project.Language(9)->resources.First();
    CountingObserver observer;
    for (CResFolder *folder : {project.Language(-1), project.Language(9), project.Language(12)}) {
        for (CBaseRes *res : folder->resources)
            res->observer = &observer;
    }
    ASSERT_EQ(project.Read("Number of Language|2\n"
                           "String ID|Resource Type|Description|Renamed(9)|French(12)\n"
                           "ID_BYE|Normal||Bye|Au revoir\n"
                           "ID_HELLO|Push|greeting|Hi|\n"
                           "##number|2\n"),
              0);
    EXPECT_EQ(project.Messages(), "");
    EXPECT_EQ(project.Language(9)->resources.First(), hello);
    EXPECT_EQ(observer.changed, 1) << "only Hello became another text";
    EXPECT_EQ(project.Written(), "Number of Language|2\n"
                                 "String ID|Resource Type|Description|English(9)|French(12)\n"
                                 "ID_HELLO|Normal|greeting|Hi|Bonjour\n"
                                 "ID_BYE|Push||Bye|Au revoir\n"
                                 "##number|2\n");
    for (CResFolder *folder : {project.Language(-1), project.Language(9), project.Language(12)}) {
        for (CBaseRes *res : folder->resources)
            res->observer = nullptr;
    }
}

TEST(StringFileReader, ARowThatLostItsDescriptionIsAConflict)
{
    StringProject project;
    ASSERT_EQ(project.Read(TABLE), 0);
    project.Language(-1)->DeleteResource(project.ids.Find("ID_HELLO", ANY_RESOLUTION));
    project.Messages();
    ASSERT_EQ(project.Read(TABLE), 0);
    EXPECT_EQ(project.Messages(), "Error 1: ID conflicts - ID_HELLO.\r\n");
}

TEST(StringFileReader, TheSecondColumnOfALanguageOverwritesTheFirst)
{
    StringProject project;
    ASSERT_EQ(project.Read("Number of Language|3\n"
                           "String ID|Description|English(9)|French(12)|Again(9)\n"
                           "ID_A||first|un|second\n"
                           "ID_B||first||\n"
                           "##number|2\n"),
              0);
    EXPECT_EQ(project.Written(), "Number of Language|2\n"
                                 "String ID|Resource Type|Description|English(9)|French(12)\n"
                                 "ID_A|Normal||second|un\n"
                                 "ID_B|Normal||first|\n"
                                 "##number|2\n");
}

TEST(StringFileReader, TellsTheObserverOfNewRowsAndFolders)
{
    StringProject project;
    CountingObserver observer;
    project.nodeObserver = &observer;
    project.strings->observer = &observer;
    ASSERT_EQ(project.Read(TABLE), 0);
    EXPECT_EQ(observer.added, 5);
    EXPECT_FALSE(project.Language(9)->observer);
    project.strings->observer = nullptr;
    project.strings->Clear();
    EXPECT_EQ(observer.removed, 5);
}

TEST(StringFileReader, ReadsTheExampleOfItsDescription)
{
    QFile page(QStringLiteral(STRING_FILE_PAGE));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QByteArray text = page.readAll();
    const qsizetype begin = text.indexOf("```text\n") + 8;
    const QByteArray example = text.mid(begin, text.indexOf("```", begin) - begin).replace("\xE2\x86\x92", "|");
    StringProject project;
    ASSERT_EQ(project.Read(example.constData()), 0);
    EXPECT_EQ(project.Messages(), "");
    EXPECT_EQ(project.Written(), example.toStdString());
}
