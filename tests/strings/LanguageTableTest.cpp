#include "LanguageTable.h"

#include "StringProject.h"

using namespace Qt::StringLiterals;

TEST(LanguageHeader, ItsOwnNumberCountsAndWithoutOneTheWholeTextIsLookedUp)
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
