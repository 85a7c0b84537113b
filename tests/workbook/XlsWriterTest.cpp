// SPDX-License-Identifier: MIT
#include "TestTable.h"

TEST(XlsWriter, TextsOfAnyLengthAndCharactersReadBackEqual)
{
    const QString wild = u"\xD83D\xDE00\xDE00\xD83D\uFFFF\uFFFE\u0000\r\uFEFF"_s;
    for (unsigned seed = 0; seed < 20; ++seed) {
        for (const QStringList &alphabets : {ALPHABETS, {wild, wild + ALPHABETS[0]}}) {
            const Rows rows = RandomTable(seed, alphabets);
            ASSERT_EQ(Read(ReadXls, Written(WriteXls, rows)), rows) << seed;
        }
    }
}

TEST(XlsWriter, SplitsNoSurrogatePairBetweenRecords)
{
    const QByteArray file = Written(WriteXls, {{u"\U0001F600"_s.repeated(10'000), u"x\U0001F600"_s.repeated(9'000)}});
    // No record ends after the first half of a pair, but one ends after the second. 3C 00 is the type of the next one.
    EXPECT_EQ(file.indexOf(QByteArray("\x3D\xD8\x3C\x00", 4)), -1);
    EXPECT_NE(file.indexOf(QByteArray("\x00\xDE\x3C\x00", 4)), -1);
}

TEST(XlsWriter, ReadsBackATableWithMoreSectorsThanTheHeaderLists)
{
    // The header and the first sector of the list after it can hold 15 MiB of sectors.
    Rows rows;
    for (int row = 0; row < 300; ++row)
        rows.push_back({QString::number(row) + QString(30'000, u'\u4F60')});
    EXPECT_TRUE(Read(ReadXls, Written(WriteXls, rows)) == rows);
}

TEST(XlsWriter, WritesEachTextOnce)
{
    const Rows repeated(50, {QString(1000, u'x')});
    EXPECT_LT(Written(WriteXls, repeated).size(), 10'000);
    EXPECT_EQ(Read(ReadXls, Written(WriteXls, repeated)), repeated);
}
