#include "Environment.h"

#include "TempFolder.h"

using namespace Qt::StringLiterals;

TEST(Log, ALineOf511CharactersStaysAndALongerOneIsCutTo508AndDots)
{
    const TempFolder folder;
    Environment env(folder.Path());
    env.WriteOutput("%d\r\n", 1); // nobody listens
    env.DebugTrace("%d\n", 1);
    QString written;
    env.output = [&](QStringView text) { written = text.toString(); };
    for (const QString &letter : {u"x"_s, u"\u4e2d"_s}) {
        for (const int size : {511, 512, 600, 5000}) {
            env.WriteOutput("%s", letter.repeated(size).toUtf8().constData());
            EXPECT_EQ(written, size == 511 ? letter.repeated(511) : letter.repeated(508) + u"..."_s) << size;
        }
    }
    env.WriteOutput("x%s", u"\U0001F600"_s.repeated(300).toUtf8().constData());
    EXPECT_TRUE(written.endsWith(u"\U0001F600...")) << "no pair is cut";
}

TEST(Environment, ShowsNarrowTextInUtf8AndFindsLanguagesByName)
{
    const TempFolder folder;
    EXPECT_EQ(Environment(folder.Path()).LanguageNumber(u"English"_s), -1);
    folder.Put("Morvanite.ini", "[Text]\ncode_page=936\n");
    folder.Put("tuvik.ini", "[Language]\nEnglish=0\n中文 = 7\nBroken=x\n");
    const Environment env(folder.Path());
    EXPECT_EQ(env.WideToNarrow(u"中"), "\xd6\xd0");
    EXPECT_EQ(env.Shown("\xd6\xd0"), "\xe4\xb8\xad");
    EXPECT_EQ(env.LanguageNumber(u"english"_s), 0);
    EXPECT_EQ(env.LanguageNumber(u"中文"_s), 7);
    EXPECT_EQ(env.LanguageNumber(u"Klingon"_s), -1);
    EXPECT_EQ(env.ReadLanguageTable().size(), 3);
}
