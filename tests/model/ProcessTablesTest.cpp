#include "TestModel.h"

TEST(CResoTable, KeepsTheFirstOfEqualSizes)
{
    CResoTable table;
    table.Add("", 240, 320);
    table.Add("wide", 320, 240);
    table.Add("again", 240, 320);
    for (const auto &[width, height] : {std::pair(0, 5), std::pair(5, 0), std::pair(-1, 5), std::pair(40000, 5)})
        table.Add("x", width, height);
    ASSERT_EQ(table.Count(), 2);
    EXPECT_EQ(table.At(0).name, "240x320");
    EXPECT_EQ(table.At(1).name, "wide");
    EXPECT_EQ(table.IndexOf(240, 320), 0);
    EXPECT_EQ(table.IndexOf(320, 320), -1);
    EXPECT_EQ(table.IndexOf(240 + 65536, 320), -1);
}

TEST(ProcessTables, EachLineOfTheResolutionFileGivesASizeHoweverItIsDivided)
{
    TestProgram program("[Path]\nreso_set=sizes.ini\n[Resource Type]\nCount=2\nType_0=Normal\nType_1=Push\nType_2=x\n");
    program.folder.Put("bin/sizes.ini", "[Resolution]\n320 240\n240X320 ; portrait\n480*272=name\n320x240\nno size\n"
                                        "12\n1 x 2\n-3x4\n99999999999x1\n");
    program.tables.LoadOnce(*program.env);
    QByteArrayList names;
    for (int i = 0; i < program.tables.resolutions.Count(); ++i)
        names.append(program.tables.resolutions.At(i).name);
    EXPECT_EQ(names.join(' '), "320x240 240x320 480x272 1x2");
    EXPECT_EQ(program.tables.resourceTypes, QStringList({QStringLiteral("Normal"), QStringLiteral("Push")}));

    program.tables.LoadOnce(*program.env);
    EXPECT_EQ(program.tables.resourceTypes.size(), 2) << "a second document reads nothing again";
}

TEST(ProcessTables, WithoutTheirKeysTheTablesAreEmpty)
{
    TestProgram program("[Resource Type]\nCount=-5\n");
    program.tables.LoadOnce(*program.env);
    EXPECT_EQ(program.tables.resolutions.Count(), 0);
    EXPECT_TRUE(program.tables.resourceTypes.isEmpty());
}
