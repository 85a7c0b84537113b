// SPDX-License-Identifier: MIT
#include "FileLimit.h"
#include "OutputFile.h"
#include "PackCodes.h"
#include "PackImage.h"
#include "PackProject.h"
#include "PieceMemory.h"

#include <random>

using testing::HasSubstr;

namespace
{

/// Returns bytes that differ in each call.
QByteArray Noise(std::mt19937 &random, qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = char(random());
    return bytes;
}

/// Files of sizes around those at which a pack treats them differently, pictures that are converted, and texts. Returns
/// the expected payload.
PayloadBuilder Fill(PackProject &project, PackMode mode, unsigned seed)
{
    std::mt19937 random(seed);
    project.PutTool("cat \"$3\" \"$3\" > \"$4\"");
    project.info.imageconvert = 1;
    PayloadBuilder expected;
    if (mode == PACK_TO_DLL)
        expected.Unpadded().Base(quint32(project.elf.size()) + 8);
    project.folder.Put("AppLogo.img", Noise(random, 33001)); // copied when the payload is written
    expected.Entry("AppLogo.img", ToBytes(project.folder.Get("AppLogo.img")));
    project.AddLanguage(1, {{4, u"text"}});
    expected.Language(1, {{4, u"text"}});
    quint32 value = 10;
    for (const int size : {0, 1, 8, 32767, 32769, 524288, 1200001, int(random() % 70000), int(random() % 70000)}) {
        const QByteArray name = "file" + QByteArray::number(++value);
        project.folder.Put(name.constData(), Noise(random, size));
        project.AddFile(project.binary, name, value);
        expected.Item(value, ToBytes(QByteArray(8, '\0') + project.folder.Get(name.constData())));
    }
    for (const int size : {9, 40001, 100, 700003}) {
        const QByteArray name = "picture" + QByteArray::number(++value) + ".png";
        const QByteArray bytes = Noise(random, size);
        project.folder.Put(name.constData(), bytes);
        project.AddFile(project.wideImages, name, value);
        expected.Item(value, ToBytes(bytes + bytes));
    }
    return expected;
}

} // namespace

TEST(PayloadPieces, HaveTheSameBytesAndReportWhereverTheyAreAndWithPhasesThatRunOnce)
{
    for (const PackMode mode : {PACK_TO_TARGET, PACK_TO_DLL}) {
        PackProject project;
        const QByteArray payload = BytesOf(Fill(project, mode, 7 + unsigned(mode)).Build());
        QByteArray made;
        QByteArray report;
        for (const quint64 memory : {quint64(20) << 20, quint64(0), quint64(90000)}) {
            for (const bool once : {false, true}) {
                SCOPED_TRACE(testing::Message() << mode << ' ' << memory << ' ' << once);
                project.info.fileMemory = memory;
                project.info.options.once = once;
                ASSERT_EQ(project.Pack(mode), 0) << project.TakeExplained().constData();
                if (made.isEmpty()) {
                    made = project.folder.Get("app.out");
                    report = project.output + project.trace;
                    EXPECT_TRUE(made.contains(payload));
                }
                EXPECT_TRUE(project.folder.Get("app.out") == made);
                EXPECT_TRUE(mode == PACK_TO_DLL || project.folder.Get("arm/app.res") == payload);
                EXPECT_EQ(project.output + project.trace, report);
                unlink("arm/app.res");
            }
        }
    }
    PackProject project("[ResID]\nrelativeoffset=0\n");
    project.info.options.once = true;
    ASSERT_EQ(project.Pack(), 0);
    EXPECT_FALSE(project.folder.Get("app.out").contains(project.folder.Get("arm/app.res"))) << "their offsets differ";
    ASSERT_EQ(symlink("/dev/full", "full") + rename("full", "arm/app.res"), 0);
    EXPECT_EQ(project.Pack(), PACK_WRITE);
}

