// SPDX-License-Identifier: MIT
#include "TestModel.h"

TEST(ProcessTables, ReadOneSizeFromEachLineWithAnySeparator)
{
    TestProgram program("[Path]\nreso_set=sizes.ini\n[Resource Type]\nCount=2\nType_0=Normal\nType_1=Push\nType_2=x\n");
    program.folder.Put("bin/sizes.ini", "[Resolution]\n320 240\n240X320 ; portrait\n480*272=name\n320x240\nno size\n"
                                        "12\n1 x 2\n-3x4\n0x5\n5x0\n40000x5\n99999999999x1\n");
    for (int load = 0; load < 2; ++load) // a second document loads nothing again
        program.tables.LoadOnce(*program.env);
    CResoTable &sizes = program.tables.resolutions;
    sizes.Add("wide", 100, 50);
    QByteArray names;
    for (int i = 0; i < sizes.Count(); ++i)
        names += sizes.At(i).name + ' ';
    EXPECT_EQ(names, "320x240 240x320 480x272 1x2 wide ");
    EXPECT_EQ(sizes.IndexOf(240, 320), 1);
    EXPECT_EQ(sizes.IndexOf(240 + 65536, 320), -1);
    for (const int outside : {-1, sizes.Count()})
        EXPECT_TRUE(sizes.At(outside).name.isEmpty() && sizes.At(outside).width == 0 && sizes.At(outside).height == 0);
    EXPECT_EQ(program.tables.resourceTypes, QStringList({QStringLiteral("Normal"), QStringLiteral("Push")}));
}
