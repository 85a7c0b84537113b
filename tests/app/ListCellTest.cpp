// SPDX-License-Identifier: MIT
// Tests how a cell of a list is drawn, the direction of its text, and the rectangle of a row.
#include "CListGrid.h"
#include "ListCellDelegate.h"
#include "TextDirection.h"
#include "UiIcon.h"

#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyleOption>
#include <QTest>

#include <gmock/gmock.h>

#include <random>

using namespace Qt::StringLiterals;

namespace
{

struct Cell
{
    QString text;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    bool isGap = false;
    int width = 120;
    int fontSize = 10;
    int scale = 1;
    QStyle::State state = QStyle::State_Enabled;
    UiIcon mark = UiIcon::None;
};

QImage Drawn(const ListCellDelegate &delegate, const Cell &cell)
{
    QStandardItemModel model(1, 3);
    const QModelIndex index = model.index(0, 1);
    model.setData(index, cell.text);
    model.setData(index, QVariant::fromValue(cell.direction), ROLE_DIRECTION);
    model.setData(index, cell.isGap, ROLE_IS_GAP);
    if (cell.mark != UiIcon::None)
        model.setData(index, int(cell.mark), ROLE_MARK);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, cell.width, 24);
    option.font.setPixelSize(cell.fontSize);
    option.fontMetrics = QFontMetrics(option.font);
    option.state = cell.state;
    QImage image(option.rect.size() * cell.scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(cell.scale);
    image.fill(option.palette.color(QPalette::Base));
    QPainter painter(&image);
    delegate.paint(&painter, option, index);
    return image;
}

/// Returns the first and the last column of an image that has another colour than its lower left corner.
std::pair<int, int> Ink(const QImage &image)
{
    std::pair<int, int> ink(image.width(), -1);
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixel(x, y) != image.pixel(0, image.height() - 1))
                ink = {std::min(ink.first, x), x};
        }
    }
    return ink;
}

} // namespace

TEST(ListCellDelegate, DrawsTheSameAfterDrawingOtherCells)
{
    const QStringList texts{u""_s, u"short"_s, u"a text that doesn't fit into a narrow cell"_s, u"مرحبا بالعالم"_s,
                            u"天气"_s};
    std::mt19937 random(1);
    const auto below = [&](int end) { return int(random() % unsigned(end)); };
    const ListCellDelegate used;
    for (int round = 0; round < 500; ++round) {
        Cell cell{texts[below(5)]};
        cell.direction = below(2) ? Qt::RightToLeft : Qt::LeftToRight;
        cell.isGap = below(2);
        cell.width = 40 + 80 * below(2);
        cell.fontSize = 10 + 4 * below(2);
        cell.scale = 1 + below(3);
        cell.state.setFlag(QStyle::State_Selected, below(2));
        ASSERT_EQ(Drawn(used, cell), Drawn(ListCellDelegate(), cell)) << round;
    }
}

TEST(ListCellDelegate, ShowsDirectionAndGapInEveryState)
{
    const ListCellDelegate delegate;
    for (const int scale : {1, 2}) {
        for (const QStyle::State state :
             {QStyle::State(QStyle::State_Enabled), QStyle::State(QStyle::State_Selected)}) {
            const auto ink = [&](const QString &text, Qt::LayoutDirection direction, bool isGap, int width) {
                return Ink(Drawn(delegate, {text, direction, isGap, width, 12, scale, state}));
            };
            const auto left = ink(u"word"_s, Qt::LeftToRight, false, 120);
            EXPECT_TRUE(left.first < 8 * scale && left.second < 60 * scale);
            const auto right = ink(u"كلمة"_s, Qt::RightToLeft, false, 120);
            EXPECT_TRUE(right.first > 60 * scale && right.second > 112 * scale && right.second < 119 * scale);
            const auto cut = ink(QString(100, u'x'), Qt::LeftToRight, false, 120);
            EXPECT_TRUE(cut.second > 100 * scale && cut.second < 117 * scale);
            const auto gap = ink(QString(), Qt::LeftToRight, true, 120);
            EXPECT_TRUE(gap.first > 110 * scale && gap.second == 120 * scale - 1) << "the mark in the corner";
            EXPECT_EQ(ink(QString(), Qt::LeftToRight, false, 120).second, -1);
        }
    }
}

