#include "MemoryFile.h"
#include "Oracle.h"
#include "RandomTable.h"

using namespace Qt::StringLiterals;

namespace
{

QByteArray Written(const Cells &cells)
{
    CellSource source(cells);
    return InMemory([&](std::FILE *file) { EXPECT_EQ(WriteXls(source, file).reason, QString()); });
}

Cells ReadBack(const QByteArray &file)
{
    Sheet sheet;
    EXPECT_EQ(ReadXls(file, sheet).reason, QString());
    return CellsOf(sheet);
}

} // namespace

TEST(XlsWriter, RandomTablesAreReadBackByOurReaderAndByOthersCellForCell)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        SCOPED_TRACE(seed);
        const Cells cells = RandomTable(seed, ALPHABETS);
        const QByteArray file = Written(cells);
        ASSERT_TRUE(ReadBack(file) == cells);
        const Cells wild = RandomTable(seed, {WILD, WILD + ALPHABETS[0]});
        ASSERT_TRUE(ReadBack(Written(wild)) == wild);
        if (seed < 4) {
            ASSERT_TRUE(OracleReads("xlrd", file, "xls") == cells);
            ASSERT_TRUE(OracleReads("csv", file, "xls") == cells);
        }
    }
}

TEST(XlsWriter, NoSurrogatePairIsSplitBetweenRecords)
{
    const QByteArray file =
        Written({{{0, 0}, u"\U0001F600"_s.repeated(10'000)}, {{0, 1}, u"x\U0001F600"_s.repeated(9'000)}});
    // A record that ends in the first half of a pair, whether the head of the next one stands behind it.
    EXPECT_EQ(file.indexOf(QByteArray("\x3D\xD8\x3C\x00", 4)), -1);
    EXPECT_NE(file.indexOf(QByteArray("\x00\xDE\x3C\x00", 4)), -1);
}

TEST(XlsWriter, LargestTablesFitAndLargerOnesAreRefusedWithPlaceAndLimit)
{
    const Cells corners = {{{0, 0}, u"a"_s}, {{65535, 255}, QString(32767, u'z')}, {{65535, 0}, u"a"_s}};
    EXPECT_TRUE(ReadBack(Written(corners)) == corners);

    const auto refusal = [](const Cells &cells) {
        CellSource source(cells);
        WorkbookResult result;
        EXPECT_EQ(InMemory([&](std::FILE *file) { result = WriteXls(source, file); }), QByteArray());
        EXPECT_EQ(result.fault, WorkbookFault::TooLarge);
        return result.reason.toStdString();
    };
    EXPECT_EQ(refusal({{{65536, 0}, u"a"_s}}), "row 65537: an .xls sheet has 65536, and 65537 are needed");
    EXPECT_EQ(refusal({{{0, 299}, u"a"_s}}), "column 257: an .xls sheet has 256, and 300 are needed");
    EXPECT_EQ(refusal({{{4, 2}, QString(32768, u'a')}}),
              "row 5, column 3: a text of 32768 characters: an .xls cell has 32767");
    CellSource endless({});
    endless.rows = qint64(4) << 30;
    EXPECT_EQ(WriteXls(endless, nullptr).fault, WorkbookFault::TooLarge);
}

TEST(XlsWriter, ATableBeyondTheSectorsThatTheHeaderListsIsReadBack)
{
    // 15 MiB of sectors are listed in the header and the first sector of the list behind it.
    Cells cells;
    for (quint32 row = 0; row < 300; ++row)
        cells[{row, row % 3}] = QString::number(row) + QString(30'000, u'\u4F60');
    EXPECT_TRUE(ReadBack(Written(cells)) == cells);
}

TEST(XlsWriter, SameTableSameBytesAndEachTextOnce)
{
    const Cells cells = RandomTable(3, ALPHABETS);
    const QByteArray file = Written(cells);
    EXPECT_TRUE(Written(cells) == file);
    EXPECT_EQ(ReadBack(Written({})), Cells());

    Cells repeated;
    for (quint32 row = 0; row < 50; ++row)
        repeated[{row, 0}] = QString(1000, u'x');
    EXPECT_LT(Written(repeated).size(), 10'000);
    EXPECT_TRUE(ReadBack(Written(repeated)) == repeated);
}

TEST(XlsWriter, TheHeaderIsBoldAndFrozenAndTextsAreWrappedInColumnsOfTheirWidth)
{
    TempFolder folder;
    folder.Put("book.xls", Written({{{0, 0}, u"ID"_s}, {{1, 3}, u"=1+1"_s}, {{2, 0}, u"'x"_s}}));
    EXPECT_EQ(AskOracle({u"look"_s, folder.Path("book.xls")}).toStdString(), "Strings frozen rows 2\n"
                                                                             "widths 30 14 40 40\n"
                                                                             "row 0 Arial weight 700 @ wrapped top\n"
                                                                             "row 1 Arial weight 400 @ wrapped top\n"
                                                                             "row 2 Arial weight 400 @ wrapped top\n");
}
