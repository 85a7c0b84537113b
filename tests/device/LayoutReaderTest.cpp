// SPDX-License-Identifier: MIT
#include "CatalogueFile.h"
#include "Environment.h"
#include "LayoutFileObject.h"
#include "LayoutWriter.h"
#include "PayloadBuilder.h"
#include "ReadLayout.h"
#include "TempFolder.h"

#include <gmock/gmock.h>

#include <fstream>

using namespace std::string_literals;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

constexpr char CATALOGUE[] = R"(<catalogue version="1">
    <enumeration name="Align"><item name="left"/><item name="right"/></enumeration>
    <structure name="Insets"><member name="left" type="ZulS32"/><member name="top" type="ZulS32"/></structure>
    <class name="Component" excluded="true"><member name="pos" type="ZulPoint"/><member name="size" type="ZulSize"/></class>
    <class name="Label" base="Component">
        <member name="text" type="ZulWString"/><member name="align" type="Align"/><member name="padding" type="Insets"/>
        <member name="shown" type="ZulBool"/><member name="order" type="ZulS32"/><member name="event" type="ZulId"/>
        <member name="wait" type="ZulMsec"/><member name="scale" type="ZulFloat"/><member name="color" type="ZulColor"/>
        <member name="clip" type="ZulRect"/><member name="anchor" type="ZulFPoint"/><member name="data" type="ZulResId"/>
        <member name="icon" type="ZulImageSrc"/><member name="images" type="ZrpStateImage"/>
    </class>
</catalogue>)";

constexpr char HEADER[] =
    "#if !defined _A_\r\n#define _A_\r\n#define  ID_LAYOUT_START    20\r\n#define  ID_IMAGE_A    7\r\n"
    "#define  ID_STRING_HI    300\r\n#define\tID_IMAGE_A 8\n#define ID_IMAGE_B 0x9\n"
    "#define ID_IMAGE_C 9 /* nine */\r\n#define ID_IMAGE_PUSH 103000";

/// The components of an XML text, converted to the device's format.
struct Converted
{
    explicit Converted(const QByteArray &xml, const QByteArray &catalogue = CATALOGUE)
    {
        Environment env(QStringLiteral("/nowhere"));
        std::vector<Finding> wrong;
        EXPECT_TRUE(catalogue.isEmpty() || ParseCatalogue(env, catalogue, QStringLiteral("c"), types, wrong))
            << CatalogueErrors(wrong).join(u'\n').toStdString();
        const TempFolder folder;
        folder.Put("layouts.xml", "<TarvoXML><Layout id=\"ID_LAYOUT_START\">" + xml + "</Layout></TarvoXML>");
        IDPool ids;
        LayoutFileObject file(env, ids, 0);
        EXPECT_EQ(file.Load(folder.Path("layouts.xml").toUtf8()), 0);
        numbers.Read(HEADER);
        const LayoutTables tables(types);
        LayoutWriter writer(types, tables, numbers,
                            [this](const ComponentObject *, const QByteArray &text) { errors += text + '\n'; });
        bytes = writer.Write("ID_LAYOUT_START", file.All().front()->components).toStdString();
    }

    [[nodiscard]] std::string Text() const { return ReadLayout(bytes, 20); }

    ClassCatalogue types;
    IdNumbers numbers;
    std::string bytes;
    std::string errors;
};

constexpr char WHOLE[] =
    R"xml(<Label name="a" pos="(1, -2)" size="(3,4)" text="@ID_STRING_HI" align="right" shown="TRUE" order="-5" event="6"
        wait="2s" scale="-1.5" color="RGB(1,2,3)" clip="(1,2,3,-4)" anchor="(0.5, 1)" data="@ID_LAYOUT_START"
        icon="@ID_IMAGE_A" images="( @ID_IMAGE_A , 0,@ID_IMAGE_PUSH,)">
        <Label prop="inner" name="c" text="plain"/>
        <Insets prop="padding" left="9"/>
        <Other name="b" what="ever" size="x"><Label icon="0" order=""/></Other>
    </Label><Label color="#80FF8040"/>)xml";

std::string WithByte(std::string bytes, std::size_t at, int value)
{
    return bytes.replace(at, 1, 1, static_cast<char>(value));
}

} // namespace

TEST(LayoutReader, ReadsEveryTypeThatTheConverterWrites)
{
    const Converted layout(WHOLE);
    EXPECT_EQ(layout.errors, "");
    EXPECT_EQ(layout.bytes.size() % 4, 0U);
    EXPECT_EQ(layout.Text(), R"(2:  a
  3 = 1 -2
  4 = 3 4
  5 = @ 300
  6 = 1
  8 = 1
  9 = -5
  10 = 6
  11 = 2000
  12 = -1.5
  13 = 10203
  14 = 1 2 3 -4
  15 = 0.5 1
  16 = @ 20
  17 = @ 7
  18 = 7 0 103000 0
  7 {
    1 = 9
  2:  c
    5 = plain
  0: Other b
    0 = what ever
    0 = size x
    2:  )"
                             "\n      17 = @ 0\n2:  \n  13 = 80ff8040\n");
    EXPECT_THAT(Converted(WHOLE, "").Text(), StartsWith("0: Label a\n  0 = pos (1, -2)\n")) << "nothing has a type";
}

