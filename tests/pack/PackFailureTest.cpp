#include "PackProject.h"

#include "PackCodes.h"
#include "Packer.h"

#include <gmock/gmock.h>

#include <functional>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace
{

/// A project that fails to pack, and what it says then.
struct FailureCase
{
    const char *name;
    int code;
    const char *phase;  ///< the line of the phase that failed, without its ", result="
    const char *output; ///< what the report has
    const char *trace;  ///< what the debug log has
    int imageconvert;
    std::function<void(PackProject &)> spoil;
};

std::ostream &operator<<(std::ostream &out, const FailureCase &failure)
{
    return out << failure.name;
}

constexpr char ICON[] = "\r\n[error] construct app icon resource error";
constexpr char PREVIEW[] = "\r\n[error] construct preview image resource error";
constexpr char V1[] = "\r\n[error] construct zep 1.0 resource error";
constexpr char LANGUAGE[] = "\r\n[error] construct language resource error";
constexpr char FILES[] = "\r\n[error] construct file resource error";
constexpr char IMAGES[] = "\r\n[error] construct image resource error";

/// A file of the system that is shorter than its size says.
constexpr char SHORT_FILE[] = "/sys/kernel/mm/transparent_hugepage/enabled";

void AddImage(PackProject &project, const char *path)
{
    project.AddFile(project.defaultImages, path, 3);
}

const FailureCase FAILURES[] = {
    {"NoIcon", PACK_NO_ICON, ICON, "\r\n[error] Could not find the default icon in tool folder", "", 0,
     [](PackProject &p) { EXPECT_EQ(unlink(p.Narrow("bin/AppLogo.img").constData()), 0); }},
    {"IconEndsEarly", PACK_FILE_READ, ICON, "", "", 0,
     [](PackProject &p) { EXPECT_EQ(symlink(SHORT_FILE, p.Narrow("demo/AppLogo.img").constData()), 0); }},
    {"ListIsAFolder", PACK_FILE_OPEN, V1, "", "Could not read list file : ", 0,
     [](PackProject &p) { EXPECT_TRUE(CreateFolderOnDisk(p.Path("demo/demo_res.lst"))); }},
    {"ListedFolder", PACK_FILE_OPEN, V1, "", "Could not read resource file : ", 0,
     [](PackProject &p) { p.Put("demo/demo_res.lst", ".\\res"); }},
    {"ListedFileEndsEarly", PACK_FILE_READ, V1, "", "", 0,
     [](PackProject &p) { p.Put("demo/demo_res.lst", SHORT_FILE); }},
    {"ListedFileOfEightBytes", PACK_IMAGE_SIZE, V1,
     "\r\n[error] Got invalid file attributes: ", "\r\n[error] Got invalid file attributes: ", 1,
     [](PackProject &p) {
         p.Put("demo/demo_res.lst", ".\\a.bin");
         p.Put("demo/a.bin", "12345678");
     }},
    {"PreviewNotConverted", PACK_NOT_THERE, PREVIEW, "\r\n[error] Convert image fail.",
     "\r\n[error] Convert image fail.", 1,
     [](PackProject &p) {
         p.Put("demo/preview.lst", ".\\a.BMP");
         p.Put("demo/a.BMP", "a bitmap of some bytes");
     }},
    {"LanguageBelowZero", PACK_LANGUAGE_NUMBER, LANGUAGE, "\r\n[error] Illegal language ID: -7.", "", 0,
     [](PackProject &p) { p.AddLanguage(-7); }},
    {"NoStringsFolder", PACK_LANGUAGE_LIST, LANGUAGE, "", "", 0,
     [](PackProject &p) { EXPECT_TRUE(p.model->root.DeleteFolder(p.strings)); }},
    {"StringWithoutId", PACK_STRING_LIST, LANGUAGE, "", "", 0,
     [](PackProject &p) { p.AddLanguage(0)->AddResource(std::make_unique<CStringRes>()); }},
    {"FileWithoutId", PACK_FILE_LIST, FILES, "", "", 0,
     [](PackProject &p) { p.binary->AddResource(std::make_unique<CFileRes>()); }},
    {"FileMissing", PACK_NOT_THERE, FILES, "\r\n[error] File does not exist: .\\gone.bin", "", 0,
     [](PackProject &p) { p.AddFile(p.binary, ".\\gone.bin", 1); }},
    {"FileWithoutPath", PACK_NOT_THERE, FILES, "\r\n[error] File does not exist: ", "", 0,
     [](PackProject &p) { p.AddFile(p.binary, "", 1); }},
    {"FileIsAFolder", PACK_FILE_OPEN, FILES, "", "[error] Could not open file while read resource data : .\\res.\n", 0,
     [](PackProject &p) { p.AddFile(p.binary, ".\\res", 1); }},
    {"FileIsAPipe", PACK_FILE_OPEN, FILES, "", "[error] Could not open file while read resource data : .\\pipe.\n", 0,
     [](PackProject &p) {
         EXPECT_EQ(mkfifo(p.Narrow("demo/pipe").constData(), 0600), 0);
         p.AddFile(p.binary, ".\\pipe", 1);
     }},
    {"FileEndsEarly", PACK_FILE_READ, FILES, "", "", 0, [](PackProject &p) { p.AddFile(p.binary, SHORT_FILE, 1); }},
    {"FileBeyond32Bits", PACK_MEMORY, FILES, "", "", 0,
     [](PackProject &p) {
         p.Put("demo/huge", "");
         EXPECT_EQ(truncate(p.Narrow("demo/huge").constData(), off_t(1) << 32), 0);
         p.AddFile(p.binary, ".\\huge", 1);
     }},
    {"ImageWithoutId", PACK_IMAGE_LIST, IMAGES, "", "", 0,
     [](PackProject &p) { p.defaultImages->AddResource(std::make_unique<CFileRes>()); }},
    {"ImageMissing", PACK_NOT_THERE, IMAGES, "\r\n[error] Image file does not exist: ", "", 0,
     [](PackProject &p) { AddImage(p, ".\\gone.png"); }},
    {"ImageMissingForConversion", PACK_NOT_THERE, IMAGES, "\r\n[error] Image file does not exist: ", "", 1,
     [](PackProject &p) { AddImage(p, ".\\gone.png"); }},
    {"ImageOfAnotherType", PACK_IMAGE_TYPE, IMAGES, "\r\n[error] un-supported image type.",
     "\r\n[error] un-supported image type.", 1,
     [](PackProject &p) {
         p.Put("demo/a.jpeg", "a picture of some bytes");
         AddImage(p, ".\\a.jpeg");
     }},
    {"ImageOfEightBytes", PACK_IMAGE_SIZE, IMAGES,
     "\r\n[error] Got invalid file attributes: ", "\r\n[error] Got invalid file attributes: ", 0,
     [](PackProject &p) {
         p.Put("demo/a.png", "12345678");
         AddImage(p, ".\\a.png");
     }},
    {"ImageIsAFolder", PACK_IMAGE_OPEN, IMAGES,
     "\r\n[error] Could not open file while reading resource data. (.\\a.png)",
     "\r\n[error] Could not open file while reading resource data. (.\\a.png)", 0,
     [](PackProject &p) {
         EXPECT_TRUE(CreateFolderOnDisk(p.Path("demo/a.png")));
         AddImage(p, ".\\a.png");
     }},
    {"ImageEndsEarly", PACK_IMAGE_READ, IMAGES, "\r\n[error] Read data fail while reading resource data. (/sys/",
     "\r\n[error] Read data fail while reading resource data. (/sys/", 0,
     [](PackProject &p) { AddImage(p, SHORT_FILE); }},
};

class PackFailure : public testing::TestWithParam<FailureCase>
{
};

TEST_P(PackFailure, HasItsCodeAndItsLines)
{
    const FailureCase &failure = GetParam();
    if (QByteArray(failure.name).endsWith("EndsEarly") && !PathExists(QString::fromUtf8(SHORT_FILE)))
        GTEST_SKIP() << "no file here that is shorter than its size";
    PackProject project;
    const QByteArray elf = PackProject::Elf();
    project.Put("demo/app.axf", elf);
    failure.spoil(project);
    packinfo info;
    info.inputfilename = project.Narrow("demo/app.axf");
    info.imageconvert = failure.imageconvert;

    for (const PackMode mode : {PACK_TO_TARGET, PACK_TO_DLL}) {
        info.packmode = mode;
        project.output.clear();
        EXPECT_EQ(Packer::Pack(info, *project.model), failure.code);
        const QByteArray result = QByteArray::number(failure.code);
        EXPECT_TRUE(project.output.endsWith(failure.phase + QByteArray(", result=") + result +
                                            "\r\npack resource done, result=" + result + "\r\n"))
            << project.output.constData();
        EXPECT_THAT(project.output.toStdString(), HasSubstr(failure.output));
        EXPECT_THAT(project.trace.toStdString(), HasSubstr(failure.trace));
        EXPECT_EQ(project.Get("demo/app.axf"), elf);
        EXPECT_FALSE(project.Has("demo/app.axf.pkd")) << "nothing is written before all has been read";
    }
}

INSTANTIATE_TEST_SUITE_P(Case, PackFailure, testing::ValuesIn(FAILURES),
                         [](const auto &instance) { return std::string(instance.param.name); });

TEST(PackTarget, ThatCannotBeReadFailsBeforeThePhases)
{
    PackProject project;
    packinfo info;
    info.inputfilename = project.Narrow("demo/gone.axf");
    EXPECT_EQ(Packer::Pack(info, *project.model), -1030);
    EXPECT_THAT(project.trace.toStdString(), HasSubstr("Parse zxa file failed.\n"));
    EXPECT_EQ(project.output, "\r\npack resource started\r\n\r\npack resource done, result=-1030\r\n");
    info.packmode = PACK_TO_DLL;
    EXPECT_EQ(Packer::Pack(info, *project.model), PACK_INPUT_SIZE);
}

TEST(ListFiles, AreReadAsWrittenByHandToo)
{
    PackProject project;
    project.Put("demo/app.axf", PackProject::Elf());
    project.Put("demo/a.bin", "first");
    project.Put("demo/res/b c.bin", "second");
    const QByteArray tooLong(300, 'x');
    project.Put("demo/demo_res.lst", "\n.\\a.bin\n\r\n" + tooLong + "\r\n" + project.Narrow("demo/res/b c.bin") +
                                         "\r\n.\\RES\\B C.bin\rbehind");
    packinfo info;
    info.inputfilename = project.Narrow("demo/app.axf");
    ASSERT_EQ(Packer::Pack(info, *project.model), 0) << project.output.constData();
    EXPECT_EQ(project.Get("demo/arm/app.res"), BytesOf(PayloadBuilder()
                                                           .Entry("AppLogo.img", ToBytes("program's logo"))
                                                           .Entry("a.bin", ToBytes("first"))
                                                           .Entry("b c.bin", ToBytes("second"))
                                                           .Entry("B C.bin", ToBytes("second"))));
    // 300 bytes are a line of 255 and one of the rest, twice since the phases run twice.
    EXPECT_EQ(project.output.count(" not exist, ignore..."), 4);
}

} // namespace
