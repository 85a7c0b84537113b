// SPDX-License-Identifier: MIT
// The check of a project's pictures, compared with reading the first 64 KiB of each: at most twice that time is wanted.
#include "CResDoc.h"
#include "CheckProject.h"
#include "PictureModule.h"
#include "Rules.h"
#include "TextContext.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <benchmark/benchmark.h>

#include <chrono>
#include <fcntl.h>
#include <unistd.h>
#include <zlib.h>

using namespace Qt::StringLiterals;

extern "C" const PictureFunctions MorvanitePictures;

namespace
{

constexpr int PICTURES = 10'000;

enum class Pictures
{
    Opaque,      ///< BMP
    WithAlpha,   ///< PNG; outside of a circle the pixels are transparent, as in most icons
    OpaqueAlpha, ///< PNG with an alpha channel, but without a transparent pixel
};

QByteArray Bmp(int width, int height, int number)
{
    const quint32 header[] = {0, 0, 54, 40, quint32(width), quint32(height), 24U << 16 | 1, 0, 0, 0, 0, 0, 0};
    QByteArray bytes = "BM" + QByteArray(reinterpret_cast<const char *>(header), sizeof header);
    bytes += QByteArray::number(number);
    bytes.resize(54 + (width * 3 + 3) / 4 * 4 * height);
    return bytes;
}

QByteArray Big(quint32 value)
{
    const quint32 big = qToBigEndian(value);
    return {reinterpret_cast<const char *>(&big), sizeof big};
}

QByteArray Chunk(const QByteArray &nameAndData)
{
    const auto *const bytes = reinterpret_cast<const Bytef *>(nameAndData.constData());
    return Big(quint32(nameAndData.size() - 4)) + nameAndData + Big(quint32(crc32(0, bytes, uInt(nameAndData.size()))));
}

QByteArray Png(int width, int height, int number, bool isRound)
{
    QByteArray rows;
    for (int y = 0; y < height; ++y) {
        rows += '\0'; // no filter
        for (int x = 0; x < width; ++x) {
            const int right = 2 * x - width;
            const int down = 2 * y - height;
            const bool isInside =
                right * right * height * height + down * down * width * width < width * width * height * height;
            rows += char(x + number);
            rows += char(y * 3);
            rows += char(number);
            rows += isInside || !isRound ? '\xFF' : '\0';
        }
    }
    const QByteArray packed = qCompress(rows).sliced(4); // without Qt's length
    return "\x89PNG\r\n\x1A\n" +
           Chunk("IHDR" + Big(quint32(width)) + Big(quint32(height)) + QByteArray("\x8\x6\0\0\0", 5)) +
           Chunk("IDAT" + packed) + Chunk("IEND");
}

/// A project with small pictures, up to 150 KiB as BMP, half of them for each of two screens.
class PicturesProject
{
public:
    explicit PicturesProject(Pictures kind)
    {
        Put(u"bin/Morvanite.ini"_s, "[Path]\nreso_set=sizes.ini\n");
        Put(u"bin/sizes.ini"_s, "[Resolution]\n240x320\n480x640\n");
        Put(u"config.xml"_s, "<a><zxa><zepversion>20</zepversion></zxa><resolution><Width>240</Width>"
                             "<Height>320</Height></resolution></a>");
        QByteArray list = "<APP>\n<RESOLUTION width=\"240\" height=\"320\" class=\"image\">\n";
        for (int number = 0; number < PICTURES; ++number) {
            if (number == PICTURES / 2)
                list += "</RESOLUTION>\n<RESOLUTION width=\"480\" height=\"640\" class=\"image\">\n";
            const int id = number % (PICTURES / 2);
            const int scale = number < PICTURES / 2 ? 1 : 2;
            const QString name =
                u"pictures/%1/%2.%3"_s.arg(scale).arg(id).arg(kind == Pictures::Opaque ? u"bmp"_s : u"png"_s);
            const int width = scale * (20 + id % 40);
            const int height = scale * (20 + id % 31);
            Put(name, kind == Pictures::Opaque ? Bmp(width, height, number)
                                               : Png(width, height, number, kind == Pictures::WithAlpha));
            paths.append(QFile::encodeName(folder.filePath(name)));
            list +=
                "<IMAGE id=\"ID_" + QByteArray::number(id) + "\">.\\" + name.toUtf8().replace('/', '\\') + "</IMAGE>\n";
        }
        Put(u"res/demo.res.xml"_s, list + "</RESOLUTION>\n</APP>\n");
        env = std::make_unique<Environment>(folder.filePath(u"bin"_s));
        tables.LoadOnce(*env);
        document = static_cast<CResDoc *>(documents.OpenDocumentFile(folder.filePath(u"demo.vcproj"_s)));
    }

    QList<QByteArray> paths;
    std::unique_ptr<Environment> env;
    CResDoc *document = nullptr;

private:
    void Put(const QString &name, const QByteArray &bytes) const
    {
        QFile file(folder.filePath(name));
        QDir().mkpath(QFileInfo(file).path());
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }

    QTemporaryDir folder;
    ProcessTables tables;
    CFrameServices services;
    CDocManager documents{[this] { return std::make_unique<CResDoc>(*env, tables, services); }};
};

/// Opens each picture and reads its first 64 KiB.
void ReadStarts(const PicturesProject &project)
{
    QByteArray start(64 * 1024, Qt::Uninitialized);
    for (const QByteArray &path : project.paths) {
        const int file = open(path.constData(), O_RDONLY | O_CLOEXEC);
        benchmark::DoNotOptimize(read(file, start.data(), size_t(start.size())));
        close(file);
    }
}

/// All rules of files and images, with their defaults, without a finding. "ratio" is the time divided by that of
/// reading the starts.
void CheckOfPictures(benchmark::State &state, Pictures kind)
{
    const PicturesProject project(kind);
    CResDoc &document = *project.document;
    CheckSettings settings;
    for (const Rule &rule : AllRules()) {
        if (rule.group != RuleGroup::Files && rule.group != RuleGroup::Images)
            settings.levels[IndexOf(rule)] = RuleLevel::Off;
    }
    const TextContext texts(document, settings);
    double ours = 0;
    double starts = 0;
    ReadStarts(project);
    for (auto _ : state) {
        const auto from = std::chrono::steady_clock::now();
        const auto findings = CheckProject({document, settings, texts, {}, {}, {}, MorvanitePictures.countAlpha});
        if (!findings.empty())
            state.SkipWithError(qUtf8Printable(findings.front().text));
        const auto between = std::chrono::steady_clock::now();
        ReadStarts(project);
        ours += std::chrono::duration<double>(between - from).count();
        starts += std::chrono::duration<double>(std::chrono::steady_clock::now() - between).count();
    }
    state.counters["ratio"] = ours / starts;
    state.counters["ms"] = ours * 1e3 / double(state.iterations());
}
BENCHMARK_CAPTURE(CheckOfPictures, Opaque, Pictures::Opaque)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CheckOfPictures, WithAlpha, Pictures::WithAlpha)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CheckOfPictures, OpaqueAlpha, Pictures::OpaqueAlpha)->Unit(benchmark::kMillisecond);

} // namespace
