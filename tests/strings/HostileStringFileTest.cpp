#include "StringProject.h"
#include "Utf16Lines.h"

namespace
{

constexpr const char *SMALL = "Number of Language|1\n"
                              "String ID|Resource Type|Description|English(9)\n"
                              "ID_A|Push|a|A\n"
                              "ID_B|Normal|b|B\n"
                              "##number|2\n";

} // namespace

TEST(HostileStringFile, EveryCutIsTheReadErrorAndKeepsTheRowsBefore)
{
    const QByteArray whole = StringFileBytes(SMALL);
    const qsizetype rowsBegin = StringFileBytes("Number of Language|1\n"
                                                "String ID|Resource Type|Description|English(9)\n")
                                    .size();
    for (qsizetype size = 0; size < whole.size(); ++size) {
        SCOPED_TRACE(size);
        StringProject project;
        EXPECT_EQ(project.ReadPieces(whole.first(size), 4096), 1012);
        EXPECT_EQ(project.Messages(), "Error 1: failed to read a new line.\r\n");
        EXPECT_EQ(!project.strings->subfolders.empty(), size >= rowsBegin);
        EXPECT_EQ(project.rows, whole.first(size).count(QByteArray("\r\0\n\0", 4)) - 2 > 0
                                    ? whole.first(size).count(QByteArray("\r\0\n\0", 4)) - 2
                                    : 0);
    }
}

TEST(HostileStringFile, TheSizeOfThePiecesItComesInDoesntMatter)
{
    const QByteArray whole = StringFileBytes(SMALL);
    for (size_t piece = 1; piece < 9; ++piece) {
        StringProject project;
        EXPECT_EQ(project.ReadPieces(whole, piece), 0);
        EXPECT_EQ(project.Written(), SMALL);
    }
}

TEST(HostileStringFile, AnotherEncodingIsNoStringFile)
{
    StringProject project;
    EXPECT_EQ(project.ReadBytes("Number of Language\t1\r\nString ID\tDescription\tEnglish(9)\r\n"), 1012);
    QByteArray bigEndian = StringFileBytes(SMALL);
    for (qsizetype i = 0; i + 1 < bigEndian.size(); i += 2)
        std::swap(bigEndian[i], bigEndian[i + 1]);
    EXPECT_EQ(project.ReadBytes(bigEndian), 1012);
    EXPECT_EQ(project.ReadBytes(QByteArray(100001, '\n')), 1012);
    EXPECT_TRUE(project.strings->subfolders.empty());
}

TEST(HostileStringFile, AHugeCountOfLanguagesEndsWithTheFields)
{
    StringProject project;
    EXPECT_EQ(project.Read("Number of Language|2147483647\nString ID|Description|English(9)\n"), 1608);
    EXPECT_EQ(project.Messages(), "Error 1: language \"\" is unrecognized.\r\n");
}

TEST(HostileStringFile, LinesAndNamesMayBeOfAnyLength)
{
    StringProject project;
    const std::string longText(300'000, 'x');
    ASSERT_EQ(project.Read(("Number of Language|1\nString ID|Description|English(9)\nID_A||" + longText +
                            "\nID_B||y\n" + longText + "||z\n##number|3\n")
                               .c_str()),
              0);
    EXPECT_EQ(static_cast<CStringRes *>(project.Language(9)->resources.First())->text.size(), 300'000);
    EXPECT_EQ(project.Language(9)->resources.Count(), 3u);
    EXPECT_THAT(project.Messages(),
                testing::AllOf(testing::StartsWith("Error 1: invalid ID format - [xxx"), testing::EndsWith("xxx...")));
}

TEST(HostileStringFile, ALoneReturnEndsAFieldAndAZeroDoesNot)
{
    StringProject project;
    QByteArray bytes =
        StringFileBytes("Number of Language|1\nString ID|Description|English(9)\nID_A|d\re@f|x\n##number|1\n");
    bytes[bytes.indexOf("@")] = '\0';
    ASSERT_EQ(project.ReadBytes(bytes), 0);
    const auto *cell = static_cast<CStringRes *>(project.Language(9)->resources.First());
    EXPECT_EQ(cell->text, QStringView(u"e\0f", 3).toString());
}

TEST(HostileStringFile, ManyLanguagesAndTheirManyRowsStayFast)
{
    // Each of these takes minutes where columns or holders are walked for every cell.
    constexpr int LANGUAGES = 3000;
    constexpr int ROWS = 100'000;
    std::string file = "Number of Language|" + std::to_string(LANGUAGES) + "\nString ID|Description";
    for (int i = 0; i < LANGUAGES; ++i)
        file += "|L(" + std::to_string(i) + ")";
    file += "\nID_A|";
    for (int i = 0; i < LANGUAGES; ++i)
        file += "|t";
    for (int i = 0; i < ROWS; ++i)
        file += "\nID_A||" + std::to_string(i);
    file += "\n##number|1\n";
    StringProject project;
    ASSERT_EQ(project.Read(file.c_str()), 0);
    EXPECT_EQ(static_cast<CStringRes *>(project.Language(0)->resources.First())->text, QString::number(ROWS - 1));
    EXPECT_EQ(project.Language(LANGUAGES - 1)->resources.Count(), 1u);
}

TEST(HostileStringFile, CellsAddedToARowOfManyLanguagesAreFoundAgain)
{
    // Above the number of holders that is simply walked, in columns that repeat.
    std::string header;
    std::string first;
    std::string second;
    for (int i = 0; i < 200; ++i) {
        header += "|L(" + std::to_string(i % 100) + ")";
        first += "|" + std::to_string(i);
        second += i == 150 ? "|last" : "|";
    }
    StringProject project;
    ASSERT_EQ(project.Read(("Number of Language|200\nString ID|Description" + header + "\nID_A|" + first + "\nID_A|" +
                            second + "\n##number|2\n")
                               .c_str()),
              0);
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(project.Language(i)->resources.Count(), 1u);
        EXPECT_EQ(static_cast<CStringRes *>(project.Language(i)->resources.First())->text,
                  i == 50 ? QStringLiteral("last") : QString::number(100 + i));
    }
}
