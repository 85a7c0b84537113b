// SPDX-License-Identifier: MIT
#include "XmlElements.h"
#include "XmlWriter.h"

#include "Environment.h"
#include "TempFolder.h"

#include <cstdio>
#include <random>

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

TEST_F(Xml, MakesElementsOneAtATimeAsInTheWholeDocument)
{
    const auto shown = [](const TiXmlElement *element) {
        if (!element)
            return QByteArray();
        TiXmlPrinter printer;
        element->Accept(&printer);
        return QByteArray::number(RowOf(*element)) + RowsOf(*element) + printer.CStr();
    };
    const QByteArrayList tokens =
        QByteArray("<FILE id=\"a\" type='>'>|<FILE id=\"a\">|<FILE  b=\"<\" c=\"&#x;\">|</FILE>|"
                   "<IMAGE a=\"\" a=\"\"/>|<R>|<R x=\"1\"\n\ty=\"/>\">|</R>|</R >|<b/>|<b /|>|\n| |"
                   "text|&amp;&x;|&#65;|&#x|<!-- <b/> -->|\xc3|\xc3\xa4|\f|<![CDATA[<b>]]>")
            .split('|');
    std::mt19937 random(3); // the same documents each time
    int inPieces = 0;
    int inOne = 0;
    for (int n = 0; n < 8000; ++n) {
        QByteArray text = n % 3 == 0 ? "\n<APP id=\"x\">" : "<APP>\n";
        for (size_t i = random() % 8; i > 0; --i) {
            if (random() % 4 != 0)
                text += random() % 2 ? "<FILE id=\"a\">x &amp;\ny</FILE>\n" : "<R>\n<IMAGE>p</IMAGE><b/>\n </R>";
            else
                text += tokens[qsizetype(random() % size_t(tokens.size()))];
        }
        text += n % 5 == 0 ? "</APP> <b/>" : "</APP>\n";
        (void)std::remove(folder.Path("list.xml").toUtf8().constData()); // to overwrite a file takes longer
        folder.Put("list.xml", text);
        document.Clear();
        document.ClearError();
        const int code = LoadXml(env, folder.Path("list.xml"), document);
        XmlElements elements;
        ASSERT_EQ(elements.Load(env, folder.Path("list.xml")), code) << text.constData();
        ASSERT_EQ(elements.Document().ErrorRow(), document.ErrorRow()) << text.constData();
        if (code != 0)
            continue;
        const TiXmlElement *const outermost = document.FirstChildElement();
        const TiXmlElement *const found = elements.Document().FirstChildElement();
        ASSERT_EQ(RowOf(*found), RowOf(*outermost)) << text.constData();
        const TiXmlElement *child = outermost->FirstChildElement();
        ++(child && !found->FirstChildElement() ? inPieces : inOne);
        for (; child; child = child->NextSiblingElement())
            ASSERT_EQ(shown(elements.Next()), shown(child)) << text.constData();
        ASSERT_EQ(elements.Next(), nullptr);
    }
    EXPECT_GT(inPieces, 500);
    EXPECT_GT(inOne, 500);
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
