// SPDX-License-Identifier: MIT
#include "PackCodes.h"
#include "PackProject.h"
#include "PackTrial.h"

namespace
{

/// A file of the system that is shorter than its size in stat.
constexpr char SHORT_FILE[] = "/sys/kernel/mm/transparent_hugepage/enabled";

/// A failure of a pack, and its messages.
struct Failure
{
    const char *phase; ///< the name of the phase that fails
    const char *path;  ///< path of the resource, or in the list; null: a resource without an ID
    int imageconvert;
    int code;
    int logs = 0; ///< which logs contain `said`
    const char *said = "";
};

constexpr int REPORT = 1;
constexpr int TRACE = 2;

const Failure FAILURES[] = {
    {"app icon", "gone", 0, PACK_NO_ICON, REPORT, "\r\n[error] Could not find the default icon in tool folder"},
    {"app icon", SHORT_FILE, 0, PACK_FILE_READ},
    {"preview image", ".\\a.BMP", 1, PACK_NOT_THERE, REPORT | TRACE, "\r\n[error] Convert image fail."},
    {"zep 1.0", ".\\folder", 0, PACK_FILE_OPEN, TRACE, "Could not read resource file : "},
    {"zep 1.0", SHORT_FILE, 0, PACK_FILE_READ},
    {"zep 1.0", ".\\short.bin", 1, PACK_IMAGE_SIZE, REPORT | TRACE, "\r\n[error] Got invalid file attributes: "},
    {"language", nullptr, 0, PACK_STRING_LIST},
    {"file", nullptr, 0, PACK_FILE_LIST},
    {"file", ".\\gone.bin", 0, PACK_NOT_THERE, REPORT, "\r\n[error] File does not exist: .\\gone.bin"},
    {"file", "", 0, PACK_NOT_THERE, REPORT, "\r\n[error] File does not exist: \r\n"},
    {"file", "pipe", 0, PACK_FILE_OPEN, TRACE, "[error] Could not open file while read resource data : pipe.\n"},
    {"file", SHORT_FILE, 0, PACK_FILE_READ},
    {"file", "huge", 0, PACK_MEMORY},
    {"image", nullptr, 0, PACK_IMAGE_LIST},
    {"image", "gone.png", 0, PACK_NOT_THERE, REPORT, "\r\n[error] Image file does not exist: "},
    {"image", "gone.png", 1, PACK_NOT_THERE, REPORT, "\r\n[error] Image file does not exist: "},
    {"image", "a.jpeg", 1, PACK_IMAGE_TYPE, REPORT | TRACE, "\r\n[error] un-supported image type."},
    {"image", "short.png", 0, PACK_IMAGE_SIZE, REPORT | TRACE, "\r\n[error] Got invalid file attributes: "},
    {"image", "folder", 0, PACK_IMAGE_OPEN, REPORT | TRACE,
     "\r\n[error] Could not open file while reading resource data. (folder)"},
    {"image", SHORT_FILE, 0, PACK_IMAGE_READ, REPORT | TRACE,
     "\r\n[error] Read data fail while reading resource data. (/sys/"},
};

void Spoil(PackProject &project, const QByteArray &phase, const char *path)
{
    const auto add = [&](CResFolder &to, std::unique_ptr<CBaseRes> withoutId) {
        path ? void(project.AddFile(to, path, 3)) : to.AddResource(std::move(withoutId));
    };
    if (phase == "app icon") {
        EXPECT_TRUE(unlink("bin/AppLogo.img") == 0 && symlink(path, "AppLogo.img") == 0);
    } else if (phase == "preview image") {
        project.folder.Put("preview.lst", path);
    } else if (phase == "zep 1.0") {
        project.folder.Put("demo_res.lst", path);
    } else if (phase == "language") {
        project.AddLanguage(0);
        add(*project.strings.subfolders.back(), std::unique_ptr<CBaseRes>(new (project.stringMemory) CStringRes));
    } else {
        add(phase == "file" ? project.binary : project.defaultImages, std::make_unique<CFileRes>());
    }
}

/// A dry run finds the failure too, and writes nothing to the report. It doesn't read the contents of resources.
void ExpectFaultOfTrial(PackProject &project, PackMode mode, int code)
{
    if (code == PACK_FILE_READ || code == PACK_IMAGE_READ)
        return;
    PackTrial trial;
    trial.sizes.picture = [](const QByteArray &, QString &fault) {
        fault = QStringLiteral("no picture");
        return std::optional<quint64>();
    };
    project.info.packmode = mode;
    Packer::Try(project.info, project, trial);
    ASSERT_FALSE(trial.faults.empty());
    EXPECT_EQ(trial.faults[0].code, code);
    EXPECT_FALSE(trial.isExact || trial.faults[0].text.isEmpty());
    EXPECT_EQ(project.TakeOutput() + project.TakeExplained(), "");
}

/// Packs in both modes.
void ExpectFailure(PackProject &project, const Failure &failure)
{
    SCOPED_TRACE(testing::Message() << failure.phase << ' ' << failure.path << ' ' << failure.said);
    project.info.imageconvert = failure.imageconvert;
    const std::string result = ", result=" + std::to_string(failure.code) + "\r\n";
    for (const PackMode mode : {PACK_TO_TARGET, PACK_TO_DLL}) {
        EXPECT_EQ(project.Pack(mode), failure.code);
        EXPECT_THAT(project.output.toStdString(),
                    testing::EndsWith("\r\n[error] construct " + std::string(failure.phase) + " resource error" +
                                      result + "pack resource done" + result));
        EXPECT_EQ(project.output.contains(failure.said), !*failure.said || (failure.logs & REPORT));
        EXPECT_EQ(project.trace.contains(failure.said), !*failure.said || (failure.logs & TRACE));
        const bool isUnreadable = failure.code == PACK_FILE_OPEN || failure.code == PACK_FILE_READ ||
                                  failure.code == PACK_IMAGE_OPEN || failure.code == PACK_IMAGE_READ;
        EXPECT_EQ(project.TakeExplained().contains("cannot read "), isUnreadable);
        EXPECT_EQ(project.folder.Get("app.axf"), project.elf);
        EXPECT_FALSE(project.folder.Has("app.out")) << "nothing is written before all has been read";
        ExpectFaultOfTrial(project, mode, failure.code);
    }
}

TEST(PackFailure, HasItsCodeAndMessages)
{
    for (const Failure &failure : FAILURES) {
        if (failure.path == SHORT_FILE && !QFile::exists(QLatin1String(SHORT_FILE)))
            continue;
        PackProject project;
        project.folder.MakeFolder("folder");
        for (const char *file : {"short.png", "short.bin", "a.jpeg", "a.BMP", "huge"})
            project.folder.Put(file, *file == 's' ? "12345678" : "a picture of some bytes");
        EXPECT_TRUE(truncate("huge", off_t(1) << 32) == 0 && mkfifo("pipe", 0600) == 0);
        Spoil(project, failure.phase, failure.path);
        ExpectFailure(project, failure);
    }
}

TEST(PackFailure, ComesFromTheTreeAndTheList)
{
    for (const auto &[number, said] :
         {std::pair(-7, "\r\n[error] Illegal language ID: -7."), {0x2FFFF, "ID: 196607."}}) {
        PackProject project;
        project.AddLanguage(number);
        ExpectFailure(project, {"language", "", 0, PACK_LANGUAGE_NUMBER, REPORT, said});
    }
    PackProject project;
    EXPECT_TRUE(project.root.DeleteFolder(&project.strings));
    ExpectFailure(project, {"language", "", 0, PACK_LANGUAGE_LIST});
    project.folder.MakeFolder("demo_res.lst");
    ExpectFailure(project, {"zep 1.0", "", 0, PACK_FILE_OPEN, TRACE, "Could not read list file : "});
}

TEST(PackTarget, FailsBeforeThePhasesIfItCannotBeRead)
{
    PackProject project;
    project.info.inputfilename += "x";
    EXPECT_EQ(project.Pack(), -1030);
    EXPECT_TRUE(project.trace.endsWith("Parse zxa file failed.\n"));
    EXPECT_EQ(project.output, "\r\npack resource started\r\n\r\npack resource done, result=-1030\r\n");
    EXPECT_EQ(project.Pack(PACK_TO_DLL), PACK_INPUT_SIZE);
}

} // namespace
