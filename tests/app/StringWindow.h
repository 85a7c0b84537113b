// SPDX-License-Identifier: MIT
#pragma once

#include "CStringView.h"
#include "CellEditor.h"
#include "ChoiceBox.h"
#include "StringFileBytes.h"
#include "StringGrid.h"
#include "TestWindow.h"

/// A window with a project of strings, opened at its strings.
struct StringWindow : TestWindow
{
    explicit StringWindow(const QByteArray &strings = THREE_ROWS, const QByteArray &settings = {})
        : TestWindow("[Resource Type]\nCount=2\nType_0=Normal\nType_1=Push\n" + settings)
    {
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
    /// Returns the IDs that the grid shows, in its order.
    [[nodiscard]] std::string Ids() const
    {
        std::string ids;
        for (int row = 0; row < Grid().model()->rowCount(); ++row)
            ids += Shown(row, 0) + ' ';
        return ids;
    }
    /// Opens the editor of a cell, as a double click does.
    void Edit(int row, int col) const
    {
        Grid().SelectAlone(row, col);
        Grid().scrollTo(Grid().model()->index(row, col));
        DoubleClick(*Grid().viewport(), PlaceOf(Grid(), row, col));
    }
    /// Replaces the text of a cell by the keyboard.
    void Put(int row, int col, const QString &text) const
    {
        Edit(row, col);
        Type(text);
        Key(Qt::Key_Return);
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
