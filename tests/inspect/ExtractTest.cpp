// SPDX-License-Identifier: MIT
#include "FileLimit.h"
#include "InspectFixture.h"

#include <unistd.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class ExtractTest : public InspectFixture
{
protected:
    /// Extracts into the folder "out" and returns the error.
    std::string Extract(const Bytes &bytes = Sample().Build())
    {
        written.clear();
        return ExtractAll(env, Read(bytes), folder.Path("out"), written).toStdString();
    }

    /// Returns the names of the files for entries with these names.
    QByteArrayList NamesOf(const std::vector<std::string> &names)
    {
        PayloadBuilder payload;
        for (const std::string &name : names)
            payload.Entry(name, "x");
        EXPECT_EQ(Extract(payload.Build()), "");
        QByteArrayList files;
        for (const QByteArray &path : written) {
            EXPECT_TRUE(path.startsWith("entries/") && folder.Has("out/" + path)) << path.constData();
            files += path.mid(8);
        }
        return files;
    }

    void Link(const char *to, const char *name) const
    {
        ASSERT_EQ(symlink(folder.Path(to).toUtf8().constData(), folder.Path(name).toUtf8().constData()), 0);
    }

    std::vector<QByteArray> written;
};

TEST_F(ExtractTest, WritesAFileForEachEntryItemAndLanguage)
{
    for (int round = 0; round < 2; ++round) { // the second round replaces the files
        ASSERT_EQ(Extract(), "");
        EXPECT_THAT(written, ElementsAre("entries/AppLogo.img", "entries/tune.mid", "items/00000001.bin",
                                         "items/00103000.bin", "strings/0.txt", "strings/12.txt"));
    }
    EXPECT_EQ(folder.Get("out/entries/AppLogo.img"), "0123456789");
    EXPECT_EQ(folder.Get("out/entries/tune.mid"), "");
    EXPECT_EQ(folder.Get("out/items/00000001.bin"), QByteArray("audio\0\0\0", 8));
    EXPECT_EQ(folder.Get("out/strings/0.txt"), "3\t\n7\tHello\n");
    EXPECT_EQ(folder.Get("out/strings/12.txt"), u"3\t\u4F60\u597D \"\\\\\\n\U0001F600\n"_s.toUtf8());
    EXPECT_EQ(folder.Names("out/entries"), (QStringList{u"AppLogo.img"_s, u"tune.mid"_s}));
}

TEST_F(ExtractTest, NamesStayInTheFolderAreValidOnAnyHostAndUnique)
{
    EXPECT_EQ(NamesOf({"..", ".", "../../etc/passwd", "/abs", "a\\..\\b", "C:x", ".hidden", "\n\x7F", "nul.txt", "com7",
                       "end.", "\xE2\x80\xAEgpj.exe"}),
              (QByteArrayList{"_._", "_", "_.._.._etc_passwd", "_abs", "a_.._b", "C_x", "_.hidden", "__", "_nul.txt",
                              "_com7", "end_", "_gpj.exe"}));
    EXPECT_EQ(folder.Names("out"), QStringList{u"entries"_s});
    EXPECT_EQ(NamesOf({"a.png", "A.PNG", "a~2.png", "a.png", "b", "b"}),
              (QByteArrayList{"a.png", "A~2.PNG", "a~2~2.png", "a~3.png", "b", "b~2"}));
    const QByteArrayList cut = NamesOf({std::string(1000000, 'x'), std::string(66, 'y') + std::string(300, '\xE4')});
    EXPECT_EQ(cut[0], QByteArray(200, 'x'));
    EXPECT_LE(cut[1].size(), 200);
    EXPECT_EQ(NamesOf(std::vector<std::string>(10000, "n")).last(), "n~10000");
}

TEST_F(ExtractTest, FollowsNoLinksBelowTheFolderButTheFolderMayBeALink)
{
    folder.MakeFolder("real/entries");
    folder.MakeFolder("elsewhere");
    folder.Put("precious", "mine");
    Link("real", "out");
    Link("precious", "real/entries/AppLogo.img");
    ASSERT_EQ(Extract(), "");
    EXPECT_EQ(folder.Get("precious"), "mine");
    EXPECT_EQ(folder.Get("real/entries/AppLogo.img"), "0123456789");

    ASSERT_TRUE(QDir(folder.Path("real/items")).removeRecursively());
    Link("elsewhere", "real/items");
    EXPECT_THAT(Extract(), StartsWith("cannot write items: "));
    EXPECT_THAT(folder.Names("elsewhere"), IsEmpty());
}

TEST_F(ExtractTest, AFailureIsReportedEndsTheExtractionAndLeavesNoPartialFile)
{
    folder.Put("out", "a file");
    EXPECT_THAT(Extract(), StartsWith("cannot write " + folder.Path("out").toStdString() + ": "));
    EXPECT_EQ(folder.Get("out"), "a file");

    QFile::remove(folder.Path("out"));
    EXPECT_EQ(WithFileLimit(5, [&] { return Extract(); }), "cannot write entries/AppLogo.img: File too large");
    EXPECT_THAT(written, IsEmpty());
    EXPECT_THAT(folder.Names("out/entries"), IsEmpty());
}
