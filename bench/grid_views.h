// SPDX-License-Identifier: MIT
#pragma once

#include "CListGrid.h"
#include "application.h"

#include <QHeaderView>

#include <benchmark/benchmark.h>

#include <ctime>

// Lists to compare: the program's and Qt's own.

/// Shows the columns of a model in equal widths, and about 41 rows.
inline void SetUp(QTableView &view, QAbstractItemModel &model)
{
    view.setModel(&model);
    view.resize(1650, 940);
    for (int col = 0; col < model.columnCount(); ++col)
        view.setColumnWidth(col, 1624 / qMax(1, model.columnCount()));
}

inline void Paint(QTableView &view)
{
    benchmark::DoNotOptimize(view.viewport()->grab().width());
}

struct OurView : CListGrid
{
    explicit OurView(QAbstractItemModel &model) { SetUp(*this, model); }
};

/// Qt's own, without settings that would make it unnecessarily slow.
struct StockView : QTableView
{
    explicit StockView(QAbstractItemModel &model)
    {
        setWordWrap(false);
        setSelectionBehavior(SelectRows);
        verticalHeader()->hide();
        verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        verticalHeader()->setMinimumSectionSize(1);
        verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
        setHorizontalScrollMode(ScrollPerPixel);
        SetUp(*this, model);
    }
};

/// Adds the processor time of `work`, in seconds, to `sum`.
template <typename Work> void Time(double &sum, const Work &work)
{
    const std::clock_t start = std::clock();
    work();
    sum += double(std::clock() - start) / CLOCKS_PER_SEC;
}
