// SPDX-License-Identifier: MIT
#pragma once

#include "CLayoutRes.h"
#include "PropEditors.h"
#include "TestCatalogue.h"
#include "TestModel.h"

#include <algorithm>
#include <functional>
#include <map>

using namespace Qt::StringLiterals;

/// Controls without a window; the test acts as the user.
struct FakeControls : IEditControls
{
    void Show(EditControl control, const QRect &place) override { shown[control] = place; }
    void Hide(EditControl control) override { shown.erase(control); }
    void SetText(EditControl control, const QString &text) override
    {
        texts[control] = limits.contains(control) ? text.left(limits[control]) : text;
    }
    [[nodiscard]] QString Text(EditControl control) const override { return texts.at(control); }
    void SetLimit(EditControl control, int characters) override { limits[control] = characters; }
    void SelectAll(EditControl) override {}
    [[nodiscard]] bool HasFocus(EditControl control) const override { return control == focus; }
    [[nodiscard]] int WidthOf(const QString &text) const override { return 6 * int(text.size()); }
    void SetChoices(const QStringList &list) override { choices = list; }
    [[nodiscard]] int Choice() const override { return choice; }
    void Choose(int chosen) override { choice = chosen; }
    void SetSwatch(const EditColor &) override {}
    [[nodiscard]] std::optional<EditColor> AskColor(const EditColor &start) override { return answer(start); }

    std::map<EditControl, QRect> shown;
    std::map<EditControl, QString> texts;
    std::map<EditControl, int> limits;
    EditControl focus = EditControl::Grid;
    QStringList choices;
    int choice = -1;
    std::function<std::optional<EditColor>(const EditColor &start)> answer; // of the dialog of colours
};

inline const char PROPERTIES[] =
    "<enumeration name='Align'><item name='Left'/><item name='LeftTop'/><item name='Right'/></enumeration>"
    "<structure name='Insets'><member name='left' type='ZulS32'/><member name='top' type='ZulS32'/></structure>"
    "<class name='Base'><member name='baseText' type='ZulWString'/></class>"
    "<class name='Panel' base='Base'><member name='float' type='ZulFloat'/><member name='s32' type='ZulS32'/>"
    "<member name='u32' type='ZulU32'/><member name='id' type='ZulId'/><member name='time' type='ZulMsec'/>"
    "<member name='color' type='ZulColor'/><member name='point' type='ZulPoint'/><member name='size' type='ZulSize'/>"
    "<member name='area' type='ZulRect'/><member name='fpoint' type='ZulFPoint'/><member name='bool' type='ZulBool'/>"
    "<member name='align' type='Align'/><member name='any' type='ZulResId'/><member name='image' type='ZulImageSrc'/>"
    "<member name='text' type='ZulWString'/><member name='insets' type='Insets'/>"
    "<member name='states' type='ZrpStateImage'/></class>";

/// A layout of resolution 1 in a project with some resources.
struct EditedLayout
{
    explicit EditedLayout(const QByteArray &settings = {}, qint16 resolution = 1) : model(settings)
    {
        CResFolder &images = model.AddFolder(model.root, KIND_IMAGES);
        for (const auto index : {qint16(-1), qint16(0), qint16(1)}) {
            CResFolder &folder = model.AddFolder(images, KIND_RESO_IMAGES, index);
            folder.AddResource(model.CreateFileRes("ID_IMAGE_" + QByteArray::number(index + 1), index));
        }
        CResFolder &strings = model.AddFolder(model.root, KIND_STRINGS);
        model.AddFolder(strings, KIND_LANGUAGE).AddResource(model.CreateStringRes("ID_STR"));
        IDRecord *record = model.ids.Allocate("ID_LAYOUT", resolution);
        res = CLayoutRes::CreateEmpty(record, std::make_shared<LayoutFileObject>(model.env, model.ids, resolution),
                                      catalogue);
        record->Release();
        panel = &Add("cp01");
    }

    CZulClass &Add(const NarrowText &name, CZulClass *parent = nullptr)
    {
        auto component = Component("Panel");
        component->name = name;
        CZulClass *added = res->AddComponent(model.env, std::move(component));
        EXPECT_TRUE(res->MoveComponent(parent, added));
        return *added;
    }

    /// Returns the opened editor of the row of that name. Returns null if the row has no editor or it doesn't open.
    [[nodiscard]] std::unique_ptr<CPropEditor> Open(const QString &name)
    {
        controls.shown.clear();
        controls.choice = -1;
        auto editor = MakeEditor(Row(name), controls, model);
        const bool isOpen = editor && editor->Open(*res, *panel, {0, 0, 600, 20});
        EXPECT_EQ(controls.shown.empty(), !isOpen);
        return isOpen ? std::move(editor) : nullptr;
    }

    /// Returns the row of a property, or "Class" or "Parent Component".
    [[nodiscard]] PropertyRow Row(const QString &name) const
    {
        const std::vector<PropertyRow> rows = RowsOf(model.env, *panel);
        return *std::find_if(rows.begin(), rows.end(), [&](const PropertyRow &row) { return row.name == name; });
    }

    /// Returns what the controls show: the texts of the fields with "|" between them, or the choice.
    [[nodiscard]] QString Shown() const
    {
        if (controls.shown.contains(EditControl::Choices))
            return controls.choices.value(controls.choice, u"nothing"_s);
        QStringList texts;
        for (int field = 0; field < IEditControls::FIELDS && controls.shown.contains(TextOf(field)); ++field)
            texts.append(controls.Text(TextOf(field)));
        return texts.join(u'|');
    }

    /// Types texts or makes a choice, in the format of `Shown`.
    void Type(CPropEditor &editor, const QString &typed)
    {
        controls.focus = editor.First();
        if (controls.focus == EditControl::Choices) {
            controls.choice = int(controls.choices.indexOf(typed));
        } else {
            int field = 0;
            for (const QString &text : typed.split(u'|'))
                controls.SetText(TextOf(field++), text);
        }
        EXPECT_FALSE(editor.WantsApply(editor.First(), EditEvent::TextChanged));
    }

    TestModel model;
    TestCatalogue catalogue{PROPERTIES};
    std::unique_ptr<CLayoutRes> res;
    CZulClass *panel;
    FakeControls controls;
};
