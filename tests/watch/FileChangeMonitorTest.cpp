// SPDX-License-Identifier: MIT
#include "CFileChangeMonitor.h"
#include "TempFolder.h"
#include "WatchTimes.h"

#include <condition_variable>
#include <deque>
#include <filesystem>
#include <mutex>
#include <sched.h>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <thread>

using namespace std::chrono_literals;
using Handles = std::vector<quint32>;

namespace
{

class FileChangeMonitor : public testing::Test
{
protected:
    /// Runs shell commands in the temporary folder; `n` is $n in them.
    void Shell(const char *commands, int n = 1)
    {
        const QByteArray line = "cd '" + folder.Path().toUtf8() + "' && n=" + QByteArray::number(n) + " && " + commands;
        ASSERT_EQ(std::system(line.constData()), 0) << commands;
    }
    quint32 Add(const char *path) { return monitor->AddFile(folder.Path(path), nullptr); }
    void Restart(const WatchTimes &times)
    {
        monitor.emplace(
            [this](const Handles &handles) {
                std::unique_lock guard(lock);
                told.push_back(handles);
                news.notify_all();
                news.wait(guard, [this] { return !isHeld; });
            },
            times);
    }
    void SetUp() override { Restart({60ms, 1000ms, 30ms, 30ms}); }
    /// Returns the next notice, or an empty one after `time`.
    Handles Next(std::chrono::milliseconds time = 10s)
    {
        std::unique_lock guard(lock);
        if (!news.wait_for(guard, time, [this] { return !told.empty(); }))
            return {};
        const Handles next = told.front();
        told.pop_front();
        return next;
    }
    /// While `held` is true, the thread waits in its next notice.
    void Hold(bool held)
    {
        const std::lock_guard guard(lock);
        isHeld = held;
        news.notify_all();
    }

    TempFolder folder;
    std::mutex lock;
    std::condition_variable news;
    std::deque<Handles> told;
    bool isHeld = false;
    std::optional<CFileChangeMonitor> monitor;
};

long Threads()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

/// Waits, since the system lists a thread for a moment after it has ended.
bool ThreadsBecome(long count)
{
    for (int wait = 0; wait < 1000 && Threads() != count; ++wait)
        std::this_thread::sleep_for(1ms);
    return Threads() == count;
}

bool Write(const char *path, const QByteArray &text)
{
    QFile file(QString::fromUtf8(path));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(text) == text.size();
}

} // namespace

TEST_F(FileChangeMonitor, SendsOneNoticeForEachKindOfChange)
{
    Shell("mkdir -p out all project/res real1 real2 && cd project && echo > res/f && echo > res/g && ln -s ../out/f "
          "link &&"
          "cd .. && echo > out/f && echo > real1/f && echo > real2/f && touch -d '1 hour ago' real2/f &&"
          "ln -s real1 step && ln -s step folder");
    ASSERT_EQ(Add("project/res/f"), 1U);
    ASSERT_EQ(Add("project/link"), 2U);
    ASSERT_EQ(Add("folder/f"), 3U);
    ASSERT_EQ(Add("project/res/g"), 4U);
    ASSERT_EQ(Add("all/"), 5U);
    const struct
    {
        const char *commands;
        Handles told;
    } table[] = {
        {"echo >> project/res/f", {1}},
        {"{ for i in 1 2 3 4 5; do echo; sleep 0.02; done; } >> project/res/f", {1}},
        {"echo > project/res/new && mv project/res/new project/res/f", {1}},
        {"cd project/res && rm f && echo > f", {1}},
        {"cd project/res && mv f f~ && echo > f", {1}},
        {"echo $n > out/h$n && rm project/res/f && sleep 0.2 && ln out/h$n project/res/f", {1}},
        {"touch -d 200$n-01-01 project/res/f", {1}},
        {"echo > out/old && touch -d 198$n-01-01 out/old && mv out/old project/res/f", {1}},
        {"echo >> project/res/g && echo >> project/res/f", {1, 4}},
        {"cd project && mv res r && echo >> r/f && sleep 0.1 && mv r res", {1}},
        {"cd project && rm -r res && sleep 0.1 && mkdir res && echo > res/f && echo > res/g", {1, 4}},
        {"mv project p$n && cp -rp p$n project && echo > project/res/g", {4}},
        {"echo >> out/f", {2}},
        {"mkdir out$n && echo > out$n/f && ln -sfn ../out$n/f project/link", {2}},
        {"echo >> $(readlink -f project/link)", {2}},
        {"ln -sfn real$((3-n)) step", {3}},
        {"echo >> real1/f", {3}},
        {"echo > all/any", {5}},
        {"cp -p project/res/g out/g && mv out/g project/res/g && chmod 60$n project/res/g", {}},
        {"mkdir project/res/sub$n && echo > project/res/sub$n/f && echo > project/res/other", {}},
        {"mv project/res/f out/away && sleep 0.2 && mv out/away project/res/f", {}},
    };
    for (const auto &row : table) {
        for (const int n : {1, 2}) {
            Shell(row.commands, n);
            // A second notice would appear in the place of the next row's.
            EXPECT_EQ(Next(row.told.empty() ? 200ms : 10s), row.told) << row.commands << ", time " << n;
        }
    }
}

