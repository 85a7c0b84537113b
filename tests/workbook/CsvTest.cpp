#include "TestTable.h"

TEST(Csv, AnyTableComesBackAsItWas)
{
    for (unsigned seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE(seed);
        const TestTable table = AwkwardTable(seed);
        ASSERT_EQ(Read(ReadCsv, Written(WriteCsv, table)), table.rows);
    }
}
