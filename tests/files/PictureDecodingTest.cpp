// SPDX-License-Identifier: MIT
#include "PictureDecoding.h"
#include "DevicePicture.h"
#include "SamplePictures.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace
{

LoadedPicture Decode(QByteArray bytes, QSize most = {64, 64})
{
    QBuffer input(&bytes);
    input.open(QIODevice::ReadOnly);
    return DecodePicture(input, most);
}

QByteArray Argb8888()
{
    return QByteArray::fromHex("4d494d4701020018020000000100000008000000080000000080ffff30201040");
}

QByteArray BmpFromTheTop()
{
    QImage image(5, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bmp = Encoded(image, "BMP");
    return bmp.replace(22, 4, QByteArray::fromHex("fdffffff"));
}

} // namespace

TEST(PictureDecoding, DecodesSizeAndFirstPixelOfEachKind)
{
    const QColor faint(255, 0, 0, 128);
    const struct
    {
        QByteArray file;
        QSize size;
        QRgb pixel;
    } cases[] = {
        {Png(200, 100, Qt::red, QImage::Format_RGB32), {200, 100}, 0xFFFF0000},
        {Png(5, 3, faint, QImage::Format_RGBA64), {5, 3}, faint.rgba()},
        {BmpFromTheTop(), {5, 3}, 0xFFFF0000},
        {MovingGif(), {3, 2}, 0xFFFF0000},
        {JpgOfInks(), {8, 8}, 0xFFFF0000},
        {Argb8888(), {2, 1}, 0xFFFF8000},
    };
    for (const auto &[file, size, pixel] : cases) {
        const LoadedPicture loaded = Decode(file);
        SCOPED_TRACE(file.first(4).toStdString());
        EXPECT_EQ(loaded.problem, QString());
        EXPECT_EQ(loaded.size, size);
        EXPECT_EQ(loaded.picture.size(), size == QSize(200, 100) ? QSize(64, 32) : size);
        for (int shift = 0; shift < 32; shift += 8) // CMYK and 16-bit colours are rounded
            EXPECT_NEAR(int(loaded.picture.pixelColor(0, 0).rgba() >> shift & 0xFF), int(pixel >> shift & 0xFF), 8);
    }
    EXPECT_TRUE(Decode(Png(5, 3, Qt::red), {}).picture.isNull()) << "only the size is wanted";
}

TEST(PictureDecoding, RefusesTooLargeAndUnknownFiles)
{
    const LoadedPicture large = Decode(PngThatClaims(30'000, 30'000));
    EXPECT_EQ(large.size, QSize(30'000, 30'000));
    EXPECT_EQ(large.problem, u"it has 30,000 x 30,000 pixels, more than 16 megapixels"_s);
    EXPECT_EQ(Decode("<svg xmlns='http://www.w3.org/2000/svg' width='5' height='5'/>").problem,
              u"it is not a bmp, gif, jpg or png picture"_s);
    EXPECT_EQ(Decode(Argb8888().replace(7, 1, "\x17")).problem,
              u"its header is damaged (header size 23, stride 8, data size 8)"_s);
    EXPECT_EQ(Decode("\xFF\xD8" + QByteArray("\xFF\xDA").repeated(300)).problem,
              u"it has more scans than a picture needs"_s);
}

TEST(PictureDecoding, AllocatesNoMoreThanTheFileNeeds)
{
    struct Input : QBuffer
    {
        qint64 readData(char *data, qint64 size) override
        {
            most = qMax(most, size);
            return QBuffer::readData(data, size);
        }
        qint64 most = 0;
    } input;
    // 1 x 1 pixels, with a row of 4 GiB
    input.setData(QByteArray::fromHex("4d494d47010200180100000001000000fcfffffffcffffff80ffff30"));
    input.open(QIODevice::ReadOnly);
    EXPECT_EQ(DecodePicture(input, {64, 64}).problem, u"it ends too early"_s);
    EXPECT_LT(input.most, 1 << 20);
}

TEST(PictureDecoding, TruncatedAndDamagedFilesDoNotCrash)
{
    const QByteArray files[] = {Png(9, 9, Qt::red), MovingGif(), JpgOfInks(), BmpFromTheTop(), Argb8888()};
    for (const QByteArray &file : files) {
        for (qsizetype size = 0; size < file.size(); ++size) {
            const LoadedPicture cut = Decode(file.first(size));
            EXPECT_NE(cut.picture.isNull(), cut.problem.isEmpty());
            EXPECT_TRUE(cut.picture.isNull() || !DevicePicture::IsClaimedBy(file)) << size;
            for (const char wrong : {'\0', '\x7F', '\xFF', char(file[size] + 1)}) {
                const LoadedPicture loaded = Decode(QByteArray(file).replace(size, 1, QByteArray(1, wrong)));
                EXPECT_LE(loaded.picture.width(), 64);
            }
        }
    }
}

TEST(PictureDecoding, EnlargesASmallPictureByAWholeFactor)
{
    QImage two(2, 1, QImage::Format_RGB32);
    two.setPixel(0, 0, 0xFFFF0000);
    two.setPixel(1, 0, 0xFF0000FF);
    const QImage square = InSquare(two, 7);
    EXPECT_EQ(square.size(), QSize(7, 7));
    EXPECT_EQ(square.pixel(0, 2), 0xFFFF0000);
    EXPECT_EQ(square.pixel(2, 4), 0xFFFF0000);
    EXPECT_EQ(square.pixel(3, 2), 0xFF0000FF);
    EXPECT_EQ(square.pixel(0, 1), 0U);
    EXPECT_EQ(square.pixel(6, 2), 0U);
    QImage white(2, 1, QImage::Format_ARGB32);
    white.fill(Qt::transparent);
    white.setPixel(0, 0, 0xFFFFFFFF);
    EXPECT_EQ(InSquare(white, 7).pixel(3, 2), 0xFF909090) << "it would not show on a white list";
}