TEST_F(FileChangeMonitor, RunsItsThreadWhileFilesAreWatchedAndAssignsIncreasingHandles)
{
    folder.Put("f", "1");
    folder.Put("g", "1");
    const long threads = Threads();
    EXPECT_EQ(Add("missing"), 0U);
    Shell("mkfifo pipe");
    EXPECT_EQ(Add("pipe"), 0U);
    EXPECT_TRUE(ThreadsBecome(threads));

    ASSERT_EQ(Add("f"), 1U);
    ASSERT_EQ(Add("g"), 2U);
    EXPECT_TRUE(ThreadsBecome(threads + 1));
    qint32 flag = 0;
    monitor->SetAutoReloadFlags(2, &flag, nullptr);
    monitor->SetAutoReloadFlags(9, &flag, nullptr);
    EXPECT_EQ(monitor->ItemOf(2)->autoReloadFile, &flag);
    monitor->RemoveFile(1);
    monitor->RemoveFile(1);
    EXPECT_FALSE(monitor->ItemOf(1));
    Shell("echo >> f && echo >> g");
    EXPECT_EQ(Next(), Handles{2}) << "the folder is still watched";
    monitor->RemoveFile(2);
    EXPECT_TRUE(ThreadsBecome(threads));

    ASSERT_EQ(Add("f"), 3U);
    Shell("echo > save && mv save f"); // like the program's own save: the watch is removed and added again
    monitor->RemoveFile(3);
    ASSERT_EQ(Add("f"), 4U);
    EXPECT_EQ(Next(300ms), Handles());
    monitor->Stop();
    EXPECT_FALSE(monitor->ItemOf(4));
    EXPECT_TRUE(ThreadsBecome(threads));
    ASSERT_EQ(Add("g"), 5U);
    Shell("echo >> g");
    EXPECT_EQ(Next(), Handles{5});
}

TEST_F(FileChangeMonitor, SendsOneNoticeForACheckoutOfAProject)
{
    Restart({1500ms, 10s, 1s, 1s});
    Shell("mkdir res && git init -q . && git config user.name n && git config user.email e && git config gc.auto 0 &&"
          "for state in old new; do for i in $(seq 999); do echo $state > res/$i; done; echo $state > config;"
          "git add . && git commit -q -m $state; done");
    for (const char *file : {"res/1", "config", "res/999"})
        ASSERT_NE(Add(file), 0U);
    Shell("git checkout -q HEAD~1");
    EXPECT_EQ(Next(), (Handles{1, 2, 3}));
    EXPECT_EQ(Next(500ms), Handles());
}

TEST_F(FileChangeMonitor, ComparesFoldersWhenTheInotifyLimitIsReached)
{
    constexpr char LIMIT[] = "/proc/sys/user/max_inotify_instances";
    constexpr int NO_NAMESPACE = 2;
    // In a child process with limits of its own, since other processes need their events.
    const auto child = [&] {
        const QByteArray user = "0 " + QByteArray::number(getuid()) + " 1";
        if (unshare(CLONE_NEWUSER) != 0)
            _exit(NO_NAMESPACE);
        ASSERT_TRUE(Write("/proc/self/uid_map", user));
        ASSERT_TRUE(Write(LIMIT, "0"));
        ASSERT_EQ(inotify_init1(0), -1);
        folder.Put("all/f", "1");
        ASSERT_EQ(Add("all/f"), 1U);
        ASSERT_EQ(Add("all/"), 2U);
        for (int n : {1, 2}) {
            Shell("echo >> all/f", n);
            EXPECT_EQ(Next(), (Handles{1, 2}));
            EXPECT_EQ(Next(200ms), Handles());
        }
        ASSERT_TRUE(Write(LIMIT, "9"));
        std::this_thread::sleep_for(100ms);
        Shell("touch all/f -r all/f");
        EXPECT_EQ(Next(), Handles{2}) << "events work again";
    };
    const pid_t pid = fork();
    if (pid == 0) {
        child();
        _exit(HasFailure() ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == NO_NAMESPACE)
        GTEST_SKIP() << "this system has no limits of its own for a process";
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(FileChangeMonitor, ComparesAllFoldersWhenTheSystemDroppedEvents)
{
    Shell("mkdir a b && echo > a/f && echo > a/g && echo > b/f");
    Add("a/f");
    Add("b/f");
    Hold(true);
    Shell("echo >> a/f");
    EXPECT_EQ(Next(), Handles{1});
    Shell("limit=$(cat /proc/sys/fs/inotify/max_queued_events);"
          "while [ $n -le $limit ]; do : > a/f; : > a/g; n=$((n+2)); done; echo >> b/f");
    Hold(false);
    EXPECT_EQ(Next(), (Handles{1, 2}));
    Shell("echo >> b/f");
    EXPECT_EQ(Next(), Handles{2});
}

TEST_F(FileChangeMonitor, SendsANoticeWhileEventsContinue)
{
    Restart({500ms, 1000ms, 1s, 1s});
    folder.Put("f", "");
    Add("f");
    Handles next;
    const auto start = std::chrono::steady_clock::now();
    while (next.empty() && std::chrono::steady_clock::now() - start < 5s) {
        folder.Put("f", "x");
        next = Next(10ms);
    }
    EXPECT_EQ(next, Handles{1});
    EXPECT_GE(std::chrono::steady_clock::now() - start, 900ms);
}
