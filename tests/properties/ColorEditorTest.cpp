#include "EditedLayout.h"

TEST(ColorEditor, TakesAColorFromTheDialogAndWritesItWhenItCloses)
{
    EditedLayout layout;
    Set(*layout.panel, "color", "#80FF8040");
    const auto editor = layout.Open(u"color"_s);
    FakeControls &controls = layout.controls;
    EXPECT_EQ(controls.swatch, (EditColor{255, 128, 64}));
    EXPECT_EQ(controls.Text(EditControl::Label2), u"Blue:");
    EditColor started;
    std::optional<EditColor> chosen;
    controls.answer = [&](const EditColor &start) {
        started = start;
        controls.focus = EditControl::Grid;
        EXPECT_FALSE(editor->WantsApply(EditControl::Text0, EditEvent::FocusLost)); // the dialog has the focus
        return chosen;
    };
    EXPECT_FALSE(editor->WantsApply(EditControl::Swatch, EditEvent::Clicked)); // and cancelled
    EXPECT_EQ(editor->Apply(), Applied::Nothing);
    layout.Type(*editor, u"300|x|7"_s);
    chosen = EditColor{1, 2, 3};
    EXPECT_FALSE(editor->WantsApply(EditControl::Swatch, EditEvent::Clicked));
    EXPECT_EQ(started, (EditColor{255, 0, 7}));
    EXPECT_EQ(controls.swatch, *chosen);
    EXPECT_EQ(layout.Shown(), u"1|2|3");
    EXPECT_EQ(layout.panel->component->GetAttribute("color"), "#80FF8040");
    EXPECT_TRUE(editor->WantsApply(EditControl::Text0, EditEvent::FocusLost));
    EXPECT_EQ(editor->Apply(), Applied::Changed);
    EXPECT_EQ(layout.panel->component->GetAttribute("color"), "#010203");
}

TEST(ColorEditor, MayBeDestroyedWhileTheDialogIsOpen)
{
    EditedLayout layout;
    auto editor = layout.Open(u"color"_s);
    layout.controls.answer = [&](const EditColor &) {
        editor->Close();
        editor.reset();
        return EditColor{9, 9, 9};
    };
    EXPECT_FALSE(editor->WantsApply(EditControl::Swatch, EditEvent::Clicked));
    EXPECT_EQ(layout.controls.swatch, EditColor{});
}
