// SPDX-License-Identifier: MIT
// Thumbnails: their cost for the main thread compared with the decoding, and the delay that they cause for its other
// work.
#include "PictureDecoding.h"
#include "PictureInput.h"
#include "PictureLoader.h"
#include "application.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <ctime>

namespace
{

constexpr int FILES = 5'000;
constexpr int SIDE = 24;
constexpr int IN_SIGHT = 300; // requested at a time, as by a list that is scrolled

QByteArray Encoded(int number)
{
    const QSize size(24 + number * 37 % 460, 24 + number * 53 % 320);
    QImage image(size, number % 3 ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, size.width(), size.height());
    gradient.setColorAt(0, QColor::fromHsv(number * 7 % 360, 120, 200, 90));
    gradient.setColorAt(1, QColor::fromHsv(number * 3 % 360, 200, 90));
    painter.fillRect(image.rect(), gradient);
    for (int i = 0; i < 40; ++i)
        painter.fillRect(i * 31 % size.width(), i * 17 % size.height(), 9, 7, QColor::fromHsv(i * 9, 200, 255 - i));
    painter.end();
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    image.save(&bytes, number % 3 == 0 ? "PNG" : number % 3 == 1 ? "BMP" : "JPG");
    return bytes.data();
}

/// Pictures of the usual sizes and kinds of projects.
class PictureFiles
{
public:
    PictureFiles()
    {
        QList<QByteArray> different;
        for (int number = 0; number < 60; ++number)
            different.append(Encoded(number));
        for (int number = 0; number < FILES; ++number) {
            QFile file(folder.filePath(QString::number(number)));
            if (file.open(QIODevice::WriteOnly))
                file.write(different[number % different.size()]);
            paths.append(QFile::encodeName(file.fileName()));
        }
    }
    [[nodiscard]] const QByteArrayList &Paths() const { return paths; }

private:
    QTemporaryDir folder;
    QByteArrayList paths;
};

double ThreadSeconds()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

/// Measures the worst delay of a timer of 5 ms while this object exists, in milliseconds.
class Lateness
{
public:
    Lateness()
    {
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, [this] {
            worst = qMax(worst, double(since.nsecsElapsed()) / 1e6 - PERIOD_MS);
            since.start();
        });
        since.start();
        timer.start(PERIOD_MS);
    }
    [[nodiscard]] double Worst() const { return worst; }

private:
    static constexpr int PERIOD_MS = 5;
    QTimer timer;
    QElapsedTimer since;
    double worst = 0;
};

double DecodeAlone(const QByteArrayList &paths)
{
    const std::atomic<bool> isStopped = false;
    const double start = ThreadSeconds();
    for (const QByteArray &path : paths) {
        PictureInput input(path, isStopped);
        benchmark::DoNotOptimize(InSquare(DecodePicture(input, QSize(SIDE, SIDE)).picture, SIDE).width());
    }
    return ThreadSeconds() - start;
}

/// Loads the thumbnails of all files, with the event loop of the main thread.
void LoadAll(const QByteArrayList &paths)
{
    PictureLoader loader;
    QEventLoop loop;
    qsizetype next = 0;
    QByteArrayList missing;
    const auto ask = [&] {
        missing.removeIf([&](const QByteArray &path) {
            bool isKnown = false;
            (void)loader.Thumbnail(path, SIDE, &isKnown);
            return isKnown;
        });
        for (; missing.size() < IN_SIGHT && next < paths.size(); ++next) {
            missing.append(paths[next]);
            (void)loader.Thumbnail(paths[next], SIDE);
        }
        if (missing.isEmpty())
            loop.quit();
    };
    loader.thumbnailsLoaded = ask;
    ask();
    loop.exec();
}

/// "ratio" is the main thread's processor time divided by that of decoding alone; at most 0.05 is required. "late_ms"
/// is the worst delay of a timer of 5 ms during that time; it may be 20 ms above "idle_ms", the delay without any work.
void Thumbnails(benchmark::State &state)
{
    NeedApplication();
    const PictureFiles files;
    double decoding = 0;
    double ours = 0;
    double late = 0;
    double idle = 0;
    for (auto _ : state) {
        decoding += DecodeAlone(files.Paths());
        const double start = ThreadSeconds();
        LoadAll(files.Paths());
        ours += ThreadSeconds() - start;
        QElapsedTimer wall;
        wall.start();
        {
            const Lateness lateness;
            LoadAll(files.Paths());
            late = qMax(late, lateness.Worst());
        }
        const Lateness lateness;
        QEventLoop loop;
        QTimer::singleShot(int(wall.elapsed()), &loop, &QEventLoop::quit);
        loop.exec();
        idle = qMax(idle, lateness.Worst());
    }
    state.counters["ratio"] = ours / decoding;
    state.counters["late_ms"] = late;
    state.counters["idle_ms"] = idle;
    state.counters["decoding_ms"] = decoding * 1000 / double(state.iterations());
}
BENCHMARK(Thumbnails)->Iterations(3)->Unit(benchmark::kMillisecond);

} // namespace
