// SPDX-License-Identifier: MIT
#include "EditedLayout.h"

namespace
{

QByteArray Dump(const std::vector<PropertyRow> &rows)
{
    QByteArray text;
    for (const PropertyRow &row : rows)
        text += (ShownName(row) + u'|' + row.value + u'|' + row.type + (row.isSet ? u"*\n"_s : u"\n"_s)).toUtf8();
    return text;
}

} // namespace

TEST(PropertyRows, AreNameParentPropertiesAndInheritedProperties)
{
    EditedLayout layout;
    CZulClass &inner = layout.Add({}, layout.panel);
    const auto composite = [&inner](const char *name) { return static_cast<CZulCustom *>(inner.FindMember(name)); };
    Set(inner, "s32", "7");
    Set(*composite("insets"), "top", "2");
    Set(*composite("states"), "pressedId", "@ID_IMAGE_0");
    Set(inner, "baseText", "@ID_STR");
    layout.panel = &inner;
    QByteArray rows = Dump(RowsOf(layout.model.env, inner));
    EXPECT_TRUE(rows.startsWith("Class|this|Panel\nParent Component|cp01|Panel\nfloat||ZulFloat\ns32|7|ZulS32*\n"))
        << rows.toStdString();
    EXPECT_TRUE(rows.endsWith("text||ZulWString\n"
                              "insets|{...}|Insets*\n    left||ZulS32\n    top|2|ZulS32*\n"
                              "states||ZrpStateImage*\n    normalId||ZulImageSrc\n"
                              "    pressedId|@ID_IMAGE_0|ZulImageSrc*\n    disabledId||ZulImageSrc\n"
                              "    highlightId||ZulImageSrc\n"
                              "Base Class||Base\n    baseText|@ID_STR|ZulWString*\n"))
        << rows.toStdString();
    EXPECT_FALSE(layout.Open(u"Base Class"_s) || layout.Open(u"insets"_s));
    EXPECT_TRUE(layout.res->MoveComponent(nullptr, &inner));
    EXPECT_EQ(layout.Row(u"Parent Component"_s).value + layout.Row(u"Parent Component"_s).type, u"None---");

    CZulClass *unknown = layout.res->AddComponent(layout.model.env, Component("Unknown", {{"s32", "1"}}));
    EXPECT_EQ(Dump(RowsOf(layout.model.env, *unknown)), "Class|this|Unknown\nParent Component|None|---\n");
}

TEST(PropertyRows, AreLimitedForATypeThatGrowsWithoutLimit)
{
    TestCatalogue catalogue;
    for (int level = 0; level < 40; ++level) {
        const NarrowText next = "T" + QByteArray::number(level + 1);
        catalogue.Add("T" + QByteArray::number(level), {{"a", next}, {"b", next}, {"c", "ZulS32"}}, next);
    }
    ComponentObject component;
    component.className = "T0";
    const auto object = catalogue.Bound(component);
    std::vector<PropertyRow> rows = RowsOf(catalogue.env, *object);
    EXPECT_EQ(rows.size(), MOST_ROWS + 1);
    EXPECT_EQ(rows.back().name, u"...");
    Refresh(catalogue.env, rows.back());
}

TEST(PropertyRows, AreFoundWithTheirHeadings)
{
    EditedLayout layout;
    Set(*layout.panel, "area", "(1,2,3,4)");
    const std::vector<PropertyRow> rows = RowsOf(layout.model.env, *layout.panel);
    const auto found = [&rows](const QString &text) {
        QStringList names;
        for (const int row : RowsThatHave(rows, text))
            names.append(rows[size_t(row)].name);
        return names.join(u' ').toStdString();
    };
    EXPECT_EQ(found(u"TOP"_s), "insets top");
    EXPECT_EQ(found(u"EdId"_s), "states pressedId disabledId");
    EXPECT_EQ(found(u"text"_s), "text Base Class baseText");
    EXPECT_EQ(found(u"2, 3"_s), "area");
    EXPECT_EQ(found(u"nowhere"_s), "");
    EXPECT_EQ(RowsThatHave(rows, {}).size(), rows.size());
}
