#include "PackProject.h"

#include "PackCodes.h"
#include "Packer.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace
{

quint32 U32(const QByteArray &bytes, qsizetype at)
{
    quint32 value = 0;
    for (int i = 3; i >= 0; --i)
        value = value << 8 | quint8(bytes.at(at + i));
    return value;
}

class PackTest : public testing::Test
{
protected:
    PackTest()
    {
        project.Put("demo/app.axf", PackProject::Elf());
        info.inputfilename = project.Narrow("demo/app.axf");
        info.outputfilename = project.Narrow("demo/app.out");
        info.scope = 1;
    }

    int Pack()
    {
        project.output.clear();
        project.trace.clear();
        return Packer::Pack(info, *project.model);
    }
    int PackDll()
    {
        info.packmode = PACK_TO_DLL;
        return Pack();
    }

    /// The new section of the output, found through the section table's last record.
    QByteArray Section(const QByteArray &file, quint32 *offset = nullptr)
    {
        const quint32 table = U32(file, 32);
        const quint16 count = quint16(U32(file, 48) & 0xFFFF);
        const qsizetype record = qsizetype(table) + 40 * (count - 1);
        if (offset)
            *offset = U32(file, record + 16);
        return file.mid(U32(file, record + 16), U32(file, record + 20));
    }

    PackProject project;
    packinfo info;
};

TEST_F(PackTest, TheDocumentedExampleComesOutByteForByte)
{
    project.Put("demo/AppLogo.img", "0123456789");
    project.Put("demo/bell.wav", "ding!");
    project.AddFile(project.audio, ".\\bell.wav", 1);
    project.AddString(project.AddLanguage(0), u"Hi"_s, 2);
    info.imageconvert = 1;
    ASSERT_EQ(Pack(), 0) << project.output.constData();

    const QByteArray expected = QByteArray::fromHex("4170704c6f676f2e696d6700"
                                                    "30000000"
                                                    "0a000000" // AppLogo.img, 48, 10
                                                    "7a65702d322e3000"
                                                    "3c000000"
                                                    "18000000" // zep-2.0, 60, 24
                                                    "00"
                                                    "3c000000"
                                                    "00000000" // the end of the directory
                                                    "000000"
                                                    "30313233343536373839"
                                                    "0000"
                                                    "0000ffff"
                                                    "54000000"
                                                    "01000000"
                                                    "70000000"
                                                    "ffffffff"
                                                    "80000000"
                                                    "02000000"
                                                    "02000000"
                                                    "14000000"
                                                    "ffffffff"
                                                    "1c000000"
                                                    "48006900"
                                                    "0000"
                                                    "0000"
                                                    "0000000000000000"
                                                    "64696e6721"
                                                    "000000");
    ASSERT_EQ(expected.size(), 128);
    EXPECT_EQ(project.Get("demo/arm/app.res").toHex(), expected.toHex());
    EXPECT_EQ(Section(project.Get("demo/app.out")).toHex(), expected.toHex());
}

TEST_F(PackTest, AnIconAloneGivesThreeDirectoryRecordsAndOneTableRecord)
{
    ASSERT_EQ(Pack(), 0) << project.output.constData();
    EXPECT_EQ(project.Get("demo/arm/app.res"),
              BytesOf(PayloadBuilder().Entry("AppLogo.img", ToBytes("program's logo"))));
    EXPECT_THAT(project.output.toStdString(), HasSubstr("[warning] App icon file does not exist in project folder"));
}

TEST_F(PackTest, EveryLineOfTheReportStandsInItsOrder)
{
    project.Put("demo/AppLogo.img", "icon");
    project.Put("demo/preview.lst", ".\\res\\one.gif\r\n.\\gone.gif\r\nres\\two.dat");
    project.Put("demo/demo_res.lst", ".\\res\\two.dat\n");
    project.Put("demo/res/one.gif", "a gif of some bytes");
    project.Put("demo/res/two.dat", "data of some bytes");
    project.Put("demo/res/tune.mid", "tune");
    project.AddLanguage(3);
    project.AddFile(project.audio, ".\\res\\tune.mid", 0);
    project.AddFile(project.wideImages, ".\\res\\one.gif", 7);
    project.PutConverter("{ printf converted; cat \"$3\"; } > \"$4\"");
    info.imageconvert = 1;
    ASSERT_EQ(PackDll(), 0) << project.output.constData();

    const QByteArray demo = project.Narrow("demo");
    const QByteArray expected = "\r\npack resource started\r\n"
                                "\r\nconstruct app icon resource..."
                                "\r\n" +
                                demo +
                                "/AppLogo.img"
                                "\r\nconstruct app icon resource done\r\n"
                                "\r\nconstruct preview image resource..."
                                "\r\n" +
                                demo +
                                "/res/one.gif"
                                "\r\nNeed image convert, convert... "
                                "\r\nResource file " +
                                demo +
                                "/gone.gif not exist, ignore..."
                                "\r\n" +
                                demo +
                                "/res/two.dat"
                                "\r\nconstruct preview image resource done\r\n"
                                "\r\nconstruct zep1.0 resource..."
                                "\r\n" +
                                demo +
                                "/res/two.dat"
                                "\r\nconstruct zep1.0 resource done\r\n"
                                "\r\nconstruct zep2.0 resource..."
                                "\r\nconstruct language resource..."
                                "\r\nLanguage ID: 3"
                                "\r\nconstruct language resource done\r\n"
                                "\r\nconstruct file resource..."
                                "\r\n[error] Illegal resource id value :\"ID_1\" with value \"0\""
                                "\r\n.\\res\\tune.mid"
                                "\r\nconstruct file resource done\r\n"
                                "\r\nconstruct image resource..."
                                "\r\n" +
                                demo +
                                "/res/one.gif"
                                "\r\nNeed image convert, convert... "
                                "\r\nconstruct image resource done\r\n"
                                "\r\nconstruct layout resource..."
                                "\r\nthere are no any layout xml "
                                "\r\nconstruct layout resource done\r\n"
                                "\r\nconstruct zep2.0 resource done\r\n"
                                "\r\npack resource done, result=0\r\n";
    EXPECT_EQ(project.output, expected);

    const QByteArray elf = PackProject::Elf();
    const auto payload = PayloadBuilder()
                             .Unpadded()
                             .Base(quint32(elf.size()) + 8)
                             .Entry("AppLogo.img", ToBytes("icon"))
                             .Entry("zep.preview_0", ToBytes("converteda gif of some bytes"))
                             .Entry("zep.preview_1", ToBytes("data of some bytes"))
                             .Entry("two.dat", ToBytes("data of some bytes"))
                             .Language(3, {})
                             .Item(0, ToBytes(QByteArray(8, '\0') + "tune"))
                             .Item(7, ToBytes("converteda gif of some bytes"))
                             .Build();
    const auto whole = PayloadBuilder::AppendedTo(ToBytes(elf), payload);
    EXPECT_EQ(ToBytes(project.Get("demo/app.out")), whole);
    EXPECT_FALSE(project.Has("demo/res/one.gif.tmp")) << "temporary images go when they have been read";
}

TEST_F(PackTest, ImagesOfTheTargetComeBeforeThoseOfAnyAndPushImagesAreAlwaysConverted)
{
    project.Put("demo/res/wide.tga", "a wide image");
    project.Put("demo/res/any.png", "an image of any size");
    project.PutConverter("printf 'from the tool' > \"$4\"");
    project.AddFile(project.wideImages, ".\\res\\wide.tga", 5);
    CFileRes *pushed = project.AddFile(project.defaultImages, ".\\res\\any.png", 103000);
    pushed->Id()->push = true;
    pushed->Id()->pushKind = PUSH_IMAGE;
    const auto icon = ToBytes("program's logo");

    ASSERT_EQ(Pack(), 0) << project.output.constData();
    EXPECT_EQ(project.Get("demo/arm/app.res"), BytesOf(PayloadBuilder()
                                                           .Entry("AppLogo.img", icon)
                                                           .Item(5, ToBytes("a wide image"))
                                                           .Item(103000, ToBytes("from the tool"))));
    info.scope = -1;
    ASSERT_EQ(Pack(), 0) << project.output.constData();
    EXPECT_EQ(project.Get("demo/arm/app.res"),
              BytesOf(PayloadBuilder().Entry("AppLogo.img", icon).Item(103000, ToBytes("from the tool"))));
}

TEST_F(PackTest, OfComponentImagesThoseInUseAreTaken)
{
    project.Put("demo/res/a.png", "image of a component");
    auto components = project.model->CreateFolder(KIND_CPIMAGES, -1);
    auto component = project.model->CreateFolder(KIND_COMPONENT, -1);
    project.AddFile(component.get(), "res\\gone.png", 1);
    project.AddFile(component.get(), "res\\a.png", 2)->inUse = true;
    components->AddFolder(std::move(component));
    project.model->root.AddFolder(std::move(components));
    ASSERT_EQ(Pack(), 0) << project.output.constData();
    EXPECT_EQ(
        project.Get("demo/arm/app.res"),
        BytesOf(
            PayloadBuilder().Entry("AppLogo.img", ToBytes("program's logo")).Item(2, ToBytes("image of a component"))));
}

TEST_F(PackTest, StringTablesKeepTheOrderOfTheirFolder)
{
    const PayloadBuilder::Strings texts = {{9, u"ab"}, {4, u""}, {7, u"\xD83D\xDE00!"}};
    CResFolder *language = project.AddLanguage(0x1FFFE);
    for (const auto &[value, text] : texts)
        project.AddString(language, QString::fromStdU16String(text), value);
    project.AddLanguage(2);
    ASSERT_EQ(Pack(), 0) << project.output.constData();
    EXPECT_EQ(
        project.Get("demo/arm/app.res"),
        BytesOf(
            PayloadBuilder().Entry("AppLogo.img", ToBytes("program's logo")).Language(0xFFFE, texts).Language(2, {})));
}

TEST_F(PackTest, FilesAreFoundWhateverTheCaseOfTheirNames)
{
    project.Put("demo/res/Tune.MID", "tune");
    project.AddFile(project.audio, ".\\RES\\tune.mid", 1);
    std::vector<QByteArray> inputs;
    ASSERT_EQ(Packer::Pack(info, *project.model, &inputs), 0) << project.output.constData();
    EXPECT_THAT(inputs, testing::Contains(project.Narrow("demo/res/Tune.MID")));
    EXPECT_THAT(inputs, testing::Contains(project.Narrow("bin/AppLogo.img")));
}

TEST_F(PackTest, OffsetsCountFromTheStartOfTheFileWhereTheSettingSaysSo)
{
    for (const qsizetype text : {64, 65, 66, 67}) {
        SCOPED_TRACE(text);
        project.Put("bin/Morvanite.ini", "[ResID]\nrelativeoffset=0\n");
        project.Reset();
        project.Put("demo/AppLogo.img", "0123456789");
        const QByteArray elf = PackProject::Elf(text);
        project.Put("demo/app.axf", elf);
        project.AddString(project.AddLanguage(1), u"text"_s, 1);
        ASSERT_EQ(Pack(), 0) << project.output.constData();

        const QByteArray made = project.Get("demo/app.out");
        quint32 offset = 0;
        const QByteArray section = Section(made, &offset);
        EXPECT_EQ(offset, quint32((elf.size() + 3) / 4 * 4));
        const auto payload = [](quint32 base) {
            return BytesOf(
                PayloadBuilder().Base(base).Entry("AppLogo.img", ToBytes("0123456789")).Language(1, {{1, u"text"}}));
        };
        EXPECT_EQ(section, payload(offset));
        EXPECT_EQ(project.Get("demo/arm/app.res"), payload(0));
        // Of the input only the place and the number of the sections have changed.
        QByteArray front = made.first(elf.size());
        front.replace(32, 4, elf.mid(32, 4)).replace(48, 2, elf.mid(48, 2));
        EXPECT_EQ(front, elf);
    }
}

TEST_F(PackTest, TheSameProjectGivesTheSameBytes)
{
    project.Put("demo/demo_res.lst", ".\\app.axf");
    project.AddString(project.AddLanguage(1), u"text"_s, 1);
    info.ver = 1;
    ASSERT_EQ(Pack(), 0);
    const QByteArray first = project.Get("demo/app.out");
    info.ver = 2;
    ASSERT_EQ(Pack(), 0);
    EXPECT_EQ(project.Get("demo/app.out"), first);
    EXPECT_EQ(Section(first), project.Get("demo/arm/app.res"));
    EXPECT_THAT(project.trace.toStdString(), HasSubstr("packinfo.ver=2\n"));
}

TEST_F(PackTest, ParametersAreRefusedBeforeAnythingIsDone)
{
    const QByteArray input = info.inputfilename;
    info.inputfilename.clear();
    EXPECT_EQ(Pack(), PACK_NO_INPUT);
    info.inputfilename = input;
    info.outputfilename = input;
    EXPECT_EQ(Pack(), PACK_SAME_FILE);
    EXPECT_THAT(project.trace.toStdString(), HasSubstr("[error] the packed file and output file cannot be same : "));
    info.outputfilename.clear();
    info.packmode = 2;
    EXPECT_EQ(Pack(), PACK_UNKNOWN_MODE);
    EXPECT_EQ(project.output, "\r\npack resource started\r\n");
    EXPECT_EQ(PackDll(), 0);
    EXPECT_TRUE(project.Has("demo/app.axf.pkd"));
}

TEST_F(PackTest, TheInputIsNeverTheOutputUnderAnotherName)
{
    const QByteArray before = project.Get("demo/app.axf");
    ASSERT_EQ(link(info.inputfilename.constData(), project.Narrow("demo/hard").constData()), 0);
    ASSERT_EQ(symlink("app.axf", project.Narrow("demo/soft").constData()), 0);
    for (const char *name : {"demo/hard", "demo/soft", "demo/./app.axf", "demo/../demo/app.axf", "DEMO/app.axf"}) {
        SCOPED_TRACE(name);
        info.outputfilename = project.Narrow("") + "/" + name;
        EXPECT_EQ(Pack(), PACK_SAME_FILE);
        EXPECT_EQ(PackDll(), PACK_SAME_FILE);
        info.packmode = PACK_TO_TARGET;
        EXPECT_EQ(project.Get("demo/app.axf"), before);
    }
}

TEST_F(PackTest, AnOldOutputIsReplacedALinkIsWrittenThroughAndPermissionsAreTheInputs)
{
    ASSERT_EQ(chmod(info.inputfilename.constData(), 0555), 0);
    project.Put("demo/app.out", QByteArray(100000, 'x'));
    ASSERT_EQ(Pack(), 0);
    const QByteArray made = project.Get("demo/app.out");
    EXPECT_EQ(project.Mode("demo/app.out"), 0755);

    project.Put("demo/behind", "old");
    ASSERT_EQ(symlink("behind", project.Narrow("demo/link").constData()), 0);
    info.outputfilename = project.Narrow("demo/link");
    ASSERT_EQ(Pack(), 0);
    EXPECT_EQ(project.Get("demo/behind"), made);
    struct stat old;
    ASSERT_EQ(lstat(info.outputfilename.constData(), &old), 0);
    EXPECT_TRUE(S_ISLNK(old.st_mode));
}

TEST_F(PackTest, AMissingFolderOfTheSideFileFailsBehindACompleteOutput)
{
    ASSERT_EQ(Pack(), 0);
    const QByteArray made = project.Get("demo/app.out");
    ASSERT_EQ(unlink(project.Narrow("demo/arm/app.res").constData()), 0);
    ASSERT_EQ(rmdir(project.Narrow("demo/arm").constData()), 0);
    ASSERT_EQ(unlink(project.Narrow("demo/app.out").constData()), 0);
    EXPECT_EQ(Pack(), ENOENT);
    EXPECT_EQ(project.Get("demo/app.out"), made);
    EXPECT_THAT(project.trace.toStdString(), HasSubstr("[error] could not open file while write data into resfile: "));
    EXPECT_THAT(project.output.toStdString(), testing::EndsWith("\r\npack resource done, result=2\r\n"));

    info.outputfilename = project.Narrow("demo/gone/app.out");
    EXPECT_EQ(Pack(), ENOENT);
    EXPECT_EQ(PackDll(), ENOENT);
}

TEST_F(PackTest, TheSideFileStandsBesideTheInputWithTheLastExtensionReplaced)
{
    ASSERT_TRUE(CreateFolderOnDisk(project.Path("demo/v1.2")));
    ASSERT_TRUE(CreateFolderOnDisk(project.Path("demo/v1.2/ARM")));
    project.Put("demo/v1.2/app.old.axf", PackProject::Elf());
    project.Put("demo/v1.2/plain", PackProject::Elf());
    info.inputfilename = project.Narrow("demo") + "\\v1.2\\app.old.axf";
    ASSERT_EQ(Pack(), 0) << project.trace.constData();
    EXPECT_TRUE(project.Has("demo/v1.2/ARM/app.old.res"));
    info.inputfilename = project.Narrow("demo/v1.2/plain");
    ASSERT_EQ(Pack(), 0);
    EXPECT_TRUE(project.Has("demo/v1.2/ARM/plain.res"));
}

/// The result of a pack in a child whose files can't grow beyond `limit` bytes.
int PackWithin(rlim_t limit, const packinfo &info, CResModel &model)
{
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit size{limit, limit};
        setrlimit(RLIMIT_FSIZE, &size);
        const int code = Packer::Pack(info, model);
        _exit(code == 0 ? 0 : -code - 1000);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    return WEXITSTATUS(status) == 0 ? 0 : -(WEXITSTATUS(status) + 1000);
}

TEST_F(PackTest, AFullDiskAtAnyByteIsAFailedWriteAndLeavesTheInputWhole)
{
    // The fork's copies of the logs go with the child.
    project.Put("demo/AppLogo.img", "icon");
    project.AddString(project.AddLanguage(0), u"text"_s, 1);
    const QByteArray elf = project.Get("demo/app.axf");
    for (const PackMode mode : {PACK_TO_TARGET, PACK_TO_DLL}) {
        info.packmode = mode;
        ASSERT_EQ(Pack(), 0);
        const qsizetype size = project.Get("demo/app.out").size();
        for (qsizetype limit = 0; limit < size; ++limit) {
            SCOPED_TRACE(limit);
            ASSERT_EQ(PackWithin(rlim_t(limit), info, *project.model), PACK_WRITE);
            ASSERT_EQ(project.Get("demo/app.axf"), elf);
            const QByteArray left = project.Get("demo/app.out");
            ASSERT_TRUE(left.startsWith(elf) || elf.startsWith(left)) << "the old header describes what is there";
        }
        EXPECT_EQ(PackWithin(rlim_t(size), info, *project.model), 0);
    }
}

} // namespace
