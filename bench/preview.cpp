// SPDX-License-Identifier: MIT
// The preview of a layout: a full repaint compared with Qt's own view of items, with the same rectangles and labels.

#include "Environment.h"
#include "PreviewPainter.h"
#include "PreviewZoom.h"
#include "ZulType.h"
#include "application.h"
#include "grid_views.h"

#include <QGraphicsRectItem>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsView>
#include <QPainter>

#include <random>

namespace
{

constexpr QSize VIEW(1200, 800);

/// Components all over the view, a third of them without a colour.
struct PreviewWorld
{
    explicit PreviewWorld(int count)
    {
        std::mt19937 random(1);
        const auto number = [&random](int from, int to) { return from + int(random() % unsigned(to - from)); };
        for (int i = 0; i < count; ++i) {
            components.push_back(std::make_unique<CZulClass>(catalogue));
            components.back()->propName = "component" + QByteArray::number(i);
            PreviewEntry entry;
            entry.component = components.back().get();
            const int x = number(0, VIEW.width() - 60);
            const int y = number(0, VIEW.height() - 30);
            entry.rect = {x, y, x + number(40, 120), y + number(16, 40)};
            entry.background = i % 3 == 0 ? FRAME_NO_PROPERTY : quint32(number(0, 1 << 24));
            entries.push_back(entry);
        }
    }

    ClassCatalogue catalogue;
    std::vector<std::unique_ptr<CZulClass>> components;
    PreviewEntries entries;
    Environment env{QStringLiteral("/nowhere")};
};

class OurPreview : public QWidget
{
public:
    OurPreview(const PreviewWorld &previewWorld, int percent) : world(previewWorld), painter(world.env)
    {
        resize(VIEW);
        zoom.SetScreen(VIEW);
        zoom.Set(percent);
        painter.labels.SetFont(font());
        painter.labels.Reset(world.entries.size());
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter target(this);
        painter.Paint(target, {world.entries, zoom, {10, 10}, rect()}, rect());
    }

private:
    const PreviewWorld &world;
    PreviewZoom zoom;
    PreviewPainter painter;
};

/// Qt's view with an item for each rectangle and one for each label.
class StockPreview : public QGraphicsView
{
public:
    StockPreview(const PreviewWorld &world, int percent)
    {
        setFrameShape(NoFrame);
        resize(VIEW);
        const qreal factor = percent / 100.0;
        for (const PreviewEntry &entry : world.entries) {
            const PreviewRect &r = entry.rect;
            const QRectF rect(QPointF(r.left, r.top) * factor, QPointF(r.right, r.bottom) * factor);
            const QBrush fill(entry.background == FRAME_NO_PROPERTY ? QColor(Qt::white) : QColor(entry.background));
            auto *const item = items.addRect(rect, QPen(Qt::black), fill);
            const QString label = fontMetrics().elidedText(QString::fromLatin1(entry.component->propName),
                                                           Qt::ElideRight, int(rect.width()) - 4);
            auto *const text = new QGraphicsSimpleTextItem(label, item);
            text->setPos(rect.center().x() - text->boundingRect().width() / 2, rect.top() + 2);
        }
        setScene(&items);
        setSceneRect(QRectF(QPointF(), VIEW));
    }

private:
    QGraphicsScene items;
};

/// "ratio" is the time divided by that of Qt's view; at most 0.6 is wanted, 0.45 is the aim.
void RepaintPreview(benchmark::State &state)
{
    NeedApplication();
    const PreviewWorld world(int(state.range(0)));
    OurPreview ours(world, int(state.range(1)));
    StockPreview stock(world, int(state.range(1)));
    for (QWidget *view : {static_cast<QWidget *>(&ours), static_cast<QWidget *>(stock.viewport())})
        (void)view->grab(); // labels are laid out once
    double oursTime = 0;
    double stockTime = 0;
    for (auto _ : state) {
        Time(oursTime, [&] { benchmark::DoNotOptimize(ours.grab().width()); });
        state.PauseTiming();
        Time(stockTime, [&] { benchmark::DoNotOptimize(stock.viewport()->grab().width()); });
        state.ResumeTiming();
    }
    state.counters["ratio"] = oursTime / stockTime;
}
BENCHMARK(RepaintPreview)->Args({5000, 100})->Args({5000, 10})->Unit(benchmark::kMillisecond);

} // namespace
