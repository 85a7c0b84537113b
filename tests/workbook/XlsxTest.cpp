#include "TestTable.h"

TEST(Xlsx, AnyTableComesBackAsItWas)
{
    for (unsigned seed = 0; seed < 100; ++seed) {
        SCOPED_TRACE(seed);
        const TestTable table = AwkwardTable(seed);
        ASSERT_EQ(Read(ReadXlsx, Written(WriteXlsx, table)), table.rows);
    }
}
