// SPDX-License-Identifier: MIT
#pragma once

#include "CStringView.h"
#include "CellEditor.h"
#include "ChoiceBox.h"
#include "StringFileBytes.h"
#include "StringGrid.h"
#include "TestWindow.h"

#include <QHeaderView>
#include <QTest>

/// A window with a project of strings, opened at its strings.
struct StringWindow : TestWindow
{
    explicit StringWindow(const QByteArray &strings = THREE_ROWS)
    {
        folder.Put("bin/Morvanite.ini",
                   "[Path]\nreso_set=sizes.ini\n[Resource Type]\nCount=2\nType_0=Normal\nType_1=Push\n");
        folder.Put("bin/tuvik.ini", "[Language]\nEnglish=9\nFrench=12\nArabic=1\n");
        MakeProject("demo", "<APP><STRING>res\\ref_list_demo.txt</STRING></APP>");
        folder.Put("demo/res/ref_list_demo.txt", StringFileBytes(strings));
        Open();
    }

    void Open()
    {
        Start({Project()});
        Frame().resize(1000, 600);
        Child().Selected().SelectFolder(Document().root.FindFolder(KIND_STRINGS, 2));
        Settle();
        Grid().setFocus();
    }

    /// Returns the first descendant of that class.
    template <typename Widget> static Widget &Find(const QWidget &parent)
    {
        for (QWidget *child : parent.findChildren<QWidget *>()) {
            if (auto *const found = dynamic_cast<Widget *>(child))
                return *found;
        }
        throw std::runtime_error("there is no such widget");
    }

    /// Returns the descendant of the view with that class and name.
    template <typename Widget> [[nodiscard]] Widget &Named(const QString &accessibleName) const
    {
        for (QWidget *child : View().findChildren<QWidget *>()) {
            if (auto *const found = dynamic_cast<Widget *>(child); found && child->accessibleName() == accessibleName)
                return *found;
        }
        throw std::runtime_error("there is no such widget");
    }

    [[nodiscard]] CStringView &View() const { return Find<CStringView>(Child()); }
    [[nodiscard]] StringGrid &Grid() const { return View().Grid(); }
    [[nodiscard]] StringTable &Table() const { return View().Table(); }
    [[nodiscard]] CellEditor &Editor() const { return Find<CellEditor>(Grid()); }
    [[nodiscard]] ChoiceBox &TypeBox() const { return Find<ChoiceBox>(Grid()); }

    /// Returns what the grid shows in a cell.
    [[nodiscard]] std::string Shown(int row, int col) const
    {
        return Grid().model()->index(row, col).data().toString().toStdString();
    }
    /// Opens the editor of a cell, as a double click does.
    void Edit(int row, int col) const
    {
        Grid().SelectAlone(row, col);
        Grid().scrollTo(Grid().model()->index(row, col));
        DoubleClick(*Grid().viewport(), Grid().visualRect(Grid().model()->index(row, col)).center());
    }
    /// Activates the window: without a screen no window manager activates a window below a box.
    void WakeUp() const
    {
        QCoreApplication::processEvents();
        while (!QApplication::activeWindow()) {
            Frame().activateWindow();
            QCoreApplication::processEvents(); // may open a box
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
    /// Returns the cell of the editor as "row,column"; empty while it is closed.
    [[nodiscard]] std::string Edited() const
    {
        if (!Editor().isVisible())
            return {};
        return std::to_string(Editor().Cell().row()) + ',' + std::to_string(Editor().Cell().column());
    }

    void Drop(const QStringList &paths) const { DropOn(*Grid().viewport(), UrlsOf(paths)); }

    [[nodiscard]] CResFolder *Strings() const { return Document().root.FindFolder(KIND_STRINGS, 2); }
    /// Returns a row of the tree, by its head in the first folder: ID, kind, and the texts in the order of the folders.
    [[nodiscard]] QStringList TreeRow(const CBaseRes &head) const
    {
        QStringList row{Document().env.NarrowToWide(head.Id()->name), head.Id()->push ? u"Push"_s : u"Normal"_s};
        for (const auto &language : Strings()->subfolders) {
            const auto *const cell = static_cast<const CStringRes *>(language->FindResource(head.Id()));
            row << (cell ? cell->Text().toString() : QString());
        }
        return row;
    }
    /// Returns the languages and the rows of the tree, in its order.
    [[nodiscard]] QStringList TreeRows() const
    {
        QStringList rows;
        if (!Strings() || Strings()->subfolders.empty())
            return rows;
        for (const auto &language : Strings()->subfolders)
            rows << language->title + u'(' + QString::number(language->index) + u')';
        for (const CBaseRes *head : Strings()->subfolders.front()->resources)
            rows << TreeRow(*head).join(u'|');
        return rows;
    }
    /// Saves. Returns false if the file has nothing to be read again: a typed text was refused, or the project has no
    /// strings and no languages.
    [[nodiscard]] bool Save() const
    {
        Frame().RunAction(ACTION_SAVE);
        return !Document().IsModified() && QFile::exists(folder.Path("demo/res/ref_list_demo.txt"));
    }
    /// Saves and has the project load the saved file: the rows must be the same.
    void SaveAndReload() const
    {
        if (!Save())
            return;
        const QStringList saved = TreeRows();
        folder.Put("demo/res/ref_list_demo.txt", folder.Get("demo/res/ref_list_demo.txt")); // gives it a new time stamp
        EXPECT_EQ(Document().TakeInChanges(), CResDoc::Outside::TakenIn);
        EXPECT_EQ(TreeRows(), saved);
    }

    static inline const QByteArray THREE_ROWS =
        "Number of Language|2\nString ID|Resource Type|Description|English(9)|French(12)\n"
        "ID_C|Normal|c|See|Mer\nID_A2|Push|a|Two|\nID_A10|Normal|b|Ten|Dix\n##number|3\n";
};
