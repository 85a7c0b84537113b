// SPDX-License-Identifier: MIT
#include "Pictures.h"

#include "TestWindow.h"

#include <cstdio>

namespace
{

// The references have 256 colours, each at most 16 from the true one, and processors round differently in the last
// bits. A text that changes changes more pixels than this, from light to dark.
constexpr int CHANNEL_TOLERANCE = 24, PIXEL_TOLERANCE = 20;

QImage Grab(QWidget &widget)
{
    TestWindow::Settle();
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

bool IsNear(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) <= CHANNEL_TOLERANCE && qAbs(qGreen(a) - qGreen(b)) <= CHANNEL_TOLERANCE &&
           qAbs(qBlue(a) - qBlue(b)) <= CHANNEL_TOLERANCE;
}

/// The number of pixels that differ; all of them if the sizes do.
int CountDifferences(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return a.width() * a.height();
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += int(!IsNear(a.pixel(x, y), b.pixel(x, y)));
    return count;
}

} // namespace

void Pictures::Take(const char *name, QWidget &widget)
{
    const QString file = QLatin1String(name) + u".png"_s;
    taken.append(file);
    QImage image = Grab(widget);
    int differences = 0;
    if (references.isEmpty()) {
        TestWindow::WaitFor([&] {
            const QImage before = image;
            QTest::qWait(500);
            image = Grab(widget);
            return image == before;
        });
    } else {
        const QImage reference = QImage(references + u'/' + file).convertToFormat(QImage::Format_RGB32);
        TestWindow::WaitFor([&] {
            image = Grab(widget);
            differences = CountDifferences(image, reference);
            return differences <= PIXEL_TOLERANCE;
        });
    }
    if (!image.save(folder + u'/' + file))
        throw std::runtime_error("Can't write " + file.toStdString());
    if (differences <= PIXEL_TOLERANCE)
        return;
    ++differing;
    std::printf("%s: %d of %d pixels differ from those in %s.\n", qPrintable(file), differences,
                image.width() * image.height(), qPrintable(references));
}

int Pictures::Missing() const
{
    int count = 0;
    for (const QString &file : QDir(references).entryList({u"*.png"_s})) {
        if (taken.contains(file))
            continue;
        std::printf("%s/%s: no view is taken for this picture.\n", qPrintable(references), qPrintable(file));
        ++count;
    }
    return count;
}
