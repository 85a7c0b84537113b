// SPDX-License-Identifier: MIT
#include "Xml.h"
#include "XmlWriter.h"

#include "Environment.h"
#include "TempFolder.h"

namespace
{

struct Xml : testing::Test
{
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

QByteArray Times(int count, const char *text)
{
    return QByteArray(text).repeated(count);
}

/// Returns the rows of all elements, in their order.
QByteArray RowsOf(const TiXmlNode &node)
{
    QByteArray rows;
    for (auto *element = node.FirstChildElement(); element; element = element->NextSiblingElement())
        rows += ' ' + QByteArray::number(RowOf(*element)) + RowsOf(*element);
    return rows;
}

} // namespace

TEST_F(Xml, RefusesDeepNestingAndTooManyAttributesOrTags)
{
    EXPECT_EQ(Parse(Times(256, "<a>") + Times(256, "</a>")), 0);
    EXPECT_EQ(Parse("\n\n" + Times(257, "<a>") + Times(257, "</a>")), -2);
    EXPECT_EQ(document.ErrorRow(), 3);
    EXPECT_EQ(Parse("<r>" + Times(1000, "<a/>") + Times(1000, "<b>x</b>") + "</r>"), 0);
    EXPECT_EQ(Parse("<r>" + Times(4'000'000, "<a/>") + "</r>"), -2);
    for (const int count : {128, 129, 100'000}) {
        QByteArray text = "<a";
        for (int i = 0; i < count; ++i)
            text += " x" + QByteArray::number(i) + "=\"=\"";
        EXPECT_EQ(Parse(text + "/>"), count == 128 ? 0 : -2) << count;
    }
}

TEST_F(Xml, CountsNestingWhateverSurroundsIt)
{
    // The parser ends comments, declarations and values at unexpected places.
    const QByteArray deep = Times(100'000, "<b>");
    for (const QByteArray &before :
         {QByteArray(), Times(100'000, "</a>"), QByteArray("<!--><x y='-->"), QByteArray("<?xml version=\"><x y='\"?>"),
          QByteArray("<?xml x\" version=\">\"<x y='\" ?>"), QByteArray("<![CDATA[]]]><x y='x]]>"),
          QByteArray("<!x '><"), QByteArray("<1 y='>"), QByteArray("<r y=x'>"), QByteArray("<r y=\"'\">"),
          QByteArray("< r y='>"), QByteArray("<a>\xf0\0", 5)})
        EXPECT_EQ(Parse(before + deep + "'>"), -2) << before.left(40).constData();
}

TEST_F(Xml, ReportsOrIgnoresBrokenTextWithoutACrash)
{
    EXPECT_EQ(Parse(""), -2);
    EXPECT_EQ(document.ErrorRow(), 0);
    for (const QByteArray &broken : {QByteArray("<a>\xe4"), QByteArray("<a b=\"\xf0\x9f"), QByteArray("<a>\0</a>", 8),
                                     QByteArray("<a>\xef\0x</a>", 10)})
        EXPECT_EQ(Parse(broken), -2) << broken.left(20).constData();
    EXPECT_EQ(Parse("<a/>\xf0"), 0);
    EXPECT_EQ(Parse("<a>\n\n<b>\n</a>"), -2);
    EXPECT_EQ(document.ErrorRow(), 4);
    Parse(Times(10 << 20, "<"));
    Parse(Times(10 << 20, "\r"));
    Parse(Times(1 << 20, "&"));
    Parse("<a>" + Times(1000, "&#xffffffffffff;") + "</a>");
}

TEST_F(Xml, ReportsTheRowsOfTheParserForAllLineEnds)
{
    const QByteArray text =
        "<?xml version=\"1.0\"?>\n<!-- <no>\n -->\n<!DOCTYPE x>\n<a\n b='<no>\n'>t\n<![CDATA[<no>\n]]><b/>\n"
        "<c><d>x</d\n><1/><e\n/></c></a>\n<f/>";
    TiXmlDocument plain;
    plain.Parse(text.constData(), nullptr, TIXML_ENCODING_UTF8);
    for (const char *lineEnd : {"\n", "\r\n", "\r"}) {
        ASSERT_EQ(Parse(QByteArray(text).replace("\n", lineEnd)), 0);
        EXPECT_STREQ(document.FirstChildElement()->Attribute("b"), "<no>\n");
        EXPECT_EQ(RowsOf(document).count(' '), 6);
        EXPECT_EQ(RowsOf(document), RowsOf(plain));
        EXPECT_EQ(RowOf(*document.FirstChild()->NextSibling()), 2) << "the comment";
    }
}

TEST_F(Xml, ConvertsTextFromAndToTheCodePage)
{
    env.codePage.Select("936");
    ASSERT_EQ(Parse("<a b=\"\xd6\xd0\">\xd6\xd0</a>"), 0);
    const TiXmlElement *a = document.FirstChildElement();
    EXPECT_STREQ(a->GetText(), "\xe4\xb8\xad");
    EXPECT_EQ(FromXml(env, a->Attribute("b")), "\xd6\xd0");
    EXPECT_EQ(ToXml(env, "\xd6\xd0"), "\xe4\xb8\xad");
    XmlWriter writer(env);
    writer.Begin(TiXmlElement("all"));
    writer.Put(*a);
    for (const bool empty : {true, false}) {
        writer.Begin(TiXmlElement("inner"));
        if (!empty)
            writer.Put(TiXmlElement("b"));
        writer.End();
    }
    writer.End();
    EXPECT_TRUE(writer.Save(folder.Path("out.xml")));
    EXPECT_EQ(folder.Get("out.xml"),
              "<all>\n    <a b=\"\xd6\xd0\">\xd6\xd0</a>\n    <inner />\n    <inner>\n        <b />\n"
              "    </inner>\n</all>\n");
    for (int size = 0; size < 100; ++size) { // with any size of the buffer after the text
        ASSERT_EQ(Parse("<a>" + QByteArray(size, 'x') + "\n\n<b/></a>"), 0);
        EXPECT_EQ(RowOf(*document.FirstChildElement()->FirstChildElement()), 3);
    }
    ASSERT_EQ(Parse("\xEF\xBB\xBF<a>\xe4\xb8\xad</a>"), 0) << "a mark says that the file is UTF-8";
    EXPECT_STREQ(document.FirstChildElement()->GetText(), "\xe4\xb8\xad");

    for (const char *unreadable : {"", "missing.xml"})
        EXPECT_EQ(LoadXml(env, folder.Path(unreadable), document), -1);
}
