// SPDX-License-Identifier: MIT
#include "LanguageTable.h"

#include "StringProject.h"

using namespace Qt::StringLiterals;

TEST(LanguageHeader, UsesItsNumberOrLooksUpTheWholeText)
{
    const QString longest(128, u'n');
    const StringProject project;
    for (const auto &[header, number, name] : {
             std::tuple(u"English(1)"_s, 1, u"English"_s),
             {u"Klingon(0)"_s, 0, u"Klingon"_s},
             {u"English( +7 rest"_s, 7, u"English"_s},
             {u"English(-5)"_s, -5, u"English"_s},
             {u"English(99999999999)"_s, 2147483647, u"English"_s},
             {longest + u"(3)"_s, 3, longest},
             {u"French"_s, 12, u"French"_s},
         }) {
        QString text = header;
        EXPECT_EQ(ParseLanguageHeader(project.env, text), number) << qPrintable(header);
        EXPECT_EQ(text, name);
    }
    for (QString unknown : {u""_s, u"Klingon"_s, u"(1)"_s, u"English("_s, u"English()"_s, u"English(-)"_s,
                            u"English(x1)"_s, u"English (US) ( +7 rest"_s, longest + u"n(3)"_s})
        EXPECT_EQ(ParseLanguageHeader(project.env, unknown), -1) << qPrintable(unknown);
}

TEST(LanguageTable, ReadsLinesThatHaveANameAndANumber)
{
    TestProgram program;
    const QString longest(64, u'n');
    program.folder.Put("bin/tuvik.ini",
                       u"[Language]\nEnglish=0\n日本語 (JP) = 4 rest\nNo number=\nnone\n=3\nx=y=1\n"
                       "English=0\n%1=7\n%1n=8\n[Code]\n4=ja\n 7 = x-long \nnone=zz\n7=yy\n9=fr\n"_s.arg(longest)
                           .toUtf8());
    QStringList lines;
    for (const KnownLanguage &language : KnownLanguages(*program.env))
        lines.append(u"%1:%2:%3"_s.arg(language.name).arg(language.number).arg(language.code));
    EXPECT_EQ(lines, QStringList({u"English:0:"_s, u"日本語 (JP) :4:ja"_s, u"English:0:"_s, longest + u":7:x-long"_s}));
}
