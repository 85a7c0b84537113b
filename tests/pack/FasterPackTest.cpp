// SPDX-License-Identifier: MIT
#include "FileLimit.h"
#include "PackProject.h"
#include "PictureCache.h"

#include <QDir>

#include <atomic>
#include <fcntl.h>
#include <random>
#include <thread>

namespace
{

/// The files of a folder with their contents.
std::map<QString, QByteArray> FilesIn(const QString &folder)
{
    std::map<QString, QByteArray> files;
    for (const QString &name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        QFile file(folder + u'/' + name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        files[name] = file.readAll();
    }
    return files;
}

/// A converter that fails for some pictures, takes different times, and would mix up pictures if two ran in one folder.
constexpr char CONVERTER[] = "test -d Debug && test -e AppLogo.img || exit 2\n"
                             "{ printf 'converted '; cat \"$3\"; } > temp_image\n"
                             "sleep 0.00$(($(wc -c < \"$3\") % 4))\n"
                             "echo run >> \"$MORVANITE_TEST_RUNS\"\n"
                             "grep -q bad \"$3\" && exit 1\n"
                             "grep -q loud \"$3\" && echo loud >&2\n"
                             "cat temp_image > \"$4\"";

struct RandomProject : PackProject
{
    explicit RandomProject(unsigned seed) : random(seed)
    {
        PutTool(CONVERTER);
        qputenv("MORVANITE_TEST_RUNS", Narrow("runs"));
        folder.MakeFolder("pictures");
        const int pictures = Below(12);
        QByteArray list;
        for (int n = 0; n < pictures; ++n)
            list += Picture() + "\r\n";
        folder.Put("preview.lst", list);
        for (int n = Below(12); n > 0; --n)
            AddFile(Below(2) ? wideImages : defaultImages, ".\\" + Picture(), quint32(n));
        info.imageconvert = Below(4);
    }

    int Below(int limit) { return int(random() % unsigned(limit)); }

    /// The path of a picture: a new file, or one that exists already.
    QByteArray Picture()
    {
        const int number = Below(8);
        const QByteArray file = "pictures/" + QByteArray::number(number) + (number % 2 ? ".png" : ".BMP");
        const int kind = Below(32);
        const char *const content = kind == 0 ? "bad " : kind < 4 ? "loud " : "picture ";
        if (!folder.Has(file.constData()) && Below(60))
            folder.Put(file.constData(), content + QByteArray(Below(9), 'x'));
        return QByteArray(file).replace('/', '\\');
    }

    /// All that a pack does: its result, what it says and what it writes.
    struct Outcome
    {
        int code;
        QByteArray report;
        QByteArray explained;
        std::map<QString, QByteArray> outputs;
        std::map<QString, QByteArray> pictures; ///< and what is beside them
        bool operator==(const Outcome &) const = default;
    };

    Outcome Result()
    {
        for (const char *file : {"app.out", "arm/app.res"})
            QFile::remove(folder.Path(file));
        explained.clear();
        const int code = Pack();
        auto outputs = FilesIn(folder.Path("arm"));
        if (folder.Has("app.out"))
            outputs[{}] = folder.Get("app.out");
        return {code, output, explained, outputs, FilesIn(folder.Path("pictures"))};
    }

    std::mt19937 random;
};

struct CachedPack : PackProject
{
    CachedPack()
    {
        info.options.cache = folder.Path("deep/cache");
        qputenv("MORVANITE_TEST_RUNS", Narrow("runs"));
        PutTool(CONVERTER);
        info.imageconvert = 1;
        for (const char *file : {"a.png", "b.png", "c.png"}) {
            folder.Put(file, QByteArray("picture ") + file);
            AddFile(wideImages, file, quint32(++number));
        }
    }

    /// Packs and returns how many pictures were converted.
    qsizetype Runs()
    {
        folder.Put("runs", "");
        EXPECT_EQ(Pack(PACK_TO_DLL), 0) << output.constData();
        return folder.Get("runs").count('\n');
    }

    int number = 0;
};

} // namespace

TEST(FasterPack, MakesAndSaysTheSameInEveryCombinationOfOptions)
{
    int failed = 0;
    for (unsigned seed = 0; seed < 8; ++seed) {
        RandomProject project(seed);
        const auto expected = project.Result();
        if (seed % 3 == 0)
            project.info.temp = project.folder.Path("temp");
        const auto inTemp = project.Result();
        for (int combination = 0; combination < 12; ++combination) {
            PackOptions &options = project.info.options;
            options.once = combination % 2 != 0;
            options.jobs = combination / 2 % 2 ? 4 : 1;
            options.cache = combination >= 4 ? project.folder.Path("cache") : QString(); // empty at first, then filled
            const auto result = project.Result();
            EXPECT_TRUE(result == inTemp) << seed << ' ' << combination << result.report.constData()
                                          << result.explained.constData() << inTemp.report.constData();
        }
        EXPECT_TRUE(inTemp.outputs == expected.outputs);
        failed += expected.code != 0;
        EXPECT_TRUE(FilesIn(project.folder.Path("temp")).empty());
    }
    EXPECT_TRUE(failed > 0 && failed < 8) << "both kinds of packs are tried: " << failed << " failed";
}

TEST(FasterPack, EndsLaterConversionsWhenOneFails)
{
    PackProject project;
    project.info.imageconvert = 1;
    project.info.options.jobs = 4;
    for (const char *name : {"bad.png", "slow.png", "slower.png", "never.png", "more.png"}) {
        project.folder.Put(name, name);
        project.AddFile(project.wideImages, name, 1);
    }
    project.PutTool("case \"$3\" in *bad*) until ls ../slower.png.tmp; do sleep 0.01; done; exit 1;; esac\n"
                    "echo half > \"$4\"; sleep 60; echo again > \"$4\"");
    EXPECT_EQ(project.Pack(), -1016);
    EXPECT_EQ(QDir(project.folder.Path()).entryList({QStringLiteral("*.tmp")}), QStringList());
}

TEST(PictureCache, ConvertsOnlyWhatHasChanged)
{
    CachedPack project;
    EXPECT_EQ(project.Runs(), 3);
    const QByteArray packed = project.folder.Get("app.out");
    EXPECT_EQ(project.Runs(), 0);
    EXPECT_EQ(project.folder.Get("app.out"), packed);
    project.folder.Put("b.png", "another picture");
    EXPECT_EQ(project.Runs(), 1);
    QFile::rename(project.folder.Path("a.png"), project.folder.Path("A.png"));
    EXPECT_EQ(project.Runs(), 1) << "the converter gets another name";
    project.PutTool(QByteArray("# another converter\n") + CONVERTER);
    EXPECT_EQ(project.Runs(), 3);
    project.PutTool(QByteArray(CONVERTER) + "; echo changed > \"$3\"");
    EXPECT_EQ(project.Runs(), 3);
    EXPECT_EQ(project.Runs(), 3) << "nothing is kept of a picture that changed while it was converted";
}

TEST(PictureCache, MakesDamagedEntriesAnew)
{
    CachedPack project;
    EXPECT_EQ(project.Runs(), 3);
    const QByteArray packed = project.folder.Get("app.out");
    const QString cache = project.folder.Path("deep/cache/");
    const auto whole = FilesIn(cache);
    ASSERT_EQ(whole.size(), 3U);
    for (const auto &[name, bytes] : whole) {
        QByteArray flipped = bytes;
        flipped[3] = char(flipped[3] ^ 1);
        for (const QByteArray &damaged : {QByteArray(), bytes.chopped(1), bytes + 'x', flipped, bytes.last(24)}) {
            project.folder.Put(("deep/cache/" + name.toUtf8()).constData(), damaged);
            EXPECT_EQ(project.Runs(), 1) << damaged.constData();
            EXPECT_EQ(project.folder.Get("app.out"), packed);
        }
    }
    EXPECT_EQ(FilesIn(cache), whole);
}

TEST(PictureCache, DeletesWhatWasUsedLongestAgoAndNothingElse)
{
    CachedPack project;
    project.folder.MakeFolder("deep/cache");
    for (const char *name : {"deep/cache/notes.txt", "deep/cache/.new-old", "deep/cache/.new-now"})
        project.folder.Put(name, "12345");
    const timespec old[2] = {{1000, 0}, {1000, 0}};
    EXPECT_EQ(utimensat(AT_FDCWD, project.Narrow("deep/cache/.new-old").constData(), old, 0), 0);
    project.info.options.cacheLimit = 3 * 47 + 5; // three entries and the file that is being written
    EXPECT_EQ(project.Runs(), 3);
    EXPECT_FALSE(project.folder.Has("deep/cache/.new-old")) << "its writer was killed";
    project.folder.Put("c.png", "picture 2.png"); // a.png and b.png are used again
    EXPECT_EQ(project.Runs(), 1);
    EXPECT_EQ(FilesIn(project.folder.Path("deep/cache")).size(), 5U);
    project.folder.Put("c.png", "picture c.png");
    EXPECT_EQ(project.Runs(), 1) << "it was the one that was deleted";

    PictureCache cache(project.Narrow("deep/cache"), 0);
    EXPECT_EQ(cache.Count().bytes, 3 * 47 + 5);
    EXPECT_EQ(cache.Clear().files, 4);
    EXPECT_EQ(FilesIn(project.folder.Path("deep/cache")).size(), 1U) << "a file of somebody else";
}

TEST(PictureCache, NeverFailsAPackAndSaysOnceWhatIsWrong)
{
    CachedPack project;
    project.info.options.cache = project.folder.Path("app.axf/cache");
    EXPECT_EQ(project.Runs(), 3);
    EXPECT_EQ(project.TakeExplained(), "converted pictures can't be kept in the cache " +
                                           project.Narrow("app.axf/cache") +
                                           ": Not a directory; the pack goes on without them\n");
    project.folder.Put("large", QByteArray(5000, 'x'));
    PictureCache full(project.Narrow("full"), 1 << 20);
    const QByteArray key = full.KeyOf(project.Narrow("large"), project.Narrow("bin/qrk_resgenerator.exe"));
    WithFileLimit(1000, [&] {
        for (int turn = 0; turn < 2; ++turn)
            full.Add(project.env, key, project.Narrow("large"));
        return 0;
    });
    EXPECT_EQ(project.TakeExplained(), "converted pictures can't be kept in the cache " + project.Narrow("full") +
                                           ": File too large; the pack goes on without them\n");
    EXPECT_TRUE(FilesIn(project.folder.Path("full")).empty());
    std::atomic<bool> isDone = false;
    std::thread clearing([&] {
        while (!isDone)
            (void)PictureCache(project.Narrow("full"), 1 << 20).Clear();
    });
    for (int n = 0; n < 300; ++n)
        full.Add(project.env, key, project.Narrow("large"));
    isDone = true;
    clearing.join();
    EXPECT_EQ(project.TakeExplained(), "") << "another program cleared the cache meanwhile";
    full.Add(project.env, key, project.Narrow("large"));
    EXPECT_EQ(full.Find(key).size, 5000);
}
