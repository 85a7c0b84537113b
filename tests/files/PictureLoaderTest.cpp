// SPDX-License-Identifier: MIT
#include "PictureLoader.h"
#include "ConverterRun.h"
#include "SamplePictures.h"
#include "TempFolder.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

struct LoaderTest : testing::Test
{
    [[nodiscard]] QByteArray Host(const char *name) const { return QFile::encodeName(folder.Path()) + '/' + name; }
    /// Waits for the thumbnail and returns it.
    QPixmap Await(const QByteArray &path)
    {
        QPixmap thumbnail;
        bool isKnown = false;
        EXPECT_TRUE(WaitUntil([&] {
            thumbnail = loader.Thumbnail(path, 16, &isKnown);
            return isKnown;
        })) << path.constData();
        return thumbnail;
    }
    LoadedPicture Loaded(const QByteArray &path)
    {
        std::optional<LoadedPicture> loaded;
        loader.Load(path, {300, 300}, [&](const LoadedPicture &picture) { loaded = picture; });
        EXPECT_TRUE(WaitUntil([&] { return loaded.has_value(); }));
        return loaded.value_or(LoadedPicture());
    }

    TempFolder folder;
    PictureLoader loader;
};

QRgb MiddleOf(const QPixmap &thumbnail)
{
    return thumbnail.toImage().pixel(8, 8);
}

} // namespace

TEST_F(LoaderTest, OtherFilesHaveNoThumbnailAndDoNotBlock)
{
    ASSERT_EQ(mkfifo(Host("pipe.png").constData(), 0600), 0);
    folder.MakeFolder("folder.png");
    folder.Put("empty.png", "");
    ASSERT_EQ(symlink("nowhere", Host("broken.png").constData()), 0);
    ASSERT_EQ(symlink("/dev/zero", Host("device.png").constData()), 0);
    for (const char *name : {"pipe.png", "folder.png", "empty.png", "broken.png", "device.png", "missing.png"})
        EXPECT_TRUE(Await(Host(name)).isNull()) << name;
    EXPECT_EQ(Loaded(Host("pipe.png")).problem, u"it is not a regular file"_s);
    EXPECT_EQ(Loaded(Host("missing.png")).problem, u"not found"_s);
    EXPECT_LT(Loaded(Host("missing.png")).bytes, 0);
}

TEST_F(LoaderTest, UpdatesTheThumbnailOfAFileWithAnyName)
{
    const QByteArray path = Host("\xFF\xFE \xE4.png");
    const auto put = [&path](const QColor &color) {
        const int file = open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const QByteArray png = Png(20, 20, color);
        EXPECT_EQ(write(file, png.constData(), size_t(png.size())), png.size());
        close(file);
    };
    put(Qt::red);
    EXPECT_EQ(MiddleOf(Await(path)), 0xFFFF0000);
    EXPECT_EQ(Await(path).size(), QSize(16, 16));
    put(Qt::blue);
    EXPECT_EQ(MiddleOf(Await(path)), 0xFFFF0000) << "it isn't checked again immediately";
    EXPECT_TRUE(WaitUntil([&] { return MiddleOf(Await(path)) == 0xFF0000FF; }));
    put(Qt::green);
    loader.Forget();
    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(WaitUntil([&] { return MiddleOf(Await(path)) == 0xFF00FF00; }));
    EXPECT_LT(clock.elapsed(), 2000) << "at once";
}

TEST_F(LoaderTest, ReportsOnlyTheLatestLoadAndReloadsDroppedThumbnails)
{
    folder.Put("a.png", Png(9, 9, Qt::red));
    folder.Put("b.png", Png(7, 7, Qt::red));
    bool isFirstTold = false;
    loader.Load(Host("a.png"), {}, [&](const LoadedPicture &) { isFirstTold = true; });
    for (int side = 1; side < 500; ++side)
        (void)loader.Thumbnail(Host("a.png"), side);
    loader.DropRequests();
    EXPECT_EQ(Loaded(Host("b.png")).size, QSize(7, 7));
    EXPECT_FALSE(isFirstTold);
    EXPECT_FALSE(Await(Host("a.png")).isNull());
}

TEST_F(LoaderTest, CanBeDestroyedWhileItLoads)
{
    QImage image(2000, 2000, QImage::Format_RGB32);
    image.fill(Qt::red);
    folder.Put("large.jpg", Encoded(image, "JPG"));
    for (int round = 0; round < 5; ++round) {
        PictureLoader short_lived;
        for (int side = 1; side < 100; ++side)
            (void)short_lived.Thumbnail(Host("large.jpg"), side);
        short_lived.Load(Host("large.jpg"), {500, 500}, [](const LoadedPicture &) { FAIL(); });
        short_lived.thumbnailsLoaded = [] { FAIL(); };
    }
}

TEST_F(LoaderTest, ShowsWhatTheConverterMakes)
{
    for (const auto &[color, bytes, shown] : {std::tuple(QColor(255, 128, 3), 24 + 2 * 8, 0xFFFF8200U),
                                              {QColor(255, 0, 0, 0x55), 24 + 2 * 12, 0x55FF0000U}}) {
        folder.Put("a.png", Png(3, 2, color));
        ConverterRun converter(QStringLiteral(CONVERTER));
        QByteArray made;
        converter.Start(Host("a.png"), "png", [&](const QByteArray &file, const QString &problem) {
            EXPECT_EQ(problem, QString());
            made = file;
        });
        ASSERT_TRUE(WaitUntil([&] { return !made.isEmpty(); }));
        const LoadedPicture loaded = Loaded(made);
        EXPECT_EQ(loaded.bytes, bytes);
        EXPECT_EQ(loaded.picture.pixelColor(2, 1).rgba(), shown);
        converter.Stop();
        EXPECT_TRUE(WaitUntil([&] { return !QFile::exists(QFile::decodeName(made)); }));
        EXPECT_EQ(folder.Names(), QStringList{u"a.png"_s}) << "no other file is left";
    }
}

TEST_F(LoaderTest, ReportsAFailedConverterAndEndsAHangingOne)
{
    folder.Put("a.png", Png(2, 2, Qt::red));
    const auto convert = [this](const char *script, int limitMs) {
        folder.Put("converter", QByteArray("#!/bin/sh\n") + script);
        chmod(Host("converter").constData(), 0700);
        ConverterRun converter(folder.Path("converter"));
        QString told;
        converter.Start(Host("a.png"), "png", [](const QByteArray &, const QString &) { FAIL() << "it is replaced"; });
        converter.Start(
            Host("a.png"), "png", [&](const QByteArray &, const QString &problem) { told = problem; }, limitMs);
        EXPECT_TRUE(WaitUntil([&] { return !told.isEmpty(); })) << script;
        return told;
    };
    EXPECT_EQ(convert("exec sleep 60", 100), u"takes too long"_s);
    EXPECT_EQ(convert("exit 0", 5000), u"wrote no file"_s);
    EXPECT_EQ(convert("exit 3", 5000), u"ended with status 3"_s);
    EXPECT_THAT(convert("kill -9 $$", 5000).toStdString(), testing::StartsWith("was ended by signal 9"));
    EXPECT_EQ(convert("echo \"qrk_resgenerator.exe: $3: breaks off\" >&2; exit 1", 5000), u"says: breaks off"_s);
    QFile::remove(folder.Path("converter"));
    ConverterRun missing(folder.Path("converter"));
    QString told;
    missing.Start(Host("a.png"), "png", [&](const QByteArray &, const QString &problem) { told = problem; });
    EXPECT_TRUE(WaitUntil([&] { return told.contains(u"is missing"); }));
}
