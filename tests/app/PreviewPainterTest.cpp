// SPDX-License-Identifier: MIT
#include "PreviewPainter.h"

#include "Environment.h"
#include "PreviewZoom.h"
#include "ZulType.h"

#include <QApplication>
#include <QPainter>

#include <rapidcheck.h>

#include <gtest/gtest.h>

#include <limits>

namespace
{

constexpr QColor SURROUND(1, 2, 3);
constexpr QColor FOCUS(4, 5, 6);

struct Preview
{
    void Add(const PreviewRect &rect, quint32 background, quint32 border, const NarrowText &name = " ")
    {
        components.push_back(std::make_unique<CZulClass>(catalogue));
        components.back()->propName = name;
        entries.push_back({components.back().get(), rect, background, border, 0, {}});
    }
    /// Paints a region of the preview into an image, and checks that no other pixel changes.
    [[nodiscard]] QImage Paint(const QRegion &region, qreal scale = 1)
    {
        QImage image(view.size() * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(0);
        painter.look = {SURROUND, FOCUS};
        painter.labels.Reset(entries.size());
        painter.labels.SetFont(QApplication::font());
        QPainter target(&image);
        painter.Paint(target, {entries, zoom, corner, view, selected, true}, region);
        return image;
    }

    ClassCatalogue catalogue;
    Environment env{QStringLiteral("/nonexistent")};
    std::vector<std::unique_ptr<CZulClass>> components;
    PreviewEntries entries;
    PreviewZoom zoom;
    PreviewPainter painter{env};
    QPoint corner{20, 20};
    QRect view{0, 0, 200, 140};
    const CZulClass *selected = nullptr;
};

} // namespace

TEST(PreviewPainter, PaintsHigherComponentsOverLowerOnesWithoutClipping)
{
    Preview preview;
    preview.zoom.SetScreen({320, 200});
    preview.zoom.Set(50);                                           // the screen extends from (20, 20) to (180, 120)
    preview.Add({20, 20, 120, 100}, 0x0000FF, 0x00FF00);            // red, from (30, 30) to (80, 70)
    preview.Add({40, 40, 80, 80}, 0xFF0000, 0x123456);              // blue, inside it
    preview.Add({-40, 150, 40, 190}, 0x00FFFF, FRAME_NO_VALUE);     // yellow, across the screen's edge
    preview.Add({200, 20, 300, 100}, FRAME_NO_PROPERTY, 0, "name"); // from (120, 30) to (170, 70)
    preview.Add({240, 150, 240, 150}, 0x0000FF, 0);                 // empty, at (140, 95)
    preview.selected = preview.components[1].get();
    for (const int scale : {1, 2}) {
        const QImage image = preview.Paint(preview.view, scale);
        const auto at = [&](int x, int y) {
            // Checks both corners of the pixel: lines are sharp at any scale.
            EXPECT_EQ(image.pixel(x * scale, y * scale), image.pixel((x + 1) * scale - 1, (y + 1) * scale - 1))
                << x << ' ' << y;
            return QColor(image.pixel(x * scale, y * scale));
        };
        const struct
        {
            int x, y;
            QColor expected;
        } points[] = {
            {5, 5, SURROUND},     {17, 40, FOCUS},       {18, 40, SURROUND},   {19, 40, Qt::black},
            {100, 19, Qt::black}, {100, 120, Qt::white}, {180, 40, Qt::white}, {182, 40, FOCUS},
            {30, 50, Qt::green},  {31, 50, Qt::red},     {79, 50, Qt::green},  {39, 50, Qt::red},
            {40, 50, Qt::red},    {42, 50, Qt::blue},    {60, 50, Qt::red},    {61, 50, Qt::red},
            {45, 60, Qt::red},    {45, 57, Qt::blue},    {5, 100, Qt::yellow}, {35, 100, Qt::yellow},
            {120, 50, Qt::black}, {169, 69, Qt::black},
        };
        for (const auto &point : points)
            EXPECT_EQ(at(point.x, point.y), point.expected) << point.x << ',' << point.y << " at " << scale;
        int inked = 0; // pixels of the label, and of the ellipsis of the component without a size
        for (int x = 121; x < 169; ++x)
            inked += qGray(image.pixel(x * scale, 40 * scale)) < 100 ? 1 : 0;
        EXPECT_GT(inked, 3);
        EXPECT_GT(qGray(image.pixel(123 * scale, 60 * scale)), 200) << "the placeholder is pale";
        const QImage beside = image.copy(130 * scale, 85 * scale, 20 * scale, 20 * scale);
        int dark = 0;
        for (int i = 0; i < beside.width() * beside.height(); ++i)
            dark += qGray(beside.pixel(i % beside.width(), i / beside.width())) < 100 ? 1 : 0;
        EXPECT_GT(dark, 2);
    }
}

TEST(PreviewPainter, MatchesAPixelByPixelReferenceAtAnyZoomAndRepaintsAnyPart)
{
    EXPECT_TRUE(rc::check([] {
        constexpr qint32 MAX = std::numeric_limits<qint32>::max();
        const auto number = [](int from, int to) { return *rc::gen::inRange(from, to); };
        const auto coordinate = [&] {
            return *rc::gen::weightedElement<qint32>({{20, number(-60, 120)}, {1, MAX}, {1, -MAX - 1}});
        };
        Preview preview;
        preview.view = QRect(0, 0, 90, 60);
        preview.corner = QPoint(number(-30, 40), number(-30, 40));
        preview.zoom.Set(*rc::gen::element(10, 50, 99, 100, 250, 1000, 30'000));
        const bool isPlain = number(0, 2) == 0; // only rectangles, without screen and labels
        preview.zoom.SetScreen(isPlain ? QSize(0, 0) : QSize(number(1, 60), number(1, 60)));
        for (int i = number(0, 20); i > 0; --i) {
            PreviewRect rect{coordinate(), coordinate(), coordinate(), coordinate()};
            if (isPlain)
                rect = {std::min(rect.left, rect.right), std::min(rect.top, rect.bottom),
                        std::max(rect.left, rect.right), std::max(rect.top, rect.bottom)};
            const bool hasColor = isPlain || number(0, 3) > 0;
            preview.Add(rect, hasColor ? quint32(number(0, 1 << 24)) : FRAME_NO_PROPERTY, quint32(number(0, 1 << 24)),
                        isPlain ? " " : *rc::gen::element<NarrowText>("ab", "a long name of a component", " "));
        }
        if (!preview.entries.empty() && !isPlain)
            preview.selected = preview.components[size_t(number(0, int(preview.components.size())))].get();

        const QImage whole = preview.Paint(preview.view);
        QRegion part(number(0, 80), number(0, 50), number(1, 30), number(1, 30));
        part += QRect(number(0, 80), number(0, 50), 3, 3);
        const QImage again = preview.Paint(part & preview.view);
        const auto onScreen = [&](qint32 value, int start) {
            return qint64(value) * preview.zoom.Percent() / 100 + start;
        };
        for (int x = 0; x < preview.view.width(); ++x) {
            for (int y = 0; y < preview.view.height(); ++y) {
                if (part.contains(QPoint(x, y)))
                    RC_ASSERT(again.pixel(x, y) == whole.pixel(x, y));
                quint32 expected = 0;
                bool isCovered = false;
                bool isNearEllipsis = false;
                for (const PreviewEntry &entry : preview.entries) {
                    const qint64 left = onScreen(entry.rect.left, preview.corner.x());
                    const qint64 right = onScreen(entry.rect.right, preview.corner.x());
                    const qint64 top = onScreen(entry.rect.top, preview.corner.y());
                    const qint64 bottom = onScreen(entry.rect.bottom, preview.corner.y());
                    if (left >= right || top >= bottom)
                        isNearEllipsis |= std::abs(x - (left + right) / 2) < 20 && std::abs(y - top) < 30;
                    if (x < left || x >= right || y < top || y >= bottom)
                        continue;
                    isCovered = true;
                    const bool isEdge = x == left || x == right - 1 || y == top || y == bottom - 1;
                    expected = isEdge ? entry.border : entry.background;
                }
                if (isPlain && isCovered && !isNearEllipsis)
                    RC_ASSERT((whole.pixel(x, y) & 0xFFFFFF) ==
                              ((expected & 0xFF) << 16 | (expected & 0xFF00) | expected >> 16));
            }
        }
    }));
}
