// SPDX-License-Identifier: MIT
#include "FileLimit.h"
#include "PackCodes.h"
#include "PackProject.h"

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace
{

/// Returns the icon of the program, to which a test adds its parts.
PayloadBuilder Payload()
{
    return PayloadBuilder().Entry("AppLogo.img", ToBytes("program's logo"));
}

} // namespace

TEST(Pack, WritesTheLinesOfTheReportInOrder)
{
    PackProject project;
    project.folder.Put("AppLogo.img", "icon");
    project.folder.Put("preview.lst", ".\\res\\one.gif\r\n.\\gone.gif\r\nres\\two.dat");
    project.folder.Put("demo_res.lst", ".\\res\\two.dat\n");
    project.folder.Put("res/one.gif", "a gif of some bytes");
    project.folder.Put("res/two.dat", "data of some bytes");
    project.folder.Put("res/tune.mid", "tune");
    project.AddLanguage(3);
    project.AddFile(project.audio, ".\\res\\tune.mid", 0);
    project.AddFile(project.wideImages, ".\\res\\one.gif", 7);
    project.PutTool("{ printf converted; cat \"$3\"; } > \"$4\"");
    project.info.imageconvert = 1;
    ASSERT_EQ(project.Pack(PACK_TO_DLL), 0) << project.output.constData();
    const QByteArray report =
        "\npack resource started\n"
        "\nconstruct app icon resource...\n@/AppLogo.img\nconstruct app icon resource done\n"
        "\nconstruct preview image resource..."
        "\n@/res/one.gif\nNeed image convert, convert... \nResource file @/gone.gif not exist, ignore...\n@/res/two.dat"
        "\nconstruct preview image resource done\n"
        "\nconstruct zep1.0 resource...\n@/res/two.dat\nconstruct zep1.0 resource done\n"
        "\nconstruct zep2.0 resource..."
        "\nconstruct language resource...\nLanguage ID: 3\nconstruct language resource done\n"
        "\nconstruct file resource...\n[error] Illegal resource id value :\"ID_1\" with value \"0\"\n.\\res\\tune.mid"
        "\nconstruct file resource done\n"
        "\nconstruct image resource...\n@/res/one.gif\nNeed image convert, convert... \nconstruct image resource done\n"
        "\nconstruct layout resource...\nthere are no any layout xml \nconstruct layout resource done\n"
        "\nconstruct zep2.0 resource done\n"
        "\npack resource done, result=0\n";
    EXPECT_EQ(project.output.replace(project.Narrow(""), "@"), QByteArray(report).replace("\n", "\r\n"));
    const auto data = ToBytes("data of some bytes");
    const auto converted = ToBytes("converteda gif of some bytes");
    auto payload =
        PayloadBuilder().Unpadded().Base(quint32(project.elf.size()) + 8).Entry("AppLogo.img", ToBytes("icon"));
    payload.Entry("zep.preview_0", converted).Entry("zep.preview_1", data).Entry("two.dat", data);
    payload.Language(3, {}).Item(0, ToBytes(QByteArray(8, '\0') + "tune")).Item(7, converted);
    EXPECT_EQ(ToBytes(project.folder.Get("app.out")),
              PayloadBuilder::AppendedTo(ToBytes(project.elf), payload.Build()));
    EXPECT_FALSE(project.folder.Has("res/one.gif.tmp")) << "temporary images go when they have been read";
}

