// SPDX-License-Identifier: MIT
#include "SampleWindow.h"

#include "CLotCplistView.h"
#include "CLotEditorView.h"
#include "CLotScreenView.h"
#include "LayoutPanes.h"

#include <QSplitter>
#include <QTableView>
#include <QTreeWidget>

#include <filesystem>

SampleWindow::SampleWindow()
{
    constexpr auto options =
        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing;
    if (!lock.tryLock(300'000))
        throw std::runtime_error("Another process has " + lock.fileName().toStdString());
    const std::filesystem::path sample = SAMPLE.toStdString(), program = folder.Path("bin").toStdString();
    std::filesystem::remove_all(sample); // of a process that crashed
    std::filesystem::copy(MORVANITE_SAMPLE, sample, options);
    std::filesystem::copy(MORVANITE_PROGRAM_FILES, program, options);
    for (const char *converter : {"qrk_resgenerator.exe", "zul_xml_conv.exe", "convert_i_2_h"})
        std::filesystem::create_symlink(std::filesystem::path(MORVANITE_CONVERTERS) / converter, program / converter);
    Start();
    Frame().setAnimated(false);
}

SampleWindow::~SampleWindow()
{
    app.reset();
    std::filesystem::remove_all(SAMPLE.toStdString());
}

QTableView &SampleWindow::Grid() const
{
    for (QTableView *grid : Child().findChildren<QTableView *>()) {
        if (grid->isVisible())
            return *grid;
    }
    throw std::runtime_error("No table is shown.");
}

void SampleWindow::GoToCell(QTableView &grid, int row, int col) const
{
    Settle(); // a change of the pane's size ends what follows
    grid.setFocus();
    grid.selectionModel()->setCurrentIndex(grid.model()->index(row, col),
                                           QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void SampleWindow::FitColumns(int treeWidth, const QList<int> &widths) const
{
    auto *const splitter = Child().findChild<QSplitter *>();
    splitter->setSizes({treeWidth, splitter->width() - treeWidth});
    for (int col = 0; col < int(widths.size()); ++col)
        Grid().setColumnWidth(col, widths[col]);
}

LayoutPanes &SampleWindow::Panes() const
{
    return Find<LayoutPanes>(Child());
}

void SampleWindow::FitPanes(int height, int listWidth) const
{
    for (auto *splitter : Panes().findChildren<QSplitter *>()) {
        const bool isRows = splitter->orientation() == Qt::Vertical;
        const int size = isRows ? height : listWidth;
        splitter->setSizes({size, (isRows ? splitter->height() : splitter->width()) - size});
    }
}

void SampleWindow::SelectComponent(const QString &label) const
{
    auto &list = *Panes().List().findChild<QTreeWidget *>();
    list.setCurrentItem(list.findItems(label, Qt::MatchExactly | Qt::MatchRecursive).value(0));
    Panes().Preview().setFocus();
    Settle();
}

void SampleWindow::ClickProperty(const QString &property) const
{
    auto &grid = *Panes().Grid().findChild<QTableView *>();
    for (int row = 0; row < grid.model()->rowCount(); ++row) {
        if (grid.model()->index(row, 0).data().toString().trimmed() != property)
            continue;
        grid.scrollTo(grid.model()->index(row, 1), QAbstractItemView::PositionAtCenter);
        Settle();
        ClickCell(grid, row, 1);
    }
    Settle();
}

void SampleWindow::PutOutputBelow(int height) const
{
    CSizingControlBar &bar = Frame().Bars().OutputBar();
    Frame().addDockWidget(Qt::BottomDockWidgetArea, &bar);
    Frame().resizeDocks({&bar}, {height}, Qt::Vertical);
    Settle();
}
