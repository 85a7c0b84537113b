#include "FileLimit.h"
#include "StringProject.h"

#include <random>

using namespace Qt::StringLiterals;

namespace
{

/// A project of random rows; texts hold anything but what ends a field.
void FillAtRandom(StringProject &project, unsigned seed)
{
    std::mt19937 random(seed);
    const auto below = [&](unsigned limit) { return unsigned(random() % limit); };
    const auto text = [&] {
        QString result;
        for (unsigned n = below(12); n > 0; --n)
            result += QChar(char16_t(below(4) ? 0x20 + below(0x5F) : 0x80 + below(0xFF7F)));
        return result;
    };
    const int languages = int(below(5));
    for (int i = -1; i < languages; ++i)
        project.AddFolder(project.strings, KIND_LANGUAGE, i, i < 0 ? QString() : u"L%1"_s.arg(i));
    for (unsigned row = below(30); row > 0; --row) {
        auto head = project.CreateStringRes("ID_" + QByteArray::number(row), -1);
        CStringRes *const first = head.get();
        first->Id()->push = below(2);
        first->SetText(text());
        project.Language(-1)->AddResource(std::move(head));
        for (int i = 0; i < languages; ++i) {
            if (below(3) == 0)
                continue;
            auto cell = project.CreateStringRes(first->Id(), i);
            cell->SetText(text());
            first->LinkBehind(cell.get()); // so the chains run in another order than the folders
            project.Language(i)->AddResource(std::move(cell));
        }
    }
}

} // namespace

TEST(StringFileWriter, WhatItWroteIsReadBackAsTheSameTable)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        StringProject project;
        FillAtRandom(project, seed);
        const std::string written = project.Written();
        StringProject again;
        ASSERT_EQ(again.ReadBytes(project.folder.Get("out.txt")), 0);
        EXPECT_EQ(again.env.ErrorCount, 0);
        EXPECT_EQ(again.Written(), written);
    }
}

TEST(StringFileWriter, AProjectWithoutStringsGivesTwoLinesThatEndInTheReadError)
{
    StringProject project;
    EXPECT_EQ(project.Written(), "Number of Language|0\nString ID|Resource Type|Description\n");
    EXPECT_EQ(project.ReadBytes(project.folder.Get("out.txt")), 1012);
    EXPECT_EQ(project.Messages(), "Warning 1: Number of Language = 0.\r\nError 1: failed to read a new line.\r\n");
    EXPECT_EQ(project.Written(), "Number of Language|0\nString ID|Resource Type|Description\n##number|0\n");
    project.Language(-1)->AddResource(project.CreateStringRes("ID_A", -1));
    static_cast<CStringRes *>(project.Language(-1)->resources.First())->text = u"one\ttwo\r\nthree"_s;
    EXPECT_THAT(project.Written(), testing::HasSubstr("ID_A|Normal|one|two\nthree\n")) << "a text stands as it is";
}

TEST(StringFileWriter, NamesAPathThatCantBeOpenedAndKeepsTheOldFileWhenTheDiskGivesOut)
{
    StringProject project;
    /// The code without its thousand, so that a child can return it; 99 when the message is another.
    const auto code = [&](const char *name, const char *message) {
        project.env.ErrorCount = 4;
        const int result = WriteStringFile(project.folder.Path(name), project);
        return project.Messages() == message + project.folder.Path(name).toStdString() + "\".\r\n" ? result % 1000 : 99;
    };
    for (const char *name : {"no/such/folder.txt", "bin"})
        EXPECT_EQ(code(name, "Error 5: failed to open file \""), 110);
    project.folder.Put("strings.txt", "as it was");
    for (const rlim_t room : {0, 1, 100})
        EXPECT_EQ(WithFileLimit(room, [&] { return code("strings.txt", "Error 5: failed to write to file \""); }), 13);
    EXPECT_EQ(project.folder.Get("strings.txt"), "as it was");
    EXPECT_EQ(project.folder.Names(), QStringList({u"bin"_s, u"strings.txt"_s})) << "nothing is left beside it";
}
