#include "InspectFixture.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;

class ExtractTest : public InspectFixture
{
protected:
    /// Extracts into the folder "out" and gives what went wrong.
    std::string Extract(const InspectResult &result)
    {
        written.clear();
        return ExtractAll(env, result, folder.Path("out"), written).toStdString();
    }
    /// The files that entries of these names become.
    QStringList NamesOf(const std::vector<std::string> &names)
    {
        PayloadBuilder payload;
        for (const std::string &name : names)
            payload.Entry(name, OfText("x"));
        EXPECT_EQ(Extract(Read(payload.Build())), "");
        EXPECT_EQ(written.size(), names.size());
        QStringList files;
        for (const QByteArray &path : written) {
            EXPECT_TRUE(path.startsWith("entries/"));
            EXPECT_TRUE(folder.Has("out/" + path)) << path.constData();
            files += QString::fromUtf8(path.mid(8));
        }
        return files;
    }

    std::vector<QByteArray> written;
};

TEST_F(ExtractTest, EachEntryItemAndLanguageBecomesAFile)
{
    ASSERT_EQ(Extract(Read(Sample().Build())), "");
    EXPECT_THAT(written, ElementsAre("entries/AppLogo.img", "entries/tune.mid", "items/00000001.bin",
                                     "items/00103000.bin", "strings/0.txt", "strings/12.txt"));
    EXPECT_EQ(folder.Get("out/entries/AppLogo.img"), "0123456789");
    EXPECT_EQ(folder.Get("out/entries/tune.mid"), "");
    EXPECT_EQ(folder.Get("out/items/00000001.bin"), QByteArray("audio\0\0\0", 8));
    EXPECT_EQ(folder.Get("out/strings/0.txt"), "3\t\n7\tHello\n");
    EXPECT_EQ(folder.Get("out/strings/12.txt"), u"3\t\u4F60\u597D \"\\\\\\n\U0001F600\n"_s.toUtf8());
    ASSERT_EQ(Extract(Read(Sample().Build())), "") << "a second time replaces the files";
    EXPECT_EQ(folder.Names("out/entries"), (QStringList{u"AppLogo.img"_s, u"tune.mid"_s}));
}

TEST_F(ExtractTest, NoNameLeadsOutOfTheFolder)
{
    EXPECT_EQ(NamesOf({"..", ".", "../../etc/passwd", "/abs", "a\\..\\b", "C:x", ".hidden", "\n\x7F", "nul.txt", "com7",
                       "end.", "\xE2\x80\xAEgpj.exe"}),
              (QStringList{u"_._"_s, u"_"_s, u"_.._.._etc_passwd"_s, u"_abs"_s, u"a_.._b"_s, u"C_x"_s, u"_.hidden"_s,
                           u"__"_s, u"_nul.txt"_s, u"_com7"_s, u"end_"_s, u"_gpj.exe"_s}));
    EXPECT_EQ(folder.Names("out"), QStringList{u"entries"_s});
    EXPECT_FALSE(folder.Has("abs"));
}

TEST_F(ExtractTest, NamesThatAreEqualOrDifferInCaseGetNumbers)
{
    EXPECT_EQ(NamesOf({"a.png", "A.PNG", "a~2.png", "a.png", "b", "b"}),
              (QStringList{u"a.png"_s, u"A~2.PNG"_s, u"a~2~2.png"_s, u"a~3.png"_s, u"b"_s, u"b~2"_s}));
}

TEST_F(ExtractTest, AMillionByteNameAndTenThousandEqualOnesAreNoTrouble)
{
    const QStringList cut = NamesOf({std::string(1000000, 'x'), std::string(66, 'y') + std::string(300, '\xE4')});
    EXPECT_EQ(cut[0], QString(200, u'x'));
    EXPECT_LE(cut[1].toUtf8().size(), 200);
    const QStringList many = NamesOf(std::vector<std::string>(10000, "n"));
    EXPECT_EQ(many.last(), u"n~10000"_s);
}

TEST_F(ExtractTest, LinksBelowTheFolderAreNotFollowed)
{
    folder.MakeFolder("out/entries");
    folder.MakeFolder("elsewhere");
    folder.Put("precious", "mine");
    const auto link = [this](const char *to, const char *name) {
        ASSERT_EQ(symlink(folder.Path(to).toUtf8().constData(), folder.Path(name).toUtf8().constData()), 0);
    };
    link("precious", "out/entries/AppLogo.img");
    ASSERT_EQ(Extract(Read(Sample().Build())), "");
    EXPECT_EQ(folder.Get("precious"), "mine");
    EXPECT_EQ(folder.Get("out/entries/AppLogo.img"), "0123456789");

    ASSERT_TRUE(QDir(folder.Path("out/items")).removeRecursively());
    link("elsewhere", "out/items");
    EXPECT_THAT(Extract(Read(Sample().Build())), HasSubstr("cannot write items: "));
    EXPECT_TRUE(folder.Names("elsewhere").isEmpty());
}

TEST_F(ExtractTest, TheFolderItselfMayBeALink)
{
    folder.MakeFolder("elsewhere");
    ASSERT_EQ(symlink("elsewhere", folder.Path("out").toUtf8().constData()), 0);
    ASSERT_EQ(Extract(Read(Sample().Build())), "");
    EXPECT_EQ(folder.Get("elsewhere/entries/AppLogo.img"), "0123456789");
}

TEST_F(ExtractTest, AFailureIsToldAndEndsTheExtraction)
{
    folder.Put("out", "a file");
    EXPECT_THAT(Extract(Read(Sample().Build())), HasSubstr("cannot write "));
    EXPECT_TRUE(written.empty());
    EXPECT_EQ(folder.Get("out"), "a file");
}

TEST_F(ExtractTest, AFullDiskLeavesNoHalfOfAFile)
{
    const InspectResult result = Read(Sample().Build());
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit bytes{5, 5};
        const bool limited = setrlimit(RLIMIT_FSIZE, &bytes) == 0;
        const std::string wrong = Extract(result);
        _exit(limited && wrong.starts_with("cannot write entries/AppLogo.img: ") && written.empty() ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(folder.Names("out/entries").isEmpty());
}
