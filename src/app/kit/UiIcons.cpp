// SPDX-License-Identifier: MIT
#include "UiIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace
{

// Colours that are easy to see both on white and on dark grey.
const QColor BLUE(0x3B, 0x82, 0xD8);
const QColor GREEN(0x3A, 0xA6, 0x6B);
const QColor ORANGE(0xE0, 0x8A, 0x2C);
const QColor RED(0xD6, 0x55, 0x50);
const QColor SIGNAL_RED(0xD9, 0x36, 0x3E);
const QColor AMBER(0xF2, 0xA9, 0x1F);
const QColor PURPLE(0x92, 0x6B, 0xD6);
const QColor YELLOW(0xEB, 0xB5, 0x3C);
const QColor PAPER(0xF7, 0xF9, 0xFB);
const QColor GREY(0x8A, 0x94, 0x9E);

/// Draws on a square of 16 by 16 units.
class Canvas
{
public:
    explicit Canvas(QPainter &target) : painter(target) {}

    void Fill(const QRectF &rect, const QColor &color, qreal radius = 1)
    {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRoundedRect(rect, radius, radius);
    }
    void Frame(const QRectF &rect, const QColor &color, const QColor &inside, qreal radius = 1)
    {
        painter.setPen(QPen(color, 1));
        painter.setBrush(inside);
        painter.drawRoundedRect(rect, radius, radius);
    }
    void Shape(std::initializer_list<QPointF> points, const QColor &color)
    {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawPolygon(QPolygonF(QList<QPointF>(points)));
    }
    void Line(std::initializer_list<QPointF> points, const QColor &color, qreal width)
    {
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPolyline(QPolygonF(QList<QPointF>(points)));
    }
    void Disc(const QPointF &center, qreal radius, const QColor &color)
    {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(center, radius, radius);
    }
    void Arc(const QRectF &rect, int fromDegrees, int spanDegrees, const QColor &color, qreal width)
    {
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
        painter.setBrush(Qt::NoBrush);
        painter.drawArc(rect, fromDegrees * 16, spanDegrees * 16);
    }
    /// Mirrors what is drawn next at a vertical line.
    void MirrorAround(qreal x)
    {
        painter.translate(2 * x, 0);
        painter.scale(-1, 1);
    }

private:
    QPainter &painter;
};

void DrawPage(Canvas &canvas, const QColor &edge)
{
    canvas.Frame({3.5, 1.5, 9, 13}, edge, PAPER);
}

void DrawFiles(Canvas &canvas)
{
    canvas.Fill({1, 3, 6, 4}, YELLOW.darker(115));
    canvas.Fill({1, 4.5, 14, 9.5}, YELLOW);
    canvas.Fill({1, 6.5, 14, 7.5}, YELLOW.lighter(115));
}

void DrawAudio(Canvas &canvas)
{
    canvas.Line({{6, 11.5}, {6, 3}, {13, 2}, {13, 10}}, PURPLE, 1.6);
    canvas.Disc({4.3, 12}, 2.2, PURPLE);
    canvas.Disc({11.3, 10.6}, 2.2, PURPLE);
}

void DrawVideo(Canvas &canvas)
{
    canvas.Fill({1, 2.5, 14, 11}, RED);
    for (const qreal x : {2.0, 6.0, 10.0}) {
        canvas.Fill({x + 0.5, 3.5, 2.5, 1.5}, PAPER, 0.4);
        canvas.Fill({x + 0.5, 11, 2.5, 1.5}, PAPER, 0.4);
    }
    canvas.Shape({{6.3, 5.8}, {6.3, 10.2}, {10.4, 8}}, PAPER);
}

void DrawBinary(Canvas &canvas)
{
    DrawPage(canvas, GREY);
    for (const qreal y : {4.0, 7.0, 10.0}) {
        canvas.Frame({5.5, y + 0.2, 1.6, 2}, BLUE, Qt::transparent, 0.8);
        canvas.Line({{9.8, y + 0.2}, {9.8, y + 2.2}}, BLUE, 1);
    }
}

void DrawImages(Canvas &canvas)
{
    canvas.Frame({1.5, 2.5, 13, 11}, GREEN.darker(120), QColor(0xD6, 0xEC, 0xFA));
    canvas.Disc({5, 6}, 1.5, YELLOW);
    canvas.Shape({{2, 13}, {6.5, 8}, {9, 10.5}, {11, 8.5}, {14, 12}, {14, 13}}, GREEN);
}

void DrawScreen(Canvas &canvas, const QColor &edge)
{
    canvas.Fill({3, 1, 10, 14}, edge, 1.6);
    canvas.Fill({4.2, 2.6, 7.6, 9.4}, QColor(0xD6, 0xEC, 0xFA), 0.4);
    canvas.Disc({8, 13.4}, 0.8, PAPER);
}

void DrawDefaultResolution(Canvas &canvas)
{
    DrawScreen(canvas, GREY);
    canvas.Line({{6, 7.3}, {7.4, 8.8}, {10, 5.6}}, GREEN, 1.4);
}

void DrawComponentImages(Canvas &canvas)
{
    canvas.Frame({1.5, 1.5, 8, 8}, GREEN.darker(120), QColor(0xD6, 0xEC, 0xFA));
    canvas.Fill({6, 6, 9, 9}, ORANGE, 1.4);
    canvas.Disc({10.5, 10.5}, 2.2, PAPER);
}

void DrawStrings(Canvas &canvas)
{
    canvas.Frame({1.5, 2.5, 13, 9}, BLUE, PAPER, 2);
    canvas.Shape({{4, 11}, {4, 15}, {8, 11}}, BLUE);
    canvas.Line({{4.5, 5.5}, {11.5, 5.5}}, BLUE, 1.2);
    canvas.Line({{4.5, 8.5}, {9, 8.5}}, BLUE, 1.2);
}

void DrawLayouts(Canvas &canvas)
{
    canvas.Frame({1.5, 1.5, 13, 13}, PURPLE, PAPER);
    canvas.Fill({3, 3, 10, 2.6}, PURPLE, 0.5);
    canvas.Fill({3, 7, 4, 6}, PURPLE.lighter(135), 0.5);
    canvas.Fill({8.4, 7, 4.6, 2.4}, PURPLE.lighter(135), 0.5);
    canvas.Fill({8.4, 10.6, 4.6, 2.4}, PURPLE.lighter(135), 0.5);
}

void DrawProject(Canvas &canvas)
{
    canvas.Shape({{8, 1}, {15, 4.4}, {8, 7.8}, {1, 4.4}}, BLUE.lighter(130));
    canvas.Shape({{1, 5.2}, {7.6, 8.4}, {7.6, 15}, {1, 11.8}}, BLUE);
    canvas.Shape({{15, 5.2}, {8.4, 8.4}, {8.4, 15}, {15, 11.8}}, BLUE.darker(125));
}

void DrawNewFile(Canvas &canvas)
{
    DrawPage(canvas, GREY);
    canvas.Line({{8, 5.4}, {8, 10.6}}, GREEN, 1.6);
    canvas.Line({{5.4, 8}, {10.6, 8}}, GREEN, 1.6);
}

/// A sheet without a corner, crossed out.
void DrawMissingFile(Canvas &canvas)
{
    canvas.Shape({{3.5, 1.5}, {8, 1.5}, {7.2, 4}, {9.8, 4.4}, {9, 7}, {12.5, 6.4}, {12.5, 14.5}, {3.5, 14.5}}, PAPER);
    canvas.Line({{8, 1.5}, {3.5, 1.5}, {3.5, 14.5}, {12.5, 14.5}, {12.5, 6.4}, {9, 7}, {9.8, 4.4}, {7.2, 4}, {8, 1.5}},
                GREY, 1);
    canvas.Line({{5.4, 8.6}, {9.6, 12.8}}, RED, 1.8);
    canvas.Line({{9.6, 8.6}, {5.4, 12.8}}, RED, 1.8);
}

/// The outline of a sheet, dashed all around.
void DrawNoFile(Canvas &canvas)
{
    for (const qreal x : {3.5, 12.5}) {
        for (const qreal y : {2.0, 5.6, 9.2, 12.8})
            canvas.Line({{x, y}, {x, y + 1.4}}, GREY, 1);
    }
    for (const qreal y : {1.5, 14.5}) {
        for (const qreal x : {5.0, 9.2})
            canvas.Line({{x, y}, {x + 1.8, y}}, GREY, 1);
    }
}

void DrawTextFile(Canvas &canvas)
{
    DrawPage(canvas, GREY);
    for (const qreal y : {4.5, 7.0, 9.5})
        canvas.Line({{5.6, y}, {10.4, y}}, GREY.darker(130), 1);
    canvas.Line({{5.6, 12}, {8.4, 12}}, GREY.darker(130), 1);
}

void DrawArchive(Canvas &canvas)
{
    canvas.Fill({1.5, 3, 13, 11}, ORANGE, 1);
    canvas.Fill({1.5, 3, 13, 3}, ORANGE.darker(125), 0.6);
    canvas.Fill({6.6, 4.6, 2.8, 4.8}, PAPER, 0.6);
}

void DrawOpen(Canvas &canvas)
{
    canvas.Fill({1, 3, 6, 4}, YELLOW.darker(115));
    canvas.Fill({1, 4.5, 12.5, 9.5}, YELLOW.darker(115));
    canvas.Shape({{3.6, 7.2}, {15.6, 7.2}, {13.2, 14}, {1, 14}}, YELLOW.lighter(112));
}

void DrawSave(Canvas &canvas)
{
    canvas.Fill({1.5, 1.5, 13, 13}, BLUE, 1.2);
    canvas.Fill({4, 1.5, 7.5, 4.6}, PAPER, 0.4);
    canvas.Fill({8.6, 2.2, 1.8, 3}, BLUE, 0.3);
    canvas.Fill({3.6, 8.2, 8.8, 6.3}, PAPER, 0.4);
}

void DrawTurn(Canvas &canvas)
{
    canvas.Arc({3.5, 4.5, 9, 9}, -60, 190, BLUE, 2);
    canvas.Shape({{1, 7.6}, {6.6, 7.6}, {3.4, 12}}, BLUE);
}

void DrawOutput(Canvas &canvas)
{
    canvas.Frame({1.5, 2.5, 13, 11}, GREY, PAPER);
    canvas.Fill({1.5, 2.5, 13, 2.6}, GREY, 0.8);
    canvas.Line({{4, 7.2}, {6, 8.7}, {4, 10.2}}, GREEN, 1.2);
    canvas.Line({{7.6, 11}, {11.6, 11}}, GREEN, 1.2);
}

void DrawAbout(Canvas &canvas)
{
    canvas.Disc({8, 8}, 6.8, BLUE);
    canvas.Disc({8, 4.7}, 1.15, PAPER);
    canvas.Fill({7, 6.8, 2, 5.4}, PAPER, 0.8);
}

void DrawClose(Canvas &canvas)
{
    const QColor color = QGuiApplication::palette().windowText().color();
    canvas.Line({{4, 4}, {12, 12}}, color, 1.4);
    canvas.Line({{12, 4}, {4, 12}}, color, 1.4);
}

/// An M of two peaks in a chip with its pins.
void DrawApplication(Canvas &canvas)
{
    for (const qreal at : {4.0, 7.2, 10.4}) {
        canvas.Fill({at, 0.4, 1.6, 15.2}, GREY, 0.5);
        canvas.Fill({0.4, at, 15.2, 1.6}, GREY, 0.5);
    }
    canvas.Fill({2, 2, 12, 12}, QColor(0x24, 0x5C, 0xA8), 2);
    canvas.Line({{4.4, 11.4}, {4.4, 5}, {8, 9.4}, {11.6, 5}, {11.6, 11.4}}, PAPER, 1.7);
}

/// A disc with a cross.
void DrawError(Canvas &canvas)
{
    canvas.Disc({8, 8}, 7, SIGNAL_RED);
    canvas.Line({{5.4, 5.4}, {10.6, 10.6}}, Qt::white, 2);
    canvas.Line({{10.6, 5.4}, {5.4, 10.6}}, Qt::white, 2);
}

/// A triangle with an exclamation mark.
void DrawWarning(Canvas &canvas)
{
    canvas.Line({{8, 2.6}, {14, 13.4}, {2, 13.4}, {8, 2.6}}, AMBER, 2);
    canvas.Shape({{8, 2.6}, {14, 13.4}, {2, 13.4}}, AMBER);
    canvas.Line({{8, 6.2}, {8, 9.4}}, Qt::black, 1.8);
    canvas.Disc({8, 12.2}, 1.1, Qt::black);
}

/// A square with lines of writing.
void DrawNote(Canvas &canvas)
{
    canvas.Fill({1.5, 1.5, 13, 13}, BLUE, 2.5);
    canvas.Line({{4.6, 5.4}, {11.4, 5.4}}, Qt::white, 1.5);
    canvas.Line({{4.6, 8.4}, {11.4, 8.4}}, Qt::white, 1.5);
    canvas.Line({{4.6, 11.4}, {8.4, 11.4}}, Qt::white, 1.5);
}

struct Drawing
{
    UiIcon icon;
    void (*draw)(Canvas &canvas);
};

constexpr Drawing DRAWINGS[] = {
    {UiIcon::Files, DrawFiles},
    {UiIcon::Audio, DrawAudio},
    {UiIcon::Video, DrawVideo},
    {UiIcon::Binary, DrawBinary},
    {UiIcon::Images, DrawImages},
    {UiIcon::Resolution, [](Canvas &canvas) { DrawScreen(canvas, BLUE); }},
    {UiIcon::DefaultResolution, DrawDefaultResolution},
    {UiIcon::ComponentImages, DrawComponentImages},
    {UiIcon::Strings, DrawStrings},
    {UiIcon::Layouts, DrawLayouts},
    {UiIcon::Project, DrawProject},
    {UiIcon::NewFile, DrawNewFile},
    {UiIcon::MissingFile, DrawMissingFile},
    {UiIcon::NoFile, DrawNoFile},
    {UiIcon::TextFile, DrawTextFile},
    {UiIcon::Archive, DrawArchive},
    {UiIcon::Open, DrawOpen},
    {UiIcon::Save, DrawSave},
    {UiIcon::Undo, DrawTurn},
    {UiIcon::Redo,
     [](Canvas &canvas) {
         canvas.MirrorAround(8);
         DrawTurn(canvas);
     }},
    {UiIcon::Output, DrawOutput},
    {UiIcon::About, DrawAbout},
    {UiIcon::Close, DrawClose},
    {UiIcon::Application, DrawApplication},
    {UiIcon::Error, DrawError},
    {UiIcon::Warning, DrawWarning},
    {UiIcon::Note, DrawNote},
};

void Draw(UiIcon icon, QPainter &painter)
{
    Canvas canvas(painter);
    for (const Drawing &drawing : DRAWINGS) {
        if (drawing.icon == icon)
            return drawing.draw(canvas);
    }
}

class VectorEngine : public QIconEngine
{
public:
    explicit VectorEngine(UiIcon which) : icon(which) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        if (mode == QIcon::Selected)
            PaintHalo(*painter, rect);
        const int side = qMin(rect.width(), rect.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.x() + (rect.width() - side) / 2.0, rect.y() + (rect.height() - side) / 2.0);
        painter->scale(side / 16.0, side / 16.0);
        if (mode == QIcon::Disabled)
            painter->setOpacity(QGuiApplication::palette().window().color().lightness() < 128 ? 0.55 : 0.35);
        Draw(icon, *painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap made(size);
        made.fill(Qt::transparent);
        QPainter painter(&made);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return made;
    }

    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal) override
    {
        return pixmap(size, mode, state);
    }

    bool isNull() override { return icon == UiIcon::None; }

    [[nodiscard]] QIconEngine *clone() const override { return new VectorEngine(icon); }

private:
    /// Paints an edge in the colour of selected text around the icon, because the icon may have the colour of the
    /// selection.
    void PaintHalo(QPainter &painter, const QRect &rect)
    {
        const qreal ratio = painter.device()->devicePixelRatioF();
        QPixmap shape = pixmap(rect.size() * ratio, QIcon::Normal, QIcon::Off);
        shape.setDevicePixelRatio(ratio);
        QPainter inner(&shape);
        inner.setCompositionMode(QPainter::CompositionMode_SourceIn);
        inner.fillRect(QRect(QPoint(), rect.size()), QGuiApplication::palette().highlightedText());
        inner.end();
        for (const QPointF &offset : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)})
            painter.drawPixmap(rect.topLeft() + offset * (rect.width() / 16.0), shape);
    }

    UiIcon icon;
};

} // namespace

QIcon MakeIcon(UiIcon icon)
{
    return icon == UiIcon::None ? QIcon() : QIcon(new VectorEngine(icon));
}
