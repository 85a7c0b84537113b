// SPDX-License-Identifier: MIT
#include "TestCatalogue.h"

#include "IDPool.h"

namespace
{

constexpr char WIDGETS[] = R"(
    <enumeration name="Align"><item name="left"/><item name="right"/></enumeration>
    <structure name="Insets"><member name="left" type="ZulS32"/><member name="top" type="ZulS32"/></structure>
    <structure name="Frame"><member name="insets" type="Insets"/><member name="color" type="ZulColor"/></structure>
    <class name="Component" excluded="true">
        <member name="pos" type="ZulPoint"/><member name="frame" type="Frame"/><member name="text" type="ZulS32"/>
    </class>
    <class name="Label" base="Component">
        <member name="text" type="ZulWString"/><member name="align" type="Align"/>
    </class>
    <class name="Button" base="Label"><member name="images" type="ZrpStateImage"/></class>)";

struct ZulType : testing::Test
{
    TestCatalogue catalogue{WIDGETS};
};

qint32 IdOf(const CZulType *object)
{
    return object ? object->GetTypeId() : -1;
}

} // namespace

TEST_F(ZulType, CreatesObjectsByTypeName)
{
    const std::pair<const char *, qint32> types[] = {
        {"ZulBool", 257},   {"ZulFloat", 258}, {"ZulS32", 259},     {"ZulU32", 260},      {"ZulId", 260},
        {"ZulMsec", 261},   {"ZulColor", 262}, {"ZulPoint", 263},   {"ZulSize", 264},     {"ZulRect", 265},
        {"ZulFPoint", 266}, {"ZulResId", 267}, {"ZulWString", 270}, {"ZulImageSrc", 268}, {"ZrpStateImage", 2},
        {"Label", 1},       {"Insets", 2},     {"Align", 3},        {"Nobody", 1},        {"", 1}};
    for (const auto &[name, id] : types) {
        const auto object = CreateType(catalogue, "here", name);
        ASSERT_EQ(IdOf(object.get()), id) << name;
        EXPECT_EQ(object->typeName, name);
        EXPECT_EQ(object->propName, "here");
    }
    const auto renamed = CreateType(catalogue, {}, "ZulS32");
    renamed->typeName = "ZulS32 ";
    EXPECT_EQ(renamed->GetTypeId(), 256);
    catalogue.Add("Odd", {}, {}, 4);
    EXPECT_EQ(CreateType(catalogue, {}, "Odd"), nullptr);
}

TEST_F(ZulType, ADerivedMemberHidesTheBaseMemberAndAllUseOneComponent)
{
    const auto component =
        Component("Button", {{"align", "right"}, {"unknown", "x"}, {"text", "@ID_A"}, {"pos", "(1,2"}});
    const auto button = catalogue.Bound(*component);
    EXPECT_EQ(button->Members().size(), 1U);
    ASSERT_TRUE(button->super && button->super->super);
    EXPECT_EQ(button->super->typeName, "Label");
    EXPECT_EQ(button->super->parent, nullptr);
    EXPECT_EQ(IdOf(button->FindMember("text")), TYPE_WSTRING);
    EXPECT_EQ(Shown(*button, "text"), "@ID_A");
    EXPECT_EQ(Shown(*button, "pos"), "(1, 2)");
    EXPECT_EQ(Shown(*button, "align"), "right");
    EXPECT_EQ(button->FindMember("unknown"), nullptr);
    const QByteArray before = Dump(*component);
    EXPECT_EQ(before, "Button align=right unknown=x text=@ID_A pos=(1,2");
    Set(*button->super->super, "text", "5"); // the hidden member
    EXPECT_EQ(Dump(*component), before + " text=5");
}

