// SPDX-License-Identifier: MIT
#pragma once

#include "TestWindow.h"

#include <QInputMethodEvent>
#include <QLockFile>

class LayoutPanes;
class QTableView;

/// The window with a copy of the sample, in the folder /tmp/weatherclock, whose path the window shows. Another process
/// that needs the folder waits.
struct SampleWindow : TestWindow
{
    SampleWindow();
    ~SampleWindow();

    [[nodiscard]] QString SampleProject() const { return SAMPLE + u"/weatherclock.vcproj"_s; }
    void OpenSample() const { (void)Frame().Projects().Open(SampleProject()); }

    /// Selects an item of the project tree, and waits until its pane is shown.
    void Go(QTreeWidgetItem *item) const
    {
        Tree().setCurrentItem(item);
        Settle();
    }
    /// The visible table of the project's pane.
    [[nodiscard]] QTableView &Grid() const;
    /// Puts the focus on a cell and selects its row.
    void GoToCell(QTableView &grid, int row, int col) const;
    /// Sets the width of the project tree and those of the columns of the table.
    void FitColumns(int treeWidth, const QList<int> &widths) const;
    /// The panes of the layout that is shown.
    [[nodiscard]] LayoutPanes &Panes() const;
    /// Sets the height of the upper panes of a layout, and the width of the list of components.
    void FitPanes(int height, int listWidth) const;
    /// Selects a component of the layout by its label in the list, and puts the focus on the preview.
    void SelectComponent(const QString &label) const;
    /// Clicks on the value of a property of the selected component, which opens its editor.
    void ClickProperty(const QString &property) const;
    /// Docks the output below the project.
    void PutOutputBelow(int height) const;

    /// Enters a text as an input method does, which works for every script.
    static void Type(const QString &text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        if (QApplication::focusWidget())
            QApplication::sendEvent(QApplication::focusWidget(), &event);
    }

private:
    static inline const QString SAMPLE = u"/tmp/weatherclock"_s;
    QLockFile lock{SAMPLE + u".lock"_s};
};
