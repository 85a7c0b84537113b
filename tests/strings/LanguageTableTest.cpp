#include "LanguageTable.h"

#include "StringProject.h"

namespace
{

struct Parsed
{
    int number;
    QString name;
    bool operator==(const Parsed &other) const = default;
};

void PrintTo(const Parsed &parsed, std::ostream *out)
{
    *out << parsed.name.toStdString() << " = " << parsed.number;
}

Parsed Parse(const QString &header)
{
    static const StringProject project;
    QString text = header;
    const int number = ParseLanguageHeader(*project.TestProgram::env, text);
    return {number, text};
}

Parsed Parse(const char *header)
{
    return Parse(QString::fromUtf8(header));
}

Parsed Is(int number, const char *name)
{
    return {number, QString::fromUtf8(name)};
}

} // namespace

TEST(LanguageHeader, ItsOwnNumberCountsWhateverTheTableHolds)
{
    EXPECT_EQ(Parse("English(1)"), Is(1, "English"));
    EXPECT_EQ(Parse("Klingon(0)"), Is(0, "Klingon"));
    EXPECT_EQ(Parse("English (US) ( +7 rest"), Is(-1, "English (US) ( +7 rest"));
    EXPECT_EQ(Parse("English( +7 rest"), Is(7, "English"));
    EXPECT_EQ(Parse("English(-5)"), Is(-5, "English"));
    EXPECT_EQ(Parse("English(99999999999)"), Is(2147483647, "English"));
}

TEST(LanguageHeader, WithoutANumberTheWholeTextIsLookedUp)
{
    EXPECT_EQ(Parse("French"), Is(12, "French"));
    for (const char *unknown : {"", "Klingon", "(1)", "English(", "English()", "English(-)", "English(x1)"})
        EXPECT_EQ(Parse(unknown), Is(-1, unknown));
}

TEST(LanguageHeader, ANameBeforeTheNumberHas128CharactersAtMost)
{
    const QString longest(128, u'n');
    EXPECT_EQ(Parse(longest + QStringLiteral("(3)")), (Parsed{3, longest}));
    const QString tooLong = longest + QStringLiteral("n(3)");
    EXPECT_EQ(Parse(tooLong), (Parsed{-1, tooLong}));
}