TEST(Pack, PacksListedFilesTextsFilesAndImagesInOrder)
{
    PackProject project;
    for (const char *file : {"res/wide.tga", "res/any.png", "res/used.png", "res/Tune.MID", "a.bin"})
        project.folder.Put(file, "content of " + QByteArray(file));
    project.PutTool("printf 'from the tool' > \"$4\"");
    // Written by hand: blank lines, a line of 255 bytes, one of 256 bytes, which counts as two, and no line end.
    const QByteArray longest(255, 'x');
    project.folder.Put("demo_res.lst", "\n.\\a.bin\n\r\n" + longest + "\n" + longest + "y\r\n" +
                                           project.Narrow("res/Tune.MID") + "\r\n.\\RES\\TUNE.mid\rbehind");
    const PayloadBuilder::Strings texts = {{9, u"ab"}, {4, u""}, {7, u"\xD83D\xDE00!"}};
    project.AddLanguage(0x1FFFE, texts);
    project.AddLanguage(2);
    IDRecord &pushed = *project.AddFile(project.defaultImages, ".\\res\\any.png", 103000)->Id();
    pushed.push = true;
    pushed.pushKind = PUSH_IMAGE; // push images are always converted
    project.AddFile(project.wideImages, ".\\res\\wide.tga", 5);
    project.AddFile(project.binary, "a.bin", 6);
    project.AddFile(project.audio, ".\\RES\\tune.mid", 1);
    CResFolder &component = project.AddFolder(project.AddFolder(project.root, KIND_CPIMAGES), KIND_COMPONENT);
    project.AddFile(component, "res\\gone.png", 1);
    project.AddFile(component, "res\\used.png", 2)->inUse = true;

    for (const qint16 scope : {qint16(1), ANY_RESOLUTION}) {
        project.info.scope = scope;
        std::vector<QByteArray> inputs;
        ASSERT_EQ(project.Pack(PACK_TO_TARGET, &inputs), 0) << project.output.constData();
        const auto tune = ToBytes("content of res/Tune.MID");
        const auto binary = ToBytes("content of a.bin");
        auto expected = Payload().Entry("a.bin", binary).Entry("Tune.MID", tune).Entry("TUNE.mid", tune);
        expected.Language(0xFFFE, texts).Language(2, {}).Item(1, tune).Item(6, binary);
        if (scope == 1)
            expected.Item(5, ToBytes("content of res/wide.tga"));
        expected.Item(103000, ToBytes("from the tool")).Item(2, ToBytes("content of res/used.png"));
        EXPECT_EQ(project.folder.Get("arm/app.res"), BytesOf(expected.Build()));
        EXPECT_TRUE(project.folder.Get("app.out").contains(BytesOf(expected.Build())));
        EXPECT_THAT(inputs, testing::IsSupersetOf({project.Narrow("res/Tune.MID"), project.Narrow("bin/AppLogo.img")}));
        EXPECT_EQ(project.output.count(" not exist, ignore..."), 6) << "three, in both runs of the phases";
        EXPECT_TRUE(project.output.contains("[warning] App icon file does not exist in project folder, use default"));
    }
}

TEST(Pack, IsTheSameWhetherFilesAreReadAheadOrNot)
{
    PackProject project;
    const auto add = [&](CResFolder &to, int n, const QByteArray &stored, const QByteArray &content) {
        project.folder.Put(QByteArray(stored).replace('\\', '/').constData(), content);
        return project.AddFile(to, stored, quint32(n));
    };
    for (int n = 1; n <= 300; ++n) {
        const QByteArray name = "res\\" + QByteArray::number(n);
        add(n % 2 ? project.audio : project.wideImages, n, n % 2 ? name : name + ".tga", name.repeated(n * 20));
    }
    project.AddFile(project.audio, "res\\7", 301);
    add(project.audio, 302, "res\\Case", "written in another case")->path = "RES\\case";

    std::vector<QByteArray> inputs[2];
    QByteArray payloads[2];
    for (const int isAhead : {0, 1}) {
        project.info.fileMemory = isAhead ? quint64(20) << 20 : 0;
        ASSERT_EQ(project.Pack(PACK_TO_TARGET, &inputs[isAhead]), 0) << project.output.constData();
        payloads[isAhead] = project.folder.Get("arm/app.res");
    }
    EXPECT_TRUE(payloads[1].contains("written in another case"));
    EXPECT_EQ(payloads[0], payloads[1]);
    EXPECT_EQ(inputs[0], inputs[1]);

    const QByteArray small = "an old output that is small enough to be read ahead";
    project.folder.Put("app.out", small);
    ASSERT_EQ(unlink("res/9"), 0);
    ASSERT_EQ(link("app.out", "res/9"), 0);
    EXPECT_EQ(project.Pack(), PACK_SAME_FILE);
    EXPECT_EQ(project.folder.Get("res/9"), small) << "an output that is a file of the project is not written";
    ASSERT_EQ(unlink("res/9"), 0);
    EXPECT_EQ(project.Pack(), PACK_NOT_THERE);
    EXPECT_EQ(project.folder.Get("arm/app.res"), payloads[0]);
}

