#include "StringProject.h"

#include <csignal>
#include <random>
#include <sys/resource.h>

namespace
{

/// A project of random rows; texts hold anything but what ends a field.
void FillAtRandom(StringProject &project, unsigned seed)
{
    std::mt19937 random(seed);
    const auto below = [&](unsigned limit) { return unsigned(random() % limit); };
    const unsigned languages = below(5);
    const auto text = [&] {
        QString result;
        for (unsigned n = below(12); n > 0; --n)
            result += QChar(char16_t(below(4) ? 0x20 + below(0x5F) : 0x80 + below(0xFF7F)));
        return result;
    };
    for (unsigned i = 0; i <= languages; ++i) {
        auto folder = project.CreateFolder(KIND_LANGUAGE, int(i) - 1);
        folder->title = i ? QStringLiteral("L%1").arg(i) : QString();
        project.strings->AddFolder(std::move(folder));
    }
    for (unsigned row = below(30); row > 0; --row) {
        auto head = project.CreateStringRes("ID_" + QByteArray::number(row), -1);
        CStringRes *const first = head.get();
        first->Id()->push = below(2);
        first->SetText(text());
        project.strings->subfolders[0]->AddResource(std::move(head));
        for (unsigned i = 1; i <= languages; ++i) {
            if (below(3) == 0)
                continue;
            auto cell = project.CreateStringRes(first->Id(), int(i) - 1);
            cell->SetText(text());
            first->LinkBehind(cell.get()); // so the chains run in another order than the folders
            project.strings->subfolders[i]->AddResource(std::move(cell));
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
        EXPECT_EQ(again.TestProgram::env->ErrorCount, 0);
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
}

TEST(StringFileWriter, BeginsWithTheMarkAndEndsLinesWithBothCharacters)
{
    StringProject project;
    project.Written();
    const QByteArray bytes = project.folder.Get("out.txt");
    EXPECT_TRUE(bytes.startsWith(QByteArray("\xFF\xFEN\0u\0", 6)));
    EXPECT_TRUE(bytes.endsWith(QByteArray("n\0\r\0\n\0", 6)));
}

TEST(StringFileWriter, WritesATextAsItIs)
{
    StringProject project;
    ASSERT_EQ(project.Read("Number of Language|0\nString ID|Description\nID_A|a\n##number|1\n"), 0);
    static_cast<CStringRes *>(project.Language(-1)->resources.First())->SetText(QStringLiteral("one\ttwo\nthree"));
    EXPECT_THAT(project.Written(), testing::HasSubstr("ID_A|Normal|one|two\nthree\n"));
}

TEST(StringFileWriter, NamesAPathThatCantBeOpened)
{
    StringProject project;
    for (const char *name : {"no/such/folder.txt", "bin"}) {
        const QString path = project.folder.Path(name);
        project.TestProgram::env->ErrorCount = 4;
        EXPECT_EQ(WriteStringFile(path, project), 110);
        EXPECT_EQ(project.TakeOutput(), "Error 5: failed to open file \"" + path.toUtf8() + "\".\r\n");
    }
}

TEST(StringFileWriter, KeepsTheOldFileWhenTheDiskGivesOut)
{
    StringProject project;
    project.folder.Put("strings.txt", "as it was");
    const QString path = project.folder.Path("strings.txt");
    rlimit old{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    signal(SIGXFSZ, SIG_IGN);
    for (const rlim_t room : {rlim_t(0), rlim_t(1), rlim_t(100)}) {
        const rlimit small{room, old.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
        const int code = WriteStringFile(path, project);
        setrlimit(RLIMIT_FSIZE, &old);
        EXPECT_EQ(code, 1013);
        EXPECT_EQ(project.folder.Get("strings.txt"), "as it was");
        EXPECT_THAT(project.Messages(),
                    testing::HasSubstr(": failed to write to file \"" + path.toStdString() + "\".\r\n"));
    }
    EXPECT_EQ(project.folder.Names().filter(QStringLiteral("strings")).size(), 1) << "nothing is left beside it";
}
