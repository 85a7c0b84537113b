// SPDX-License-Identifier: MIT
#include "FileLimit.h"
#include "StringProject.h"

#include <random>

using namespace Qt::StringLiterals;

TEST(StringFileWriter, WritesEveryTableAsItWasRead)
{
    std::mt19937 random(1);
    const auto below = [&](unsigned limit) { return unsigned(random() % limit); };
    for (int round = 0; round < 60; ++round) {
        const unsigned languages = below(5);
        const unsigned rows = below(30);
        QString table = u"Number of Language|%1\nString ID|Resource Type|Description"_s.arg(languages);
        for (unsigned i = 0; i < languages; ++i)
            table += u"|L%1(%1)"_s.arg(i);
        for (unsigned row = 0; row < rows; ++row) {
            table += u"\nID_%1|%2"_s.arg(row).arg(below(2) ? u"Push"_s : u"Normal"_s);
            for (unsigned cell = 0; cell <= languages; ++cell) {
                table += u'|';
                for (unsigned n = below(12); n > 0; --n)
                    table += QChar(char16_t(below(4) ? 0x20 + below(0x5B) : 0x80 + below(0xD700)));
            }
        }
        table += u"\n##number|%1\n"_s.arg(rows);
        StringProject project;
        ASSERT_EQ(project.Read(table.toUtf8()), 0);
        ASSERT_EQ(project.Written(), table.toStdString());
    }
}

TEST(StringFileWriter, WritesTwoLinesForAProjectWithoutStringsWhichDoNotReadBack)
{
    StringProject project;
    EXPECT_EQ(project.Written(), "Number of Language|0\nString ID|Resource Type|Description\n");
    EXPECT_EQ(project.ReadBytes(project.folder.Get("out.txt")), 1012);
    EXPECT_EQ(project.Messages(), "Warning 1: Number of Language = 0.\r\nError 1: failed to read a new line.\r\n");
    EXPECT_EQ(project.Written(), "Number of Language|0\nString ID|Resource Type|Description\n##number|0\n");
    project.Language(-1)->AddResource(project.CreateStringRes("ID_A"));
    static_cast<CStringRes *>(project.Language(-1)->resources.First())->SetText(u"one\ttwo\r\nthree");
    EXPECT_THAT(project.Written(), testing::HasSubstr("ID_A|Normal|one|two\nthree\n")) << "a text is written unchanged";
}

TEST(StringFileWriter, NamesAPathThatCannotBeOpenedAndKeepsTheOldFileOnAFullDisk)
{
    StringProject project;
    const auto write = [&](const char *name, const char *message) {
        project.env.ErrorCount = 4;
        const int code = WriteStringFile(project.folder.Path(name), project);
        EXPECT_EQ(project.Messages(), message + project.folder.Path(name).toStdString() + "\".\r\n");
        return code;
    };
    for (const char *name : {"no/such/folder.txt", "bin"})
        EXPECT_EQ(write(name, "Error 5: failed to open file \""), 110);
    project.folder.Put("strings.txt", "as it was");
    for (const rlim_t room : {0, 1, 100})
        EXPECT_EQ(WithFileLimit(room, [&] { return write("strings.txt", "Error 5: failed to write to file \""); }),
                  1013);
    EXPECT_EQ(project.folder.Get("strings.txt"), "as it was");
    EXPECT_EQ(project.folder.Names(), QStringList({u"bin"_s, u"strings.txt"_s})) << "no other file is left";
}
