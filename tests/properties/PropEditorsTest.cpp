// SPDX-License-Identifier: MIT
#include "EditedLayout.h"

#include "SelectString.h"

#include <rapidcheck.h>

namespace
{

struct ValueCase
{
    const char *property;
    const char *stored; // the initial value; null for no value
    const char *shown;
    const char *typed; // null types nothing
    Applied applied;
    const char *storedThen;
    const char *printed;
};

using enum Applied;

const ValueCase VALUES[] = {
    // A value that the user doesn't change keeps its digits and its spelling.
    {"float", "0.1234567", "0.123457", nullptr, Nothing, "0.1234567", "0.123457"},
    {"float", nullptr, "", "2.50", Changed, "2.50", "2.5"},
    {"s32", "7", "7", "", Nothing, "7", "7"},
    {"s32", "7", "7", "12x", Refused, "7", "7"},
    {"u32", "-1", "4294967295", nullptr, Nothing, "-1", "4294967295"},
    {"u32", nullptr, "", "2147483648", Refused, nullptr, ""},
    {"id", nullptr, "", "2147483647", Changed, "2147483647", "2147483647"},
    {"time", "2500", "2500ms", "2000ms", Changed, "2000ms", "2s"},
    {"color", nullptr, "0|0|0", nullptr, Nothing, nullptr, ""},
    {"color", "#80FF8040", "255|128|64", "255|128|65", Changed, "#FF8041", "RGB(255, 128, 65)"},
    {"color", "#010203", "1|2|3", "256|0|0", Refused, "#010203", "RGB(1, 2, 3)"},
    {"point", "(-1,2)", "-1|2", "3|-4", Changed, "(3,-4)", "(3, -4)"},
    {"size", nullptr, "0|0", "10|20", Changed, "(10,20)", "(10, 20)"},
    {"area", "(1,2,3,4)", "1|2|3|4", "1|2||4", Refused, "(1,2,3,4)", "(1, 2, 3, 4)"},
    {"fpoint", "(0.5, 1)", "0.5|1", "0.25|1", Changed, "(0.25,1)", "0.25,1"},
    {"fpoint", "(0.5, 1)", "0.5|1", "0,5|1", Refused, "(0.5, 1)", "0.5,1"},
    // A number that is longer than the limit for typed text isn't truncated.
    {"fpoint", "(1e30, 0)", "1000000015047466219876688855040|0", nullptr, Nothing, "(1e30, 0)",
     "1000000015047466219876688855040,0"},
    {"bool", nullptr, "nothing", nullptr, Nothing, nullptr, ""},
    {"bool", "ZUL_TRUE", "true", nullptr, Nothing, "ZUL_TRUE", "true"},
    {"bool", "ZUL_TRUE", "true", "true", Changed, "true", "true"},
    // The search for the value finds the second choice first, although that only begins with it.
    {"align", "Left", "LeftTop", nullptr, Nothing, "Left", "Left"},
    {"align", "Left", "LeftTop", "LeftTop", Changed, "LeftTop", "LeftTop"},
    {"image", "@ID_IMAGE_0", "@ID_IMAGE_0", "@ID_IMAGE_2", Changed, "@ID_IMAGE_2", "@ID_IMAGE_2"},
    {"any", "@ID_GONE", "nothing", nullptr, Nothing, "@ID_GONE", "@ID_GONE"},
    {"any", nullptr, "nothing", "@ID_LAYOUT", Changed, "@ID_LAYOUT", "@ID_LAYOUT"},
    {"text", nullptr, "nothing", "@ID_STR", Changed, "@ID_STR", "@ID_STR"},
    {"baseText", nullptr, "nothing", "@ID_STR", Changed, "@ID_STR", "@ID_STR"},
};

} // namespace

TEST(PropEditors, ShowAndStoreAValueOfEachType)
{
    for (const ValueCase &value : VALUES) {
        SCOPED_TRACE(std::string(value.property) + ' ' + (value.typed ? value.typed : "untouched"));
        EditedLayout layout;
        const QString name = QString::fromUtf8(value.property);
        if (value.stored)
            Set(*layout.panel, value.property, value.stored);
        const auto editor = layout.Open(name);
        ASSERT_TRUE(editor);
        EXPECT_EQ(layout.Shown().toStdString(), value.shown);
        if (value.typed)
            layout.Type(*editor, QString::fromUtf8(value.typed));
        EXPECT_EQ(editor->Apply(), value.applied);
        editor->Close();
        EXPECT_TRUE(layout.controls.shown.empty());
        EXPECT_EQ(editor->Apply(), Nothing);
        const PropertyRow row = layout.Row(name);
        EXPECT_EQ(row.value.toStdString(), value.printed);
        EXPECT_EQ(row.isSet, value.storedThen != nullptr);
        EXPECT_EQ(layout.panel->component->GetAttribute(value.property).toStdString(),
                  value.storedThen ? value.storedThen : "");
    }
}

