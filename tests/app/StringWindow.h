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
        folder.Put("bin/tuvik.ini", "[Language]\nEnglish=9\nFrench=12\nArabic=1\n");
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

    [[nodiscard]] CStringView &View() const { return *Child().findChild<CStringView *>(); }
    [[nodiscard]] StringGrid &Grid() const { return View().Grid(); }
    [[nodiscard]] StringTable &Table() const { return View().Table(); }
    [[nodiscard]] CellEditor &Editor() const { return *Grid().findChild<CellEditor *>(); }
    [[nodiscard]] ChoiceBox &TypeBox() const { return *Grid().findChild<ChoiceBox *>(); }

    /// What the grid shows in a cell.
    [[nodiscard]] std::string Shown(int row, int col) const
    {
        return Grid().model()->index(row, col).data().toString().toStdString();
    }
    /// Opens the editor over a cell as a double click does.
    void Edit(int row, int col) const
    {
        Grid().SelectAlone(row, col);
        Grid().scrollTo(Grid().model()->index(row, col));
        const QPoint place = Grid().visualRect(Grid().model()->index(row, col)).center();
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {}, place);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const QString &text) const { QTest::keyClicks(QApplication::focusWidget(), text); }
    /// The cell that the editor is over, as "row,column"; empty while it is closed.
    [[nodiscard]] std::string Edited() const
    {
        if (!Editor().isVisible())
            return {};
        return std::to_string(Editor().Cell().row()) + ',' + std::to_string(Editor().Cell().column());
    }

    static inline const QByteArray THREE_ROWS =
        "Number of Language|2\nString ID|Resource Type|Description|English(9)|French(12)\n"
        "ID_C|Normal|c|See|Mer\nID_A2|Push|a|Two|\nID_A10|Normal|b|Ten|Dix\n##number|3\n";
};
