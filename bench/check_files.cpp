// SPDX-License-Identifier: MIT
// The check of a project's pictures, compared with reading the first 64 KiB of each: at most twice that time.
#include "CResDoc.h"
#include "CheckProject.h"
#include "Rules.h"
#include "TextContext.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int PICTURES = 10'000;

/// A project with pictures of 1 to 150 KiB, half of them for each of two screens.
class PicturesProject
{
public:
    PicturesProject()
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
            const QString name = u"pictures/%1/%2.bmp"_s.arg(scale).arg(id);
            Put(name, Bmp(scale * (20 + id % 40), scale * (20 + id % 31), number));
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
    static QByteArray Bmp(int width, int height, int number)
    {
        const quint32 header[] = {0, 0, 54, 40, quint32(width), quint32(height), 24U << 16 | 1, 0, 0, 0, 0, 0, 0};
        QByteArray bytes = "BM" + QByteArray(reinterpret_cast<const char *>(header), sizeof header);
        bytes += QByteArray::number(number);
        bytes.resize(54 + (width * 3 + 3) / 4 * 4 * height);
        return bytes;
    }

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

const PicturesProject &Project()
{
    static const PicturesProject project;
    return project;
}

/// All rules of files and images, with their defaults, without a finding.
void CheckOfPictures(benchmark::State &state)
{
    CResDoc &document = *Project().document;
    CheckSettings settings;
    for (const Rule &rule : AllRules()) {
        if (rule.group != RuleGroup::Files && rule.group != RuleGroup::Images)
            settings.levels[IndexOf(rule)] = RuleLevel::Off;
    }
    const TextContext texts(document, settings);
    for (auto _ : state) {
        if (const auto findings = CheckProject({document, settings, texts, {}, {}, {}}); !findings.empty())
            state.SkipWithError(qUtf8Printable(findings.front().text));
    }
    state.SetItemsProcessed(state.iterations() * PICTURES);
}
BENCHMARK(CheckOfPictures)->Unit(benchmark::kMillisecond);

/// For comparison: opening each picture and reading its first 64 KiB.
void StartsOfPictures(benchmark::State &state)
{
    QByteArray start(64 * 1024, Qt::Uninitialized);
    for (auto _ : state) {
        for (const QByteArray &path : Project().paths) {
            const int file = open(path.constData(), O_RDONLY | O_CLOEXEC);
            benchmark::DoNotOptimize(read(file, start.data(), size_t(start.size())));
            close(file);
        }
    }
    state.SetItemsProcessed(state.iterations() * PICTURES);
}
BENCHMARK(StartsOfPictures)->Unit(benchmark::kMillisecond);

} // namespace