TEST(PropEditors, RefuseATextThatTheCodePageLacks)
{
    EditedLayout layout("[Text]\ncode_page=1252\n");
    const auto editor = layout.Open(u"time"_s); // accepts any text without a number
    for (const auto &[text, applied] : {std::pair(u"ж"_s, Refused), {u"é"_s, Changed}}) {
        layout.Type(*editor, text);
        EXPECT_EQ(editor->Apply(), applied);
    }
    EXPECT_EQ(layout.panel->component->GetAttribute("time"), "\xE9");
}

TEST(PropEditors, RequireUniqueComponentNames)
{
    EditedLayout layout;
    layout.Add("cp02");
    const std::pair<QString, Applied> cases[] = {{u""_s, Nothing},        {u"cp01"_s, Nothing}, {u"cp02"_s, Refused},
                                                 {u"9a"_s, Refused},      {u"é"_s, Refused},    {u"_a"_s, TreeChanged},
                                                 {u"cp01"_s, TreeChanged}};
    for (const auto &[typed, applied] : cases) {
        const QString before = layout.Row(u"Class"_s).value;
        const auto editor = layout.Open(u"Class"_s);
        layout.Type(*editor, typed);
        EXPECT_EQ(editor->Apply(), applied) << typed.toStdString();
        const QString name = applied == TreeChanged ? typed : before;
        EXPECT_EQ(layout.Row(u"Class"_s).value, name);
        EXPECT_EQ(layout.panel->component->name, name.toUtf8());
        EXPECT_EQ(layout.res->FindComponent(name.toUtf8()), layout.panel);
    }
}

TEST(PropEditors, OfferTheImagesOfTheResolutionAndOfDefault)
{
    const std::pair<qint16, const char *> cases[] = {
        {-1, "@ID_IMAGE_0"}, {0, "@ID_IMAGE_1 @ID_IMAGE_0"}, {1, "@ID_IMAGE_2 @ID_IMAGE_0"}, {7, "@ID_IMAGE_0"}};
    for (const auto &[resolution, images] : cases) {
        EditedLayout layout({}, resolution);
        ASSERT_TRUE(layout.Open(u"image"_s));
        EXPECT_EQ(layout.controls.choices.join(u' ').toStdString(), images);
        const auto any = layout.Open(u"any"_s);
        EXPECT_EQ(layout.controls.choices.contains(u"@ID_IMAGE_1"_s), resolution == 0);
        EXPECT_EQ(layout.controls.choices.first(), u"@ID_IMAGE_0");
        EXPECT_EQ(layout.controls.choices.last(), u"@ID_LAYOUT");
        layout.Type(*any, u"@ID_STR"_s);
        layout.model.ClearFolder(layout.model.root);
        EXPECT_EQ(any->Apply(), Refused); // the component no longer exists
    }
}

TEST(PropEditors, OfferEveryParentExceptDescendants)
{
    EditedLayout alone;
    EXPECT_FALSE(alone.Open(u"Parent Component"_s));
    EXPECT_TRUE(rc::check([] {
        EditedLayout layout;
        std::vector<CZulClass *> all{layout.panel};
        for (int i = *rc::gen::inRange(1, 20); i > 0; --i)
            all.push_back(&layout.Add("n" + QByteArray::number(i)));
        const auto shown = [](const CZulClass *object) {
            return object ? u"Panel: "_s + QString::fromUtf8(object->propName) : u"None"_s;
        };
        for (int step = 0; step < 30; ++step) {
            layout.panel = *rc::gen::elementOf(all);
            const CZulClass *const before = layout.panel->parent;
            const auto editor = layout.Open(u"Parent Component"_s);
            const QStringList choices = editor ? layout.controls.choices : QStringList();
            for (const CZulClass *other : all) {
                const CZulClass *above = other;
                while (above && above != layout.panel)
                    above = above->parent;
                RC_ASSERT(choices.contains(shown(other)) == !above);
            }
            if (!editor)
                continue;
            RC_ASSERT(layout.Shown() == shown(before));
            const QString chosen = choices[*rc::gen::inRange<qsizetype>(0, choices.size())];
            layout.Type(*editor, chosen);
            RC_ASSERT(editor->Apply() == (chosen == shown(before) ? Nothing : TreeChanged));
            RC_ASSERT(shown(layout.panel->parent) == chosen);
        }
    }));
}

TEST(PropEditors, MayBeDestroyedWhileTheDialogOfColorsIsOpen)
{
    EditedLayout layout;
    auto editor = layout.Open(u"color"_s);
    layout.controls.answer = [&](const EditColor &) {
        editor->Close();
        editor.reset();
        return EditColor{9, 9, 9};
    };
    EXPECT_FALSE(editor->WantsApply(EditControl::Swatch, EditEvent::Clicked));
    EXPECT_EQ(layout.Row(u"color"_s).value, QString());
}

TEST(SelectString, StartsAtTheSecondChoice)
{
    const QStringList choices = {u"ab"_s, u"Abc"_s, u"ac"_s};
    const std::pair<QString, int> cases[] = {{u"AB"_s, 1}, {u"ac"_s, 2}, {u"abcd"_s, -1}, {QString(), -1}};
    for (const auto &[text, choice] : cases)
        EXPECT_EQ(SelectString(choices, text), choice) << text.toStdString();
    EXPECT_EQ(SelectString({u"ab"_s}, u"a") + SelectString({}, u"a"), 0 - 1);
}