TEST(LayoutReader, ConverterRefusesValuesThatADeviceWouldMisread)
{
    for (const auto &[xml, error] : std::initializer_list<std::pair<const char *, const char *>>{
             {"<Label order='1.5'/>", "\"1.5\" is not a valid value for \"order\", which has the type ZulS32"},
             {"<Label align='Left'/>", "\"Left\" is not a valid value for \"align\", which has the type Align"},
             {"<Label color='RGB(300,0,-5)'/>", "\"RGB(300,0,-5)\" is not a valid value for \"color\""},
             {"<Label wait='soon'/>", "\"soon\" is not a valid value for \"wait\", which has the type ZulMsec"},
             {"<Label images='(@ID_IMAGE_A,0,0,0) '/>", "is not a valid value for \"images\""},
             {"<Label color='red'/>", "\"red\" is not a valid value for \"color\", which has the type ZulColor"},
             {"<Label text='@ID_NONE'/>", "\"ID_NONE\" has no number in the header"},
             {"<Label icon='@ID_IMAGE_B'/>", "\"ID_IMAGE_B\" has no number in the header"},
             {"<Label icon='logo.png'/>", "\"logo.png\" is not a reference to a resource"},
             {"<Label images='(0,0,0)'/>", "\"(0,0,0)\" is not a valid value for \"images\""},
             {"<Label images='(0,0,x,0)'/>", "\"x\" is not a reference to a resource"},
             {"<Label padding='1'/>", "\"padding\" must be an element, not text"},
             {"<Label><Label prop='padding'/></Label>", "\"Label\" can't be the value of \"padding\""},
             {"<Label><Insets prop='order'/></Label>", "\"Insets\" can't be the value of \"order\""},
             {"<Label><Insets prop='padding'/><Insets prop='padding'/></Label>", "can't be the value of \"padding\""},
             {"<Label><Insets prop='padding'><Label/></Insets></Label>", "a structure can't contain components"},
             {"<Label><Align/></Label>", "\"Align\" is not allowed here: it is not a component class"},
             {"<Insets/>", "\"Insets\" is not a component class"},
             {"<Other><ZulBool/></Other>", "\"ZulBool\" is not a component class"}})
        EXPECT_THAT(Converted(xml).errors, HasSubstr(error)) << xml;
}

TEST(LayoutReader, KeepsTheBytesOfLongAndDeeplyNestedParts)
{
    const QByteArray text(2000, 'x');
    EXPECT_THAT(Converted("<Label text='" + text + "'/>").Text(), HasSubstr("5 = " + text.toStdString() + '\n'));
    for (const int length : {1011, 1012, 1015, 1016, 1019, 1020, 1021}) {
        const QByteArray around(length, 'y'); // the lengths around the limit of a short part
        EXPECT_THAT(Converted("<Label text='" + around + "' order='3'/>").Text(),
                    HasSubstr(around.toStdString() + "\n  9 = 3\n"));
    }
    constexpr int DEEPEST = 254; // an XML file may have 256 levels
    const Converted deep(QByteArray("<Label>").repeated(DEEPEST) + QByteArray("</Label>").repeated(DEEPEST));
    EXPECT_EQ(deep.bytes.substr(6, 2), "\xFE\0"s) << "levels";
    EXPECT_THAT(deep.Text(), Not(HasSubstr("damaged")));
    std::string deeper = deep.bytes.substr(0, 8) + "\0\x10\0\0"s + deep.bytes.substr(12, 8);
    for (std::uint32_t size = 4096 - 20 - 8; size >= 8; size -= 8)
        deeper += "\2\0\1\xFF"s + PayloadBuilder::U32({size});
    EXPECT_THAT(ReadLayout(deeper + std::string(64, '\0'), 20), HasSubstr("damaged")) << "and ends";
}

TEST(LayoutReader, DetectsOrSurvivesEveryTruncationAndDamagedByte)
{
    const std::string whole = Converted(WHOLE).bytes;
    const std::string text = ReadLayout(whole, 20);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_THAT(ReadLayout(whole.substr(0, size), 20), testing::AnyOf("no layout", "damaged")) << size;
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (int value = 0; value < 256; ++value)
            ASSERT_NO_THROW(ReadLayout(WithByte(whole, at, value), 20)) << at;
    EXPECT_EQ(ReadLayout(whole + std::string(3, '\0'), 20), text) << "the fill of a payload";
    EXPECT_EQ(ReadLayout(whole, 21), "damaged") << "of another ResID.h";
    EXPECT_EQ(ReadLayout(WithByte(whole, 4, 2), 20), "no layout") << "of a later version";
}