TEST(Pack, PutsTheTablesInAscendingOrderIfTheOptionSaysSo)
{
    PackProject project;
    for (const char *file : {"res/wide.png", "res/any.png", "tune.mid", "a.bin"})
        project.folder.Put(file, "content of " + QByteArray(file));
    project.AddLanguage(3, {{9, u"nine"}, {4, u"four"}, {7, u""}, {4, u"four again"}});
    project.AddLanguage(2);
    project.AddFile(project.wideImages, "res\\wide.png", 5);
    project.AddFile(project.defaultImages, "res\\any.png", 5);
    project.AddFile(project.binary, "a.bin", 6);
    project.AddFile(project.audio, "tune.mid", 1);
    project.info.options.sorted = true;
    auto expected = Payload();
    expected.Item(1, ToBytes("content of tune.mid")).Item(5, ToBytes("content of res/wide.png"));
    expected.Item(5, ToBytes("content of res/any.png")).Item(6, ToBytes("content of a.bin"));
    expected.Language(2, {}).Language(3, {{4, u"four"}, {4, u"four again"}, {7, u""}, {9, u"nine"}});
    ASSERT_EQ(project.Pack(), 0) << project.output.constData();
    EXPECT_EQ(project.folder.Get("arm/app.res"), BytesOf(expected.Build()));
    EXPECT_TRUE(project.folder.Get("app.out").contains(BytesOf(expected.Build())));
    EXPECT_LT(project.output.indexOf("a.bin"), project.output.indexOf("wide.png")) << "the report keeps its order";
}

TEST(Pack, CountsOffsetsFromTheStartOfTheFileIfTheSettingSaysSo)
{
    for (const size_t text : {64, 65, 66, 67}) {
        SCOPED_TRACE(text);
        PackProject project("[ResID]\nrelativeoffset=0\n", text);
        project.AddLanguage(1, {{1, u"text"}});
        ASSERT_EQ(project.Pack(), 0) << project.output.constData();
        const QByteArray made = project.folder.Get("app.out");
        const qsizetype offset = (project.elf.size() + 3) / 4 * 4;
        auto expected = Payload().Language(1, {{1, u"text"}});
        EXPECT_EQ(project.folder.Get("arm/app.res"), BytesOf(expected.Build()));
        const QByteArray section = BytesOf(expected.Base(quint32(offset)).Build());
        EXPECT_EQ(made.mid(offset, section.size()), section);
    }
}

TEST(Pack, RefusesParametersBeforeTheWork)
{
    PackProject project;
    const auto refused = [&](const QByteArray &input, const QByteArray &output, qint32 mode) {
        project.info.inputfilename = input;
        project.info.outputfilename = output;
        const int code = project.Pack(mode);
        EXPECT_EQ(project.output, "\r\npack resource started\r\n");
        EXPECT_EQ(project.folder.Get("app.axf"), project.elf);
        return code;
    };
    const QByteArray input = project.Narrow("app.axf");
    EXPECT_EQ(refused("", "x", PACK_TO_TARGET), PACK_NO_INPUT);
    project.info.ver = 2;
    EXPECT_EQ(refused(input, "", 2), PACK_UNKNOWN_MODE);
    EXPECT_THAT(project.trace.toStdString(), HasSubstr("packinfo.ver=2\n"));
    ASSERT_TRUE(link("app.axf", "hard") == 0 && symlink("app.axf", "soft") == 0);
    for (const char *same : {"app.axf", "hard", "soft", "./app.axf", "arm/../app.axf", "BIN/../app.axf"}) {
        for (const PackMode mode : {PACK_TO_TARGET, PACK_TO_DLL})
            EXPECT_EQ(refused(input, project.Narrow("") + '/' + same, mode), PACK_SAME_FILE) << same;
        EXPECT_THAT(project.trace.toStdString(), HasSubstr("the packed file and output file cannot be same : "));
    }
    EXPECT_EQ(refused(input, project.Narrow("arm/app.res"), PACK_TO_TARGET), PACK_SAME_FILE) << "neither exists yet";
    ASSERT_EQ(link("app.axf", "arm/app.res"), 0); // the side file would overwrite the input
    EXPECT_EQ(refused(input, "x", PACK_TO_TARGET), PACK_SAME_FILE);
}