TEST_F(ZulType, CreatesAStructureWhenAMemberIsSet)
{
    const auto component = Component("Label");
    const auto label = catalogue.Bound(*component);
    auto &frame = static_cast<CZulCustom &>(*label->FindMember("frame"));
    auto &insets = static_cast<CZulCustom &>(*frame.FindMember("insets"));
    EXPECT_EQ(frame.GetText(), "");
    Set(insets, "top", "7");
    EXPECT_EQ(Dump(*component), "Label {Frame prop=frame {Insets prop=insets top=7}}");
    EXPECT_EQ(frame.GetText(), "{...}");
    Set(frame, "color", "RGB(1,2,3)");
    Set(insets, "top", "8");
    Set(*label, "text", "@ID_B");
    EXPECT_EQ(Dump(*component), "Label text=@ID_B {Frame prop=frame color=#010203 {Insets prop=insets top=8}}");

    const auto again = catalogue.Bound(*component);
    auto &read = static_cast<CZulCustom &>(*again->FindMember("frame"));
    EXPECT_EQ(read.propName, "frame");
    EXPECT_EQ(Shown(static_cast<CZulCustom &>(*read.FindMember("insets")), "top"), "8");
    EXPECT_TRUE(again->subComponents.empty());
}

TEST_F(ZulType, ChildrenAreMembersOrSubComponents)
{
    const auto component =
        Component("Label", {{"prop", "given"}},                                 //
                  Component("Insets", {{"prop", "text"}}),                      // not a composite type
                  Component("Label", {{"prop", "nothing"}, {"align", "left"}}), // no member has this name
                  Component("ZulBool"),                                         // not a class
                  Component("Frame", {{"prop", "frame"}}), Component("Frame", {{"prop", "frame"}}), // appears twice
                  Component("Stranger", {{"align", "left"}}, Component("Label")), Component(""));
    const auto label = catalogue.Bound(*component);
    EXPECT_EQ(label->propName, "given");
    ASSERT_EQ(label->subComponents.size(), 2U);
    const CZulClass &first = *label->subComponents[0];
    EXPECT_EQ(first.component, component->children[1].get());
    EXPECT_EQ(first.parent, label.get());
    EXPECT_EQ(first.propName, "nothing");
    EXPECT_EQ(Shown(first, "align"), "left");
    EXPECT_EQ(label->subComponents[1]->typeName, "Stranger");
    EXPECT_TRUE(label->subComponents[1]->subComponents.empty()) << "it is unknown";
    EXPECT_EQ(static_cast<CZulCustom &>(*label->FindMember("frame")).component, component->children[3].get());

    EXPECT_FALSE(BindComponent(*label, component.get())) << "it is bound";
    const auto other = CreateType(catalogue, {}, "Button");
    EXPECT_FALSE(BindComponent(static_cast<CZulCustom &>(*other), component.get())) << "it is a Label";
}

TEST_F(ZulType, StoresAStateImageAsOneText)
{
    const auto shown = [](const CZulCustom &images) {
        return Shown(images, "normalId") + '|' + Shown(images, "pressedId") + '|' + Shown(images, "disabledId") + '|' +
               Shown(images, "highlightId");
    };
    const std::pair<const char *, const char *> texts[] = {{"(a, b , c,d)", "a|b|c|d"},
                                                           {"(a,b)", "a|||"},
                                                           {"a,b,c,d", "|||"},
                                                           {"(a,b,c,d) ", "|||"},
                                                           {"  (a,,c,d)", "a||c|d"},
                                                           {"(,,,)", "|||"},
                                                           {"()", "|||"},
                                                           {"", "|||"},
                                                           {"(a b,c,d,e,f)", "a|c|d|e,f"},
                                                           {"(0,0,0,@ID)", "0|0|0|@ID"}};
    for (const auto &[text, parts] : texts) {
        const auto component = Component("Button", {{"images", text}});
        const auto button = catalogue.Bound(*component);
        auto &images = static_cast<CZulStateImg &>(*button->FindMember("images"));
        EXPECT_EQ(shown(images), parts) << text;
        EXPECT_EQ(component->GetAttribute("images"), text);
        EXPECT_EQ(images.GetText(), "");
        Set(images, "pressedId", "@ID_P");
        const QByteArrayList four = QByteArray(parts).split('|');
        const auto set = [&four](qsizetype i) { return four[i].isEmpty() ? QByteArray("0") : four[i]; };
        EXPECT_EQ(component->GetAttribute("images"), '(' + set(0) + ",@ID_P," + set(2) + ',' + set(3) + ')');
    }
    const auto component = Component("Button");
    const auto button = catalogue.Bound(*component);
    auto &images = static_cast<CZulStateImg &>(*button->FindMember("images"));
    Set(images, "highlightId", "0"); // the current value
    EXPECT_EQ(Dump(*component), "Button");
    IDPool pool;
    IDRecord *const id = pool.Allocate("ID_X", ANY_RESOLUTION);
    static_cast<CZulResId *>(images.FindMember("normalId"))->SetReference(*id);
    id->Release();
    EXPECT_EQ(Dump(*component), "Button images=(@ID_X,0,0,0)");
    EXPECT_EQ(images.AttributeForMember(button.get()), nullptr);
}

