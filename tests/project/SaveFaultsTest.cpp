#include "TestProject.h"

#include <chrono>
#include <csignal>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

namespace
{

const char *const FILES[] = {"demo/res/demo.res.xml", "demo/res/ref_list_demo.txt", "demo/ResID/ResID.h"};

QByteArray List(int files)
{
    QByteArray text = "<APP><STRING>res\\ref_list_demo.txt</STRING>";
    for (int i = 0; i < files; ++i)
        text += "<FILE id=\"ID_FILE_" + QByteArray::number(i) + "\">.\\data.bin</FILE>";
    return text + "</APP>";
}

using Contents = std::vector<QByteArray>;

Contents Read(const TestProject &project)
{
    Contents contents;
    for (const char *file : FILES)
        contents.push_back(project.folder.Get(file));
    return contents;
}

/// Nothing lies beside the project's files.
void ExpectNoLitter(const TestProject &project)
{
    EXPECT_EQ(project.folder.Names("demo/res"), QStringList({u"demo.res.xml"_s, u"ref_list_demo.txt"_s}));
    EXPECT_EQ(project.folder.Names("demo/ResID"), QStringList({u"ResID.h"_s}));
}

void Change(CResDoc &doc, const NarrowText &name)
{
    auto file = doc.CreateFileRes(name, ANY_RESOLUTION);
    doc.root.FindFolder(KIND_BINARY, 2)->AddResource(std::move(file));
    auto *text = static_cast<CStringRes *>(doc.root.FindFolder(KIND_LANGUAGE, 0, 2)->resources.First());
    text->SetText(QString::fromUtf8(name));
}

} // namespace

TEST(SaveFaults, WhereverTheDiskGivesOutEveryFileStaysAndNothingLiesBesideIt)
{
    TestProject project(List(40));
    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_HELLO"}));
    CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr) << project.TakeOutput().constData();
    ASSERT_TRUE(doc->DoFileSave());
    const Contents before = Read(project);
    Change(*doc, "ID_NEW");
    (void)project.TakeOutput();

    // No file may grow above a limit that rises until all fit: first the string file, then the header, then the list
    // fails.
    int failures = 0;
    for (rlim_t limit = 0;; limit += 97) {
        SCOPED_TRACE(limit);
        int results[2];
        ASSERT_EQ(pipe(results), 0);
        const pid_t child = fork();
        if (child == 0) {
            signal(SIGXFSZ, SIG_IGN);
            const rlimit files{limit, limit};
            setrlimit(RLIMIT_FSIZE, &files);
            (void)doc->DoFileSave();
            const QByteArray output = project.TakeOutput();
            _exit(write(results[1], output.constData(), size_t(output.size())) == output.size()
                      ? doc->lastSave.write != 0
                      : 99);
        }
        close(results[1]);
        char output[4096];
        const ssize_t size = read(results[0], output, sizeof output);
        close(results[0]);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status));
        const QByteArray said(output, std::max<ssize_t>(size, 0));
        ExpectNoLitter(project);
        if (WEXITSTATUS(status) == 0) {
            EXPECT_TRUE(said.contains("[demo] save - 0 error(s)")) << said.constData();
            break;
        }
        ++failures;
        EXPECT_EQ(Read(project), before);
        EXPECT_TRUE(said.startsWith("Error 1: failed to write to file \"res\\")) << said.constData();
        EXPECT_TRUE(said.endsWith("[demo] save - 1 error(s), 0 warning(s)\r\n")) << said.constData();
    }
    EXPECT_GT(failures, 10);
    const Contents after = Read(project);
    EXPECT_TRUE(after[0].contains("ID_NEW"));
    EXPECT_NE(after[1], before[1]);
    EXPECT_TRUE(after[2].contains("ID_NEW"));
}

TEST(SaveFaults, AFolderThatIsGoneLeavesTheRestAsItWas)
{
    TestProject project(List(1));
    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_HELLO"}));
    CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr);
    ASSERT_TRUE(doc->DoFileSave());
    const QByteArray header = project.folder.Get("demo/ResID/ResID.h");
    Change(*doc, "ID_NEW");
    (void)project.TakeOutput();
    ASSERT_TRUE(QDir().rename(project.folder.Path("demo/res"), project.folder.Path("demo/away")));
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(project.TakeOutput(), "Error 1: failed to open file \"res\\ref_list_demo.txt\".\r\n"
                                    "[demo] save - 1 error(s), 0 warning(s)\r\n");
    EXPECT_EQ(doc->lastSave.write, 110);
    EXPECT_TRUE(doc->IsModified());
    EXPECT_EQ(project.folder.Get("demo/ResID/ResID.h"), header);
}

TEST(SaveFaults, AKillAtAnyMomentLeavesEachFileWholeAndTheProjectOpens)
{
    TestProject project(List(300));
    QByteArrayList ids;
    for (int i = 0; i < 300; ++i)
        ids.append("ID_STRING_" + QByteArray::number(i));
    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable(ids));

    // Two states that a child saves in turn.
    CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr) << project.TakeOutput().constData();
    std::vector<Contents> states;
    const auto setState = [&](const NarrowText &name) {
        doc->root.FindFolder(KIND_BINARY, 2)->resources.First()->Rename(doc->ids, name);
        static_cast<CStringRes *>(doc->root.FindFolder(KIND_LANGUAGE, 0, 2)->resources.First())
            ->SetText(QString::fromUtf8(name));
    };
    std::chrono::microseconds oneSave{};
    for (const char *name : {"ID_A", "ID_B_AND_MORE"}) {
        setState(name);
        const auto start = std::chrono::steady_clock::now();
        ASSERT_TRUE(doc->DoFileSave());
        oneSave = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
        states.push_back(Read(project));
    }
    const auto longest = unsigned(std::clamp<qint64>(oneSave.count() * 3, 3000, 200'000));
    std::mt19937 random(11);
    bool sawEach[2] = {};
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        const pid_t child = fork();
        if (child == 0) {
            for (bool which = round % 2;; which = !which) {
                setState(which ? "ID_A" : "ID_B_AND_MORE");
                (void)doc->DoFileSave();
            }
        }
        usleep(useconds_t(random() % longest)); // somewhere within the first few saves
        kill(child, SIGKILL);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        const Contents now = Read(project);
        for (size_t i = 0; i < now.size(); ++i) {
            ASSERT_TRUE(now[i] == states[0][i] || now[i] == states[1][i]) << FILES[i];
            sawEach[now[i] == states[1][i]] = true;
        }
        TestProject other; // its own program; opens the files that were left
        CDocManager documents([&] { return std::make_unique<CResDoc>(*other.env, project.tables, other.services); });
        ASSERT_NE(documents.OpenDocumentFile(project.Path()), nullptr) << other.TakeOutput().constData();
        documents.CloseAll();
    }
    EXPECT_TRUE(sawEach[0] && sawEach[1]);
}
