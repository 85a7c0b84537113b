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
              "2: the value \"1,2\" of \"pos\" is no ZulPoint\n"
              "2: \"Label\" has no property \"colour\"\n"
              "2: the value \"right\" of \"align\" is no Align\n"
              "2: \"ID_I\" is no string\n"
              "3: unknown class \"Lable\"\n"
              "3: \"Insets\" is no class\n"
              "4: the name \"n\" stands in line 3 already\n"
              "4: the name \"n\" stands in line 3 already\n"
              "4: the name \"n\" stands in line 3 already\n"
              "5: \"ID_S\" is no image\n"
              "5: no resource has the ID \"ID_X\"\n"
              "5: no resource has the ID \"ID_X\"\n"
              "5: the value \"@ID_I\" of \"images\" is no ZrpStateImage\n"
              "5: the property \"insets\" is an element <Insets>, no attribute\n"
              "6: \"Label\" has no property \"inset\"\n"
              "6: \"Insets\" is no class\n"
              "7: the value \"x\" of \"left\" is no ZulS32\n"
              "7: no component can stand in the structure \"Insets\"\n"
              "7: the property \"insets\" stands twice\n"
              "7: the property \"align\" is an attribute, no element\n"
              "8: <Label> should be <Insets>, the type of \"insets\"\n"
              "9: the layout \"a\" stands twice, small and capital letters being the same\n"
              "9: <Layout> needs the attribute \"id\"\n"
              "9: <Screen> should be <Layout>\n"
              "10: \"a b\" is no ID: letters, digits and \"_\", at most 64, no digit in front\n"
              "10: the ID \"ID_S\" is that of another resource\n"
              "11: a component of the layout itself is no property \"x\"\n"
              "11: the value \"soon\" of \"wait\" is no ZulMsec\n"
              "11: \"ID_F\" is no reference: \"@\" and an ID, or 0 for none\n"
              "11: the value \"(@ID_I,0,0,0) \" of \"images\" is no ZrpStateImage\n");
}

TEST(LayoutCheck, WithoutACatalogueChecksOnlyNamesAndReferences)
{
    const TestCatalogue catalogue;
    const QByteArray unknown = R"xml(<TarvoXML><Layout id="A"><Any name="x" a="@ID_X" b="5"><Other name="x" prop="p"/>
<Other c="@ID_F"/></Any></Layout></TarvoXML>)xml";
    EXPECT_EQ(Findings(catalogue, unknown),
              "1: no resource has the ID \"ID_X\"\n1: the name \"x\" stands in line 1 already\n");
    EXPECT_EQ(Findings(catalogue, "\n<Root/>"), "2: <Root> should be <TarvoXML>\n");
    const Environment env(QStringLiteral("/nonexistent"));
    const auto findings = CheckLayoutFile(env, QStringLiteral("/nonexistent/l.xml"), catalogue, {});
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].line, 0);
}
