// SPDX-License-Identifier: MIT
#include "LayoutCheck.h"

#include "TestCatalogue.h"
#include "Xml.h"

namespace
{

QByteArray Findings(const ClassCatalogue &catalogue, const QByteArray &text)
{
    const Environment env(QStringLiteral("/nonexistent"));
    TiXmlDocument document;
    EXPECT_EQ(ParseXml(env, text, document), 0);
    const auto kindOf = [](const NarrowText &id) {
        return id == "ID_S"   ? ReferenceKind::STRING
               : id == "ID_I" ? ReferenceKind::IMAGE
               : id == "ID_F" ? ReferenceKind::OTHER
                              : ReferenceKind::NONE;
    };
    QByteArray lines;
    for (const Finding &finding : CheckLayouts(env, {}, document, catalogue, kindOf))
        lines += QByteArray::number(finding.line) + ": " + finding.text.toUtf8() + '\n';
    return lines;
}

} // namespace

TEST(LayoutCheck, ReportsNamesUnknownToTheCatalogue)
{
    const TestCatalogue catalogue(R"(
        <enumeration name="Align"><item name="left"/></enumeration>
        <structure name="Insets"><member name="left" type="ZulS32"/></structure>
        <class name="Base"><member name="pos" type="ZulPoint"/><member name="insets" type="Insets"/></class>
        <class name="Label" base="Base"><member name="text" type="ZulWString"/><member name="align" type="Align"/>
        <member name="wait" type="ZulMsec"/></class>
        <class name="Button" base="Label"><member name="images" type="ZrpStateImage"/><member name="any" type="ZulResId"/></class>)");
    const QByteArray fine = R"xml(<TarvoXML>
<Layout id="A"><Label name="a" pos="(1,2)" text="@ID_S" align="left" rect="x"><Insets prop="insets" left="5"/></Label></Layout>
<Layout id="B"><Button name="a" images=" (@ID_I,0,,0)" any="@ID_F" text=""><Label prop=""/></Button></Layout>
</TarvoXML>)xml";
    EXPECT_EQ(Findings(catalogue, fine), "");
    const QByteArray wrong = R"xml(<TarvoXML>
<Layout id="A"><Label pos="1,2" colour="x" align="right" text="@ID_I"/>
<Lable name="n" whatever="@ID_X"/><Insets/>
<Label name="n"><Label name="n"/><Label name="n"/></Label>
<Button images="(@ID_I,@ID_S,0,@ID_X)" any="@ID_X"><Button images="@ID_I" insets="5"/></Button>
<Label><Insets prop="inset"/>
<Insets prop="insets" left="x"><Label/></Insets><Insets prop="insets"/><Align prop="align"/></Label>
<Label><Label prop="insets"/></Label>
</Layout><Layout id="a"/><Layout/><Screen/>
<Layout id="a b"/><Layout id="ID_S"/>
<Layout id="C"><Button prop="x" wait="soon" any="ID_F" images="(@ID_I,0,0,0) "/></Layout>
</TarvoXML>)xml";
    EXPECT_EQ(Findings(catalogue, wrong),
              "2: the value \"1,2\" of \"pos\" is not of the type ZulPoint\n"
              "2: \"Label\" has no property \"colour\"\n"
              "2: the value \"right\" of \"align\" is not of the type Align\n"
              "2: \"ID_I\" is not a string\n"
              "3: unknown class \"Lable\"\n"
              "3: \"Insets\" is not a class\n"
              "4: the name \"n\" is already used in line 3\n"
              "4: the name \"n\" is already used in line 3\n"
              "4: the name \"n\" is already used in line 3\n"
              "5: \"ID_S\" is not an image\n"
              "5: no resource has the ID \"ID_X\"\n"
              "5: no resource has the ID \"ID_X\"\n"
              "5: the value \"@ID_I\" of \"images\" is not of the type ZrpStateImage\n"
              "5: the property \"insets\" must be an element <Insets>, not an attribute\n"
              "6: \"Label\" has no property \"inset\"\n"
              "6: \"Insets\" is not a class\n"
              "7: the value \"x\" of \"left\" is not of the type ZulS32\n"
              "7: the structure \"Insets\" can't contain components\n"
              "7: the property \"insets\" occurs twice\n"
              "7: the property \"align\" must be an attribute, not an element\n"
              "8: <Label> should be <Insets>, the type of \"insets\"\n"
              "9: the layout \"a\" occurs twice; upper and lower case don't make a difference\n"
              "9: <Layout> needs the attribute \"id\"\n"
              "9: <Screen> should be <Layout>\n"
              "10: \"a b\" is not a valid ID: an ID has at most 64 letters, digits and \"_\", and doesn't begin with a "
              "digit\n"
              "10: another resource has the ID \"ID_S\"\n"
              "11: a component directly in the layout can't be the value of a property (\"x\")\n"
              "11: the value \"soon\" of \"wait\" is not of the type ZulMsec\n"
              "11: \"ID_F\" is not a reference: a reference is \"@\" and an ID, or 0 for none\n"
              "11: the value \"(@ID_I,0,0,0) \" of \"images\" is not of the type ZrpStateImage\n");
}

TEST(LayoutCheck, WithoutACatalogueChecksOnlyNamesAndReferences)
{
    const TestCatalogue catalogue;
    const QByteArray unknown = R"xml(<TarvoXML><Layout id="A"><Any name="x" a="@ID_X" b="5"><Other name="x" prop="p"/>
<Other c="@ID_F"/></Any></Layout></TarvoXML>)xml";
    EXPECT_EQ(Findings(catalogue, unknown), "1: no resource has the ID \"ID_X\"\n"
                                            "1: the name \"x\" is already used in line 1\n");
    EXPECT_EQ(Findings(catalogue, "\n<Root/>"), "2: <Root> should be <TarvoXML>\n");
    const Environment env(QStringLiteral("/nonexistent"));
    const auto findings = CheckLayoutFile(env, QStringLiteral("/nonexistent/l.xml"), catalogue, {});
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].line, 0);
}