TEST(PayloadPieces, AFileThatChangesBeforeItIsCopiedFailsThePackWithTheCodeOfItsPhase)
{
    const std::pair<void (*)(), const char *> CHANGES[] = {
        {[] { EXPECT_EQ(truncate("large.tga", 99999), 0); }, "large.tga changed while it was packed\n"},
        {[] { EXPECT_EQ(truncate("large.tga", 100001), 0); }, "large.tga changed while it was packed\n"},
        {[] { EXPECT_EQ(unlink("large.tga"), 0); }, "large.tga: No such file or directory\n"},
    };
    for (const bool isImage : {false, true}) {
        for (const auto &[change, said] : CHANGES) {
            SCOPED_TRACE(said);
            PackProject project;
            project.folder.Put("large.tga", QByteArray(100000, 'x'));
            project.AddFile(isImage ? project.wideImages : project.binary, "large.tga", 1);
            ASSERT_EQ(project.Pack(), 0);
            const QByteArray made = project.folder.Get("app.out");
            const auto sink = project.env.output;
            project.env.output = [&, change = change, isDone = false](QStringView text) mutable {
                sink(text);
                if (text.contains(u"construct layout") && !std::exchange(isDone, true))
                    change();
            };
            const bool isGone = QByteArray(said).contains("No such file");
            const int code =
                isImage ? (isGone ? PACK_IMAGE_OPEN : PACK_IMAGE_READ) : (isGone ? PACK_FILE_OPEN : PACK_FILE_READ);
            EXPECT_EQ(project.Pack(), code);
            const std::string result = ", result=" + std::to_string(code) + "\r\n";
            EXPECT_THAT(project.output.toStdString(),
                        testing::EndsWith("\r\n[error] construct " + std::string(isImage ? "image" : "file") +
                                          " resource error" + result + "pack resource done" + result));
            EXPECT_EQ(project.output.contains(isGone ? "Could not open file while reading resource data. (large.tga)"
                                                     : "Read data fail while reading resource data. (large.tga)"),
                      isImage);
            EXPECT_THAT(project.TakeExplained().toStdString(), testing::EndsWith(said));
            EXPECT_TRUE(project.folder.Get("app.out") == made);
            EXPECT_EQ(project.folder.Names().filter(QStringLiteral(".app.out")).size(), 0) << "no temporary file";
        }
    }
}

TEST(PayloadPieces, AnOldOutputThatCanOnlyBeOverwrittenStaysIfAFileHasChanged)
{
    for (const int mode : {PACK_TO_TARGET, PACK_TO_DLL}) {
        PackProject project;
        project.folder.Put("large.tga", QByteArray(100000, 'x'));
        project.AddFile(project.binary, "large.tga", 1);
        ASSERT_EQ(project.Pack(mode), 0);
        const QByteArray made = project.folder.Get("app.out");
        ASSERT_EQ(link("app.out", "second name"), 0);
        const auto sink = project.env.output;
        project.env.output = [&](QStringView text) {
            sink(text);
            if (text.contains(u"construct layout")) {
                EXPECT_EQ(truncate("large.tga", 5), 0);
            }
        };
        EXPECT_EQ(project.Pack(mode), PACK_FILE_READ);
        EXPECT_TRUE(project.folder.Get("app.out") == made);
        unlink("second name");
    }
}

TEST(PayloadPieces, AListThatIsPackedItselfIsReadInBothRuns)
{
    PackProject project;
    project.folder.Put("small.bin", "12345");
    project.folder.Put("demo_res.lst", ".\\small.bin\r\n.\\demo_res.lst\r\n");
    EXPECT_EQ(project.Pack(), 0) << project.TakeExplained().constData();
    EXPECT_TRUE(project.folder.Has("arm/app.res"));
}

TEST(PayloadPieces, WhatTheTemporaryFileCannotTakeStaysInMemory)
{
    PackProject project;
    const QByteArray content(2000, 'x');
    project.folder.Put("made", content);
    PieceMemory memory;
    PackImage image(memory, EntryPadding::FourBytes);
    image.folder = ".";
    image.AddEntry("made");
    EXPECT_EQ(WithFileLimit(1000, [&] { return image.AddMade(PackFiles::OpenMade("made")); }), PACK_OK);
    image.BeginBlock();
    image.EndBlock();
    image.base = 0;
    ASSERT_TRUE(image.LayOut());
    OutputFile output(project.env);
    ASSERT_EQ(output.Begin("written", {}), 0);
    EXPECT_EQ(image.Write(project.env, output), PACK_OK);
    EXPECT_EQ(output.PutInPlace(), 0);
    EXPECT_TRUE(project.folder.Get("written").contains(content));
}

TEST(PieceMemory, KeepsEveryPieceAtItsAddress)
{
    PieceMemory memory;
    std::vector<std::pair<char *, size_t>> pieces;
    for (const size_t size : {size_t(1), size_t(3) << 20, size_t(2) << 20, size_t(20) << 20, size_t(5)}) {
        char *const piece = memory.Take(size);
        piece[0] = piece[size - 1] = char(pieces.size());
        pieces.emplace_back(piece, size);
    }
    for (size_t n = 0; n < pieces.size(); ++n)
        EXPECT_TRUE(pieces[n].first[0] == char(n) && pieces[n].first[pieces[n].second - 1] == char(n));
    memory.Clear();
    EXPECT_EQ(memory.Take(1), pieces[0].first);
}