TEST(LayoutReader, SkipsUnknownAdditionsAndReportsShortValues)
{
    const std::string whole = Converted("<Label order='7'/><Label/>").bytes;
    std::string later = whole.substr(0, 20) + "MORE"s + whole.substr(20);
    later[5] = 24;
    later[8] = static_cast<char>(later[8] + 4);
    EXPECT_EQ(ReadLayout(later, 20), ReadLayout(whole, 20)) << "a longer head";
    // An unknown type of part, a value with one word more, one with a word less, and half of a pair of
    // texts.
    const std::string parts = "\2\0\1\x08\x63\0\x63\1zzzz\x09\0\x11\2\7\0\0\0more\x0A\0\x11\0\0\0\5\1abc\0\1\0\1\0"s;
    const std::string made = "MLAY\1\x14\1\0"s + PayloadBuilder::U32({20 + parts.size(), 20, 0}) + parts;
    EXPECT_EQ(ReadLayout(made, 20), "2:  \n  99 = is unknown\n  9 = 7\n  10 = damaged\n  0 = damaged\n1:  \n");
}

TEST(LayoutReader, ReportsMissingPropertiesAndOtherTypes)
{
    const Converted layout("<Label order='7' text='plain'/>");
    const ExactBytes memory(layout.bytes);
    const morvanite_item item{20, memory.Data(), memory.Size()};
    morvanite_layout open;
    ASSERT_EQ(morvanite_open_layout(&item, &open), MORVANITE_OK);
    EXPECT_EQ(open.table, LayoutTables(layout.types).Stamp());
    EXPECT_EQ(open.levels, 1U);
    std::uint32_t cursor = 0;
    morvanite_part label;
    ASSERT_EQ(morvanite_next_component(&open.top, &cursor, &label), MORVANITE_OK);
    morvanite_part none;
    EXPECT_EQ(morvanite_next_component(&open.top, &cursor, &none), MORVANITE_NOT_FOUND);
    cursor = 1U << 31;
    EXPECT_EQ(morvanite_next_part(&open.top, &cursor, &none), MORVANITE_DAMAGED) << "not a cursor of the reader";
    std::uint32_t u32 = 77;
    EXPECT_EQ(morvanite_get_u32(&label, 9, &u32), MORVANITE_OTHER_TYPE);
    EXPECT_EQ(morvanite_get_reference(&label, 5, &u32), MORVANITE_OTHER_TYPE);
    EXPECT_EQ(morvanite_get_u32(&label, 10, &u32), MORVANITE_NOT_FOUND);
    EXPECT_EQ(morvanite_find_property(&label, 0, &none), MORVANITE_NOT_FOUND) << "not a number";
    EXPECT_EQ(u32, 77U);
}

TEST(LayoutReader, NumbersFollowTheCatalogueAndAStampIdentifiesIt)
{
    const Converted layout("");
    const LayoutTables tables(layout.types);
    EXPECT_EQ(std::vector<int>({tables.Class("Component"), tables.Class("Label"), tables.Class("Insets")}),
              std::vector<int>({1, 2, 0}));
    EXPECT_EQ(std::vector<int>({tables.Property("left"), tables.Property("pos"), tables.Property("text")}),
              std::vector<int>({1, 3, 5}));
    EXPECT_EQ(LayoutTables::StampOf(tables.TableFile()), tables.Stamp());
    EXPECT_EQ(LayoutTables::StampOf("\nZUL_TABLE(0x12"), 0U);
    const Converted other("", QByteArray(CATALOGUE).replace("\"right\"", "\"end\""));
    EXPECT_NE(LayoutTables(other.types).Stamp(), tables.Stamp());
    EXPECT_EQ(LayoutTables(Converted("", "").types).Stamp(), 0U);
}

/// The example of a page of the manual: the bytes of its dump, whose lines are an offset, a colon and pairs of hex
/// digits, and the blocks of XML that have these words as their mark.
struct Example
{
    explicit Example(const std::string &page)
    {
        std::ifstream document(MORVANITE_DOCS "/" + page);
        QByteArray *block = nullptr;
        for (std::string line; std::getline(document, line);) {
            if (line.starts_with("```")) {
                block = line == "```xml catalogue" ? &catalogue : line == "```xml layout" ? &layout : nullptr;
            } else if (block) {
                *block += line + '\n';
            } else if (line.size() > 6 && line[0] == '0' && line[4] == ':') {
                EXPECT_EQ(std::stoul(line, nullptr, 16), bytes.size()) << line;
                std::istringstream words(line.substr(5));
                for (std::string word; words >> word && word.size() == 2;)
                    bytes += static_cast<char>(std::stoul(word, nullptr, 16));
            }
        }
    }

    std::string bytes;
    QByteArray catalogue, layout;
};

TEST(FormatDocs, ExamplesMatchTheBytesThatTheyDescribe)
{
    const Example example("layout-format.md");
    const Converted converted(example.layout, example.catalogue);
    EXPECT_EQ(converted.errors, "");
    EXPECT_EQ(example.bytes, converted.bytes);
    EXPECT_EQ(converted.Text(), "2:  a\n  2 = @ 300\n  1 = 10 -5\n  3 {\n    4 = 8\n  2:  \n    0 = hint top\n");
    const std::string sound("\0\0\0\0\0\0\0\0SOUND", 13);
    EXPECT_EQ(Example("payload-format.md").bytes,
              PayloadBuilder().Entry("AppLogo.img", "0123456789").Language(0, {{2, u"Hi"}}).Item(1, sound).Build());
}
