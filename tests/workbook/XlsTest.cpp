#include "Cells.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Xls, Thin)
{
    CellSource source({{{0, 0}, u"ID"_s}, {{1, 2}, u"Grüße"_s}, {{5, 1}, u"\U0001F600 你好 "_s + u"long text "_s.repeated(40)}});
    QByteArray file;
    ASSERT_EQ(WriteXls(source, file).reason, QString());
    Sheet sheet;
    ASSERT_EQ(ReadXls(file, sheet).reason, QString());
    EXPECT_EQ(CellsOf(sheet).size(), 3);
    FILE *f = fopen("/tmp/w/x1-thin.xls", "w");
    fwrite(file.data(), 1, file.size(), f);
    fclose(f);
}
