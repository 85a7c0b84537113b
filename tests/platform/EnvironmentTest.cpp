#include "Environment.h"

#include "TempFolder.h"

using namespace Qt::StringLiterals;

namespace
{

struct Logged
{
    Logged()
    {
        env.output = [this](QStringView written) { text += written; };
    }
    TempFolder folder;
    Environment env{folder.Path()};
    QString text;
};

} // namespace

TEST(Log, ALineOf511CharactersStaysAndALongerOneIsCutTo508AndDots)
{
    Logged log;
    log.env.WriteOutput("%s", QByteArray(511, 'x').constData());
    EXPECT_EQ(log.text, QString(511, u'x'));
    for (const int size : {512, 600, 5000}) {
        log.text.clear();
        log.env.WriteOutput("%s", QByteArray(size, 'x').constData());
        EXPECT_EQ(log.text, QString(508, u'x') + u"..."_s) << size;
    }
}

TEST(Log, ItsLengthCountsCharactersAndNoPairIsCut)
{
    Logged log;
    log.env.WriteOutput("%s", QString(511, QChar(0x4e2d)).toUtf8().constData());
    EXPECT_EQ(log.text, QString(511, QChar(0x4e2d)));
    log.text.clear();
    log.env.WriteOutput("x%s", QByteArray("\xf0\x9f\x98\x80").repeated(300).constData());
    EXPECT_TRUE(log.text.endsWith(u"\U0001F600..."));
}

TEST(Log, NobodyListeningIsNoFault)
{
    const TempFolder folder;
    Environment env(folder.Path());
    env.WriteOutput("%d\r\n", 1);
    env.DebugTrace("%d\n", 1);
    EXPECT_TRUE(env.ProgramDir().endsWith(u'/'));
}

TEST(Environment, NarrowTextIsShownInUtf8WhateverItsCodePage)
{
    const TempFolder folder;
    folder.Put("Morvanite.ini", "[Text]\ncode_page=936\n");
    const Environment env(folder.Path());
    EXPECT_EQ(env.WideToNarrow(u"中"), "\xd6\xd0");
    EXPECT_EQ(env.Shown("\xd6\xd0"), "\xe4\xb8\xad");
}

TEST(Environment, LanguagesAreFoundByNameAndAnUnknownOneIsMinus1)
{
    const TempFolder folder;
    folder.Put("tuvik.ini", "[Language]\nEnglish=0\n中文 = 7\nBroken=x\n");
    const Environment env(folder.Path());
    EXPECT_EQ(env.LanguageNumber(u"english"_s), 0);
    EXPECT_EQ(env.LanguageNumber(u"中文"_s), 7);
    EXPECT_EQ(env.LanguageNumber(u"Klingon"_s), -1);
    EXPECT_EQ(env.ReadLanguageTable().size(), 3);

    const TempFolder empty;
    const Environment without(empty.Path());
    EXPECT_EQ(without.LanguageNumber(u"English"_s), -1);
    EXPECT_TRUE(without.ReadLanguageTable().isEmpty());
}
