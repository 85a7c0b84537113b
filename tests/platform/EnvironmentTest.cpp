// SPDX-License-Identifier: MIT
#include "Environment.h"

#include "TempFolder.h"

using namespace Qt::StringLiterals;

TEST(Log, KeepsLinesUpTo511CharactersAndCutsLongerOnesTo508AndDots)
{
    const TempFolder folder;
    Environment env(folder.Path());
    env.WriteOutput("%d\r\n", 1); // without a listener
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

TEST(Environment, CountsWritesAndReportsFindings)
{
    Environment process(QStringLiteral("/nonexistent"));
    Environment env(process); // the environment of a document
    QString output;
    process.output = [&output](QStringView text) { output += text; };
    QByteArray heard;
    const Notifier<const Finding &>::Listener listener(process.found, [&heard](const Finding &finding) {
        heard += QByteArray(finding.code) + ' ' + finding.text.toUtf8() + '\n';
    });
    env.Report({"a", Severity::Error, {}, 0, {}, {}}, "bad %s (Line %d).", "x", 7);
    env.Report({"b", Severity::Warning, {}, 3, {}, QStringLiteral("plain words")}, "odd.");
    env.Report({"c", Severity::Error, {}, 0, {}, {}}, LineStart::Warning, "none.");
    env.Report({"d", Severity::Error, {}, 0, {}, {}}, LineStart::Fatal, "torn.");
    env.Note({"e", Severity::Error, {}, 0, {}, QStringLiteral("left out")});
    env.Report({"f", Severity::Error, {}, 0, {}, {}}, "%s.", QByteArray(600, 'x').constData());
    EXPECT_EQ(output.left(output.indexOf(u"xx")).toStdString(), "Error 1: bad x (Line 7).\r\nWarning 1: odd.\r\n"
                                                                "Warning 2: none.\r\nFatal error: torn.\r\nError 4: ");
    EXPECT_TRUE(output.endsWith(u"x...") && output.size() - output.indexOf(u"Error 4") == 511);
    EXPECT_EQ(process.ErrorCount, 4);
    EXPECT_EQ(process.WarningCount, 1);
    EXPECT_TRUE(heard.startsWith("a bad x (Line 7)\nb plain words\nc none\nd torn\ne left out\nf xxx"));
}
