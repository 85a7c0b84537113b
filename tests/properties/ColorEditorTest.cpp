// SPDX-License-Identifier: MIT
#include "EditedLayout.h"

TEST(ColorEditor, TakesAColorFromTheDialogAndWritesItWhenItCloses)
{
    EditedLayout layout;
    Set(*layout.panel, "color", "#80FF8040");
    auto editor = layout.Open(u"color"_s);
    FakeControls &controls = layout.controls;
    EXPECT_EQ(controls.swatch, (EditColor{255, 128, 64}));
    std::optional<EditColor> chosen;
    controls.answer = [&](const EditColor &start) {
        EXPECT_EQ(start, chosen ? (EditColor{255, 0, 7}) : (EditColor{255, 128, 64}));
        controls.focus = EditControl::Grid;
        EXPECT_FALSE(editor->WantsApply(EditControl::Text0, EditEvent::FocusLost)); // the focus is in the dialog
        return chosen;
    };
    EXPECT_FALSE(editor->WantsApply(EditControl::Swatch, EditEvent::Clicked)); // cancels the dialog
    EXPECT_EQ(editor->Apply(), Applied::Nothing);
    layout.Type(*editor, u"300|x|7"_s);
    chosen = EditColor{1, 2, 3};
    EXPECT_FALSE(editor->WantsApply(EditControl::Swatch, EditEvent::Clicked));
    EXPECT_EQ(controls.swatch, *chosen);
    EXPECT_EQ(layout.Shown(), u"1|2|3");
    EXPECT_EQ(layout.panel->component->GetAttribute("color"), "#80FF8040");
    EXPECT_TRUE(editor->WantsApply(EditControl::Text0, EditEvent::FocusLost));
    EXPECT_EQ(editor->Apply(), Applied::Changed);
    EXPECT_EQ(layout.panel->component->GetAttribute("color"), "#010203");

    controls.answer = [&](const EditColor &) {
        editor->Close();
        editor.reset(); // while the dialog is open
        return EditColor{9, 9, 9};
    };
    EXPECT_FALSE(editor->WantsApply(EditControl::Swatch, EditEvent::Clicked));
    EXPECT_EQ(controls.swatch, *chosen);
}