TEST(Pack, ReplacesAnOldOutputAndCopiesThePermissionsOfTheInput)
{
    PackProject project;
    ASSERT_EQ(chmod("app.axf", 0555), 0);
    project.folder.Put("app.axf.pkd", QByteArray(100000, 'x'));
    project.info.outputfilename.clear();
    ASSERT_EQ(project.Pack(), 0);
    EXPECT_EQ(project.Mode("app.axf.pkd"), 0755);
    ASSERT_EQ(chmod("app.axf.pkd", 0444), 0);
    ASSERT_EQ(project.Pack(), 0);
    EXPECT_EQ(project.Mode("app.axf.pkd"), 0755);
}

TEST(Pack, WritesTheSideFileBesideTheInputAndReportsItsFailureAfterACompleteOutput)
{
    PackProject project;
    project.folder.MakeFolder("v1.2/ARM");
    for (const QByteArray name : {"v1.2\\app.old.axf", "v1.2/plain"}) {
        project.info.inputfilename = name;
        project.folder.Put(QByteArray(name).replace('\\', '/').constData(), project.elf);
        ASSERT_EQ(project.Pack(), 0) << project.trace.constData();
    }
    EXPECT_EQ(project.folder.Names("v1.2/ARM"), QStringList({u"app.old.res"_s, u"plain.res"_s}));

    const QByteArray made = project.folder.Get("app.out");
    ASSERT_EQ(symlink("/dev/full", "v1.2/ARM/PLAIN.res"), 0);
    project.info.inputfilename = "v1.2/PLAIN"; // found with its spelling on disk; the side file has the given name
    EXPECT_EQ(project.Pack(), PACK_WRITE);
    EXPECT_THAT(project.TakeExplained().toStdString(),
                HasSubstr("PLAIN.res: No space left on device\nv1.2/ARM/PLAIN.res was left by an earlier pack"));
    EXPECT_EQ(project.folder.Get("app.out"), made);
    EXPECT_THAT(project.trace.toStdString(), HasSubstr("[error] write res data into resfile error: "));
    ASSERT_TRUE(QDir(project.folder.Path("v1.2/ARM")).removeRecursively() && unlink("app.out") == 0);
    EXPECT_EQ(project.Pack(), ENOENT);
    EXPECT_EQ(project.folder.Get("app.out"), made);
    EXPECT_THAT(project.trace.toStdString(), HasSubstr("[error] could not open file while write data into resfile: "));
    EXPECT_TRUE(project.output.endsWith("\r\npack resource done, result=2\r\n"));
    project.info.outputfilename = project.Narrow("gone/app.out");
    EXPECT_EQ(project.Pack(PACK_TO_TARGET), ENOENT);
    EXPECT_EQ(project.Pack(PACK_TO_DLL), ENOENT);
}

TEST(Pack, AFullDiskAtAnyByteIsAFailedWriteAndKeepsTheOldFiles)
{
    PackProject project;
    project.AddLanguage(0, {{1, u"text"}});
    ASSERT_EQ(project.Pack(), 0);
    const QStringList names = project.folder.Names();
    for (const PackMode mode : {PACK_TO_TARGET, PACK_TO_DLL}) {
        ASSERT_EQ(project.Pack(mode), 0);
        project.folder.Put("arm/app.res", "of an earlier pack");
        const QByteArray made = project.folder.Get("app.out");
        const qsizetype size = made.size();
        const auto pack = [&] { return project.Pack(mode); };
        for (qsizetype limit = 0; limit < size; ++limit) {
            ASSERT_EQ(WithFileLimit(rlim_t(limit), pack), PACK_WRITE) << limit;
            ASSERT_EQ(project.folder.Get("app.axf"), project.elf);
            ASSERT_EQ(project.folder.Get("app.out"), made);
            ASSERT_EQ(project.folder.Names(), names);
            ASSERT_EQ(project.folder.Get("arm/app.res"), "of an earlier pack");
            ASSERT_EQ(project.TakeExplained(), "cannot write " + project.Narrow("app.out") + ": File too large\n");
        }
        (void)project.TakeExplained();
        project.info.ver = 2;
        EXPECT_EQ(WithFileLimit(rlim_t(size), pack), 0);
        EXPECT_EQ(project.folder.Get("app.out"), made) << "the same project gives the same bytes";
    }
}
