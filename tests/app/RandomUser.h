// SPDX-License-Identifier: MIT
#pragma once

#include "CListGrid.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QHeaderView>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <random>

/// While it exists, every warning of Qt is a failure of the test.
class FailOnWarnings
{
public:
    FailOnWarnings() : before(qInstallMessageHandler(Fail)) {}
    ~FailOnWarnings() { qInstallMessageHandler(before); }
    FailOnWarnings(const FailOnWarnings &) = delete;
    FailOnWarnings &operator=(const FailOnWarnings &) = delete;

private:
    static void Fail(QtMsgType, const QMessageLogContext &, const QString &text)
    {
        // The platform plugin that has no screen says what it doesn't support.
        if (!text.startsWith(QStringLiteral("This plugin does not support")))
            ADD_FAILURE() << qPrintable(text);
    }

    QtMessageHandler before;
};

/// Makes random user actions, and answers boxes and dialogs at random.
class RandomUser
{
public:
    explicit RandomUser(unsigned seed) : random(seed)
    {
        boxTimer.callOnTimeout([this] { AnswerBox(); });
        boxTimer.start(1);
    }
    virtual ~RandomUser() = default;

    /// Makes that many actions. Stops at the first failure.
    void Run(int steps)
    {
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE(step);
            Step();
            do
                QCoreApplication::processEvents();
            while (QApplication::activeModalWidget() || QApplication::activePopupWidget());
            QCoreApplication::sendPostedEvents(); // events of the last box
            Check();
        }
    }

protected:
    virtual void Step() = 0;
    /// Checks what must be true after every action.
    virtual void Check() const = 0;
    /// Makes choices in a dialog before it ends.
    virtual void Fill(QDialog &) {}

    int Below(int end) { return int(random() % unsigned(end)); }
    template <typename T, size_t N> const T &OneOf(const T (&all)[N]) { return all[size_t(Below(int(N)))]; }

    /// An action that is chosen as often as its weight says, among others.
    struct Weighted
    {
        int weight;
        std::function<void()> act;
    };
    void ActOneOf(const std::vector<Weighted> &actions)
    {
        int sum = 0;
        for (const Weighted &each : actions)
            sum += each.weight;
        int left = Below(sum);
        for (const Weighted &each : actions) {
            left -= each.weight;
            if (left < 0)
                return each.act();
        }
    }

    /// Selects about one of `every` rows.
    void SelectSome(CListGrid &grid, int every)
    {
        std::vector<int> rows;
        for (int row = 0; row < grid.model()->rowCount(); ++row) {
            if (Below(every) == 0)
                rows.push_back(row);
        }
        grid.setFocus();
        grid.Select(rows);
    }
    void ResizeOrScroll(const CListGrid &grid, QWidget &frame)
    {
        ActOneOf(
            {{1, [&] { grid.horizontalHeader()->resizeSection(Below(grid.model()->columnCount()), Below(5) * 100); }},
             {1, [&] { frame.resize(500 + Below(4) * 100, 250 + Below(300)); }},
             {1, [&] {
                  for (QScrollBar *bar : {grid.horizontalScrollBar(), grid.verticalScrollBar()})
                      bar->setValue(Below(bar->maximum() + 1));
              }}});
    }
    /// Returns a point anywhere in a widget.
    QPoint PointIn(const QWidget &widget) { return {Below(widget.width()), Below(widget.height())}; }

private:
    void AnswerBox()
    {
        if (QWidget *const menu = QApplication::activePopupWidget())
            menu->close();
        auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (auto *const box = qobject_cast<QMessageBox *>(dialog)) {
            const auto buttons = box->buttons();
            return buttons[Below(int(buttons.size()))]->click();
        }
        if (!dialog)
            return;
        Fill(*dialog);
        QMetaObject::invokeMethod(dialog, Below(3) ? &QDialog::accept : &QDialog::reject, Qt::QueuedConnection);
    }

    std::mt19937 random;
    QTimer boxTimer;
};
