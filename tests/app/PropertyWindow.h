#pragma once

#include "CLayoutRes.h"
#include "CLotEditorView.h"
#include "CResDoc.h"
#include "ColorButton.h"
#include "StringWindow.h"
#include "TestCatalogue.h"

#include <QComboBox>
#include <QLineEdit>
#include <QVBoxLayout>

/// A property grid of its own in a window of its own, over a component of a project that is open.
struct PropertyWindow : TestWindow
{
    PropertyWindow()
    {
        folder.Put("bin/Morvanite.ini",
                   "[Path]\nreso_set=sizes.ini\n[Layout]\nfolders=1\ncatalogue=classes.xml\n[wnd_1019]\n2=77\n");
        folder.Put("bin/classes.xml", CLASSES);
        Start({Project()});
        layout = static_cast<CLayoutRes *>(Document().CreateLayoutRes(1)->resources.First());
        (void)Add("Panel", "panel", {});
        box = Add("Box", "box", {{"pos", "(1,2)"}, {"tint", "#FF102030"}, {"wait", "2000ms"}});
        view = std::make_unique<CLotEditorView>(Document(), Child());
        view->changed = [this](Applied applied) { told += applied == Applied::TreeChanged ? "tree " : "value "; };
        view->resize(720, 420);
        view->show();
        view->ShowComponent(layout, box);
        WakeUp();
        Grid().setFocus();
    }

    CZulClass *Add(const NarrowText &className, const NarrowText &name, std::initializer_list<AttributeRecord> values)
    {
        auto component = Component(className, values);
        component->name = name;
        return layout->AddComponent(Document().env, std::move(component));
    }

    [[nodiscard]] CListGrid &Grid() const { return StringWindow::Find<CListGrid>(*view); }
    template <typename Widget> [[nodiscard]] Widget &Named(const QString &accessibleName) const
    {
        for (Widget *found : Grid().viewport()->findChildren<Widget *>()) {
            if (!found->isHidden() && found->accessibleName() == accessibleName)
                return *found;
        }
        throw std::runtime_error("no control shows that has the name " + accessibleName.toStdString());
    }
    [[nodiscard]] QLineEdit &Line(const QString &name) const { return Named<QLineEdit>(name); }
    /// Says whether an editor is open.
    [[nodiscard]] bool IsOpen() const
    {
        const QList<QWidget *> all = Grid().viewport()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
        return std::any_of(all.begin(), all.end(), [](const QWidget *control) { return !control->isHidden(); });
    }

    [[nodiscard]] int RowOf(const QString &name) const
    {
        for (int row = 0; row < Grid().model()->rowCount(); ++row) {
            if (Grid().model()->index(row, 0).data().toString().trimmed() == name)
                return row;
        }
        return -1;
    }
    [[nodiscard]] std::string Value(const QString &name) const
    {
        return Grid().model()->index(RowOf(name), 1).data().toString().toStdString();
    }
    [[nodiscard]] QByteArray Stored(const NarrowText &name) const { return box->component->GetAttribute(name); }

    /// Clicks on a row as the user does: on what is there, which may be a control.
    void Click(const QString &name, int col = 0) const
    {
        WakeUp();
        const QModelIndex cell = Grid().model()->index(RowOf(name), col);
        Grid().scrollTo(cell);
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().visualRect(cell).center());
    }
    void WakeUp() const
    {
        while (QApplication::activeWindow() != view.get()) {
            view->activateWindow();
            Settle();
        }
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        WakeUp();
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const QString &text) const
    {
        WakeUp();
        QTest::keyClicks(QApplication::focusWidget(), text);
    }

    CLayoutRes *layout = nullptr;
    CZulClass *box = nullptr;
    std::unique_ptr<CLotEditorView> view;
    std::string told; // what `changed` has been told

    static inline const QByteArray CLASSES =
        "<catalogue version='1'><enumeration name='Side'><item name='left'/><item name='right'/></enumeration>"
        "<structure name='Edges'><member name='top' type='ZulS32'/><member name='bottom' type='ZulS32'/></structure>"
        "<class name='Shape'><member name='pos' type='ZulPoint'/><member name='size' type='ZulSize'/>"
        "<member name='shown' type='ZulBool'/></class>"
        "<class name='Panel' base='Shape'/>"
        "<class name='Box' base='Shape'><member name='edges' type='Edges'/><member name='tint' type='ZulColor'/>"
        "<member name='wait' type='ZulMsec'/><member name='count' type='ZulS32'/><member name='side' type='Side'/>"
        "<member name='area' type='ZulRect'/><member name='picture' type='ZulImageSrc'/></class></catalogue>";
};