TEST(TextDirection, FollowsTheLanguageOfTheName)
{
    for (const char *const name : {"Arabic", "Arabic (Egypt)", "arabic-egypt", "Modern Hebrew", "PERSIAN", "Urdu_PK",
                                   "Central Kurdish", "Uzbek (Arabic)", "العربية", "עברית", "فارسی", "(اردو)"})
        EXPECT_EQ(DirectionOfLanguage(QString::fromUtf8(name)), Qt::RightToLeft) << name;
    for (const char *const name : {"", "中文", "हिन्दी", "Kurdish", "English (Saudi Arabia)", "Spanish (Darien)", "ไทย",
                                   "1: Français", "C", "Maltese"})
        EXPECT_EQ(DirectionOfLanguage(QString::fromUtf8(name)), Qt::LeftToRight) << name;
}

TEST(CListGrid, FindsTheRectangleOfARowInBothDirections)
{
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        for (const int width : {150, 800}) {
            QStandardItemModel model(2, 3);
            CListGrid grid;
            grid.setModel(&model);
            grid.setLayoutDirection(direction);
            grid.resize(width, 200);
            grid.show();
            QApplication::processEvents();
            grid.horizontalScrollBar()->setValue(30);
            const QRect cells = grid.visualRect(model.index(1, 0)) | grid.visualRect(model.index(1, 2));
            EXPECT_EQ(grid.RowRect(1).adjusted(0, 0, -1, -1), cells) << direction << ' ' << width; // without grid lines
        }
    }
}

TEST(CListGrid, TypedLettersFindRowsByTheFirstColumn)
{
    QStandardItemModel model(3, 2);
    const char *const texts[3][2] = {{"apple", "pear"}, {"plum", "cherry"}, {"peach", "plum"}};
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 2; ++col)
            model.setItem(row, col, new QStandardItem(QString::fromLatin1(texts[row][col])));
    }
    CListGrid grid;
    grid.setModel(&model);
    grid.show();
    QTest::keyClicks(&grid, u"pl"_s);
    EXPECT_EQ(grid.currentIndex().row(), 1) << "without a current row";
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    grid.selectionModel()->setCurrentIndex(model.index(0, 1), QItemSelectionModel::NoUpdate);
    QTest::keyClicks(&grid, u"pea"_s);
    EXPECT_EQ(grid.currentIndex(), model.index(2, 1)) << "not \"pear\" of the column with the focus, which stays";
}

/// A mark takes its place from the text, at the side where the text begins, and is seen on a selected row.
TEST(ListCellDelegate, DrawsTheMarkBesideTheText)
{
    const ListCellDelegate delegate;
    for (const int scale : {1, 2}) {
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            std::vector<QImage> drawn;
            for (const UiIcon mark : {UiIcon::None, UiIcon::Error, UiIcon::Warning, UiIcon::Note}) {
                Cell cell{{}, direction};
                cell.scale = scale;
                cell.mark = mark;
                const auto [first, last] = Ink(drawn.emplace_back(Drawn(delegate, cell)));
                if (mark == UiIcon::None)
                    continue;
                EXPECT_GE(first, (direction == Qt::RightToLeft ? 98 : 2) * scale);
                EXPECT_LE(last, (direction == Qt::RightToLeft ? 118 : 22) * scale);
                cell.state |= QStyle::State_Selected;
                EXPECT_GE(Ink(Drawn(delegate, cell)).second, 0);
            }
            for (size_t i = 1; i < drawn.size(); ++i)
                EXPECT_NE(drawn[i], drawn[i - 1]);
        }
    }
}
