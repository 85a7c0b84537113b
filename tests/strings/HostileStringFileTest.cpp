// SPDX-License-Identifier: MIT
#include "StringProject.h"

using namespace Qt::StringLiterals;

constexpr const char *SMALL = "Number of Language|1\nString ID|Resource Type|Description|English(9)\n"
                              "ID_A|Push|a|A\nID_B|Normal|b|B\n##number|2\n";

TEST(HostileStringFile, EveryTruncationIsAReadErrorAndKeepsTheRowsBeforeIt)
{
    const QByteArray whole = StringFileBytes(SMALL);
    for (qsizetype size = 0; size < whole.size(); ++size) {
        SCOPED_TRACE(size);
        StringProject project;
        EXPECT_EQ(project.ReadBytes(whole.first(size), size_t(size) % 9 + 1), 1012);
        EXPECT_EQ(project.Messages(), "Error 1: failed to read a new line.\r\n");
        const auto lines = whole.first(size).count(QByteArray("\r\0\n\0", 4));
        EXPECT_EQ(project.rows, std::max<qsizetype>(lines - 2, 0));
        EXPECT_EQ(project.strings.subfolders.empty(), lines < 2);
    }
    for (size_t piece = 1; piece < 9; ++piece) {
        StringProject project;
        EXPECT_EQ(project.ReadBytes(whole, piece), 0);
        EXPECT_EQ(project.Written(), SMALL);
    }
}

TEST(HostileStringFile, RefusesOtherEncodings)
{
    StringProject project;
    QByteArray bigEndian = StringFileBytes(SMALL);
    for (qsizetype i = 0; i + 1 < bigEndian.size(); i += 2)
        std::swap(bigEndian[i], bigEndian[i + 1]);
    for (const QByteArray &bytes : {bigEndian, QByteArray(SMALL).replace('|', '\t'), QByteArray(100001, '\n')})
        EXPECT_EQ(project.ReadBytes(bytes), 1012);
    EXPECT_TRUE(project.strings.subfolders.empty());
}

TEST(HostileStringFile, AcceptsLinesAndNamesOfAnyLengthWithReturnsAndZeros)
{
    StringProject project;
    const QByteArray longText(300'000, 'x');
    QByteArray bytes = StringFileBytes("Number of Language|1\nString ID|Description|English(9)\nID_A|d\re@f|x\nID_B||" +
                                       longText + "\n" + longText + "||z\n##number|3\n");
    bytes[bytes.indexOf('@')] = '\0';
    ASSERT_EQ(project.ReadBytes(bytes), 0);
    EXPECT_EQ(project.Text(9), QStringView(u"e\0f", 3).toString()) << "a lone return ends a field, a zero doesn't";
    EXPECT_EQ(static_cast<CStringRes *>(project.Language(9)->resources.First()->NextInFolder())->Text().size(),
              300'000);
    EXPECT_EQ(project.Language(9)->resources.Count(), 3U);
    EXPECT_THAT(project.Messages(),
                testing::AllOf(testing::StartsWith("Error 1: invalid ID format - [xxx"), testing::EndsWith("xxx...")));
}

TEST(HostileStringFile, ReadsManyRepeatedLanguageColumnsAndRowsFast)
{
    // This takes minutes if the columns or rows are searched for every cell.
    constexpr int COLUMNS = 3000;
    QByteArray header = "Number of Language|3000\nString ID|Description";
    QByteArray rows = "\nID_A|";
    for (int i = 0; i < COLUMNS; ++i) {
        header += "|L(" + QByteArray::number(i % 1500) + ")";
        rows += "|" + QByteArray::number(i);
    }
    for (int i = 0; i < 100'000; ++i)
        rows += "\nID_A||" + QByteArray::number(i);
    StringProject project;
    ASSERT_EQ(project.Read(header + rows + "\n##number|1\n"), 0);
    for (int i = 0; i < 1500; ++i) {
        ASSERT_EQ(project.Language(i)->resources.Count(), 1U);
        EXPECT_EQ(project.Text(i), QString::number(i == 0 ? 99'999 : 1500 + i));
    }
}
