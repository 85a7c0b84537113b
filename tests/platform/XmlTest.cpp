#include "Xml.h"

#include "Environment.h"
#include "TempFolder.h"

using namespace Qt::StringLiterals;

namespace
{

class Xml : public testing::Test
{
protected:
    int Parse(const QByteArray &text)
    {
        document.Clear();
        document.ClearError();
        return ParseXml(env, text, document);
    }

    TempFolder folder;
    Environment env{folder.Path()};
    TiXmlDocument document;
};

QByteArray Nested(int depth)
{
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

} // namespace

TEST_F(Xml, NestingIsTakenTo256AndRefusedBeyond)
{
    EXPECT_EQ(Parse(Nested(256)), 0);
    EXPECT_EQ(Parse("\n\n" + Nested(257)), -2);
    EXPECT_EQ(document.ErrorRow(), 3);
    EXPECT_EQ(Parse(QByteArray("<a>").repeated(1'000'000)), -2);
    EXPECT_EQ(Parse("<r>" + QByteArray("<a/>").repeated(1000) + QByteArray("<b>x</b>").repeated(1000) + "</r>"), 0);
}

TEST_F(Xml, NothingHidesNestingFromTheCount)
{
    // What the parser takes for the end of a comment, a declaration or a value differs from what one may think.
    const QByteArray deep = QByteArray("<b>").repeated(100'000);
    for (const QByteArray &before :
         {QByteArray("</a>").repeated(100'000), QByteArray("<!--><x y='-->"), QByteArray("<?xml version=\"><x y='\"?>"),
          QByteArray("<?xml x\" version=\">\"<x y='\" ?>"), QByteArray("<![CDATA[]]]><x y='x]]>"),
          QByteArray("<!x '><"), QByteArray("<1 y='>"), QByteArray("<r y=x'>"), QByteArray("<r y=\"'\">"),
          QByteArray("< r y='>")})
        EXPECT_EQ(Parse(before + deep + "'>"), -2) << before.left(40).constData();
}

TEST_F(Xml, ManyAttributesAndTagsAreRefused)
{
    const auto withAttributes = [](int count) {
        QByteArray text = "<a";
        for (int i = 0; i < count; ++i)
            text += " x" + QByteArray::number(i) + "=\"=\"";
        return text + "/>";
    };
    EXPECT_EQ(Parse(withAttributes(128)), 0);
    EXPECT_EQ(Parse(withAttributes(129)), -2);
    EXPECT_EQ(Parse(withAttributes(100'000)), -2);
    EXPECT_EQ(Parse("<r>" + QByteArray("<a/>").repeated(4'000'000) + "</r>"), -2);
}

TEST_F(Xml, BrokenTextIsAnErrorOrIgnoredAndNeverACrash)
{
    EXPECT_EQ(Parse(""), -2);
    EXPECT_EQ(document.ErrorRow(), 0);
    EXPECT_EQ(Parse("<a>\xe4"), -2);
    EXPECT_EQ(Parse("<a b=\"\xf0\x9f"), -2);
    EXPECT_EQ(Parse("<a/>\xf0"), 0);
    EXPECT_EQ(Parse(QByteArray("<a>\0</a>", 8)), -2);
    EXPECT_EQ(Parse(QByteArray("<a>\xef\0x</a>", 10)), -2) << "a zero ends the text even within a character";
    EXPECT_EQ(Parse(QByteArray("<a>\xf0\0", 5) + QByteArray("<b>").repeated(100'000)), -2);
    EXPECT_EQ(Parse("<a>\n\n<b>\n</a>"), -2);
    EXPECT_EQ(document.ErrorRow(), 4);
    Parse(QByteArray(10 << 20, '<'));
    Parse(QByteArray(10 << 20, '\r'));
    Parse(QByteArray("&").repeated(1 << 20));
    Parse("<a>" + QByteArray("&#xffffffffffff;").repeated(1000) + "</a>");
}

TEST_F(Xml, LinesEndTheSameWayHoweverTheyAreWritten)
{
    ASSERT_EQ(Parse("<a>\r\n<b x=\"1\r\n2\"/>\r<c/>\r\r\n<d/></a>"), 0);
    const TiXmlElement *a = document.FirstChildElement();
    EXPECT_STREQ(a->FirstChildElement("b")->Attribute("x"), "1\n2");
    EXPECT_EQ(RowOf(*a->FirstChildElement("c")), 4);
    EXPECT_EQ(RowOf(*a->FirstChildElement("d")), 6);
}

TEST_F(Xml, TheRowsOfElementsAreThoseThatTheParserItselfCounts)
{
    const QByteArray text =
        "<?xml version=\"1.0\"?>\n<!-- <no>\n -->\n<!DOCTYPE x>\n<a\n b='<no>\n'>t\n<![CDATA[<no>\n]]><b/>\n"
        "<c><d>x</d\n><1/><e\n/></c></a>\n<f/>";
    ASSERT_EQ(Parse(text), 0);
    TiXmlDocument plain;
    plain.Parse(text.constData(), nullptr, TIXML_ENCODING_UTF8);
    ASSERT_FALSE(plain.Error());
    const auto compare = [](const auto &self, const TiXmlNode &ours, const TiXmlNode &other) -> int {
        int count = 0;
        const TiXmlElement *theirs = other.FirstChildElement();
        for (auto *element = ours.FirstChildElement(); element; element = element->NextSiblingElement()) {
            EXPECT_EQ(RowOf(*element), theirs->Row()) << element->Value();
            count += 1 + self(self, *element, *theirs);
            theirs = theirs->NextSiblingElement();
        }
        return count;
    };
    EXPECT_EQ(compare(compare, document, plain), 6);
}

TEST_F(Xml, FilesThatCannotBeReadAreMinus1)
{
    folder.MakeFolder("folder.xml");
    EXPECT_EQ(LoadXml(env, folder.Path("folder.xml"), document), -1);
    EXPECT_EQ(LoadXml(env, folder.Path("missing.xml"), document), -1);
    EXPECT_EQ(document.ErrorRow(), 0);
}

TEST_F(Xml, TextIsTurnedFromTheCodePageAndBackIntoIt)
{
    env.codePage.Select("936");
    ASSERT_EQ(Parse("<a b=\"\xd6\xd0\">\xd6\xd0</a>"), 0);
    const TiXmlElement *a = document.FirstChildElement();
    EXPECT_STREQ(a->GetText(), "\xe4\xb8\xad");
    EXPECT_EQ(FromXml(env, a->Attribute("b")), "\xd6\xd0");
    EXPECT_EQ(ToXml(env, "\xd6\xd0"), "\xe4\xb8\xad");
    EXPECT_TRUE(SaveXml(env, document, folder.Path("out.xml")));
    EXPECT_EQ(folder.Get("out.xml"), "<a b=\"\xd6\xd0\">\xd6\xd0</a>\n");
    ASSERT_EQ(Parse("\xEF\xBB\xBF<a>\xe4\xb8\xad</a>"), 0) << "a mark says that the file is UTF-8";
    EXPECT_STREQ(document.FirstChildElement()->GetText(), "\xe4\xb8\xad");
}