TEST_F(ZulType, AStateImageReadAsAComponentWritesNoUnnamedAttribute)
{
    const auto component = Component("Button", {}, Component("ZrpStateImage", {{"prop", "images"}}));
    const auto button = catalogue.Bound(*component);
    auto *const images = static_cast<CZulStateImg *>(button->Members()[0].get());
    Set(*images, "normalId", "@ID_P");
    EXPECT_EQ(Dump(*component), "Button {ZrpStateImage prop=images}");
    EXPECT_EQ(Shown(*images, "normalId"), "@ID_P");
}

TEST_F(ZulType, WithoutACatalogueAnyNameIsAnEmptyClass)
{
    const auto component = Component("AnyName", {{"color", "RGB(1,2,3)"}}, Component("Other"));
    const auto object = TestCatalogue().Bound(*component);
    EXPECT_TRUE(object->Members().empty() && object->subComponents.empty());
    EXPECT_EQ(Dump(*component), "AnyName color=RGB(1,2,3) {Other}");
    EXPECT_FALSE(CZulEnum(nullptr).IsValid(""));
}

TEST(HandMadeCatalogue, StopsAtATypeThatContainsItself)
{
    TestCatalogue catalogue;
    catalogue.Add("Self", {{"a", "ZulBool"}, {"self", "Self"}, {"a", "ZulS32"}});
    const auto self = CreateType(catalogue, {}, "Self");
    ASSERT_EQ(static_cast<CZulClass &>(*self).Members().size(), 1U);
    EXPECT_EQ(static_cast<CZulClass &>(*self).Members()[0]->GetTypeId(), TYPE_BOOL);

    // Each has two members of the other type, and is derived from it.
    catalogue.Add("Egg", {{"x", "Hen"}, {"y", "Hen"}, {"z", "ZulBool"}}, "Hen");
    catalogue.Add("Hen", {{"x", "Egg"}, {"y", "Egg"}}, "Egg");
    const auto egg = CreateType(catalogue, {}, "Egg");
    EXPECT_FALSE(static_cast<CZulClass &>(*egg).Members().empty());

    for (int i = 0; i < 100; ++i)
        catalogue.Add("D" + QByteArray::number(i), {{"v" + QByteArray::number(i), "ZulBool"}},
                      "D" + QByteArray::number(i + 1));
    const auto derived = CreateType(catalogue, {}, "D0");
    EXPECT_TRUE(static_cast<CZulClass &>(*derived).FindMember("v31"));
    EXPECT_FALSE(static_cast<CZulClass &>(*derived).FindMember("v33"));
}

TEST(HandMadeCatalogue, UsesTheFirstEntryOfANameInSmallAndLargeCatalogues)
{
    TestCatalogue catalogue;
    catalogue.Add("E", {}, {}, CLASS_ENUMERATION);
    for (const int count : {3, 300}) {
        for (int i = 0; i < count; ++i)
            catalogue.Add("C" + QByteArray::number(i % (count - 1)), {}, i == count - 1 ? "second" : "");
        ASSERT_TRUE(catalogue.Find("C0") && catalogue.Find("E"));
        EXPECT_EQ(catalogue.Find("C0")->baseName, "");
        EXPECT_EQ(catalogue.Find("c0"), nullptr);
    }
    std::vector<NarrowText> names{"before"};
    EXPECT_EQ(catalogue.CollectClassNames(names), 303);
    EXPECT_EQ(names.size(), 304U);
}
