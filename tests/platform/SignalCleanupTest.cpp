#include "SignalCleanup.h"

#include "TempFolder.h"

#include <csignal>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

namespace
{

/// Runs `work` in a process of its own, which ends at the latest when it returns; its status.
template <typename Work> int StatusOfChild(const Work &work)
{
    const pid_t child = fork();
    if (child == 0) {
        alarm(60);
        work();
        _exit(0);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return status;
}

/// A process that waits to be ended.
pid_t Sleeper(bool ignoresTerm)
{
    int ready[2];
    EXPECT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGTERM, ignoresTerm ? SIG_IGN : SIG_DFL);
        close(ready[0]);
        close(ready[1]);
        alarm(60);
        for (;;)
            pause();
    }
    close(ready[1]);
    char end;
    EXPECT_EQ(read(ready[0], &end, 1), 0) << "it has set its signals";
    close(ready[0]);
    return child;
}

} // namespace

TEST(SignalCleanup, TakesFilesAndChildrenAlongAndEndsWithTheSignalsOwnStatus)
{
    const TempFolder folder;
    QDir::setCurrent(folder.Path());
    for (const int signal : {SIGINT, SIGTERM}) {
        for (const char *name : {"kept", "first", "middle", "last", "replaced", "elsewhere/first"})
            folder.Put(name, "");
        pid_t sleepers[2] = {};
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const int status = StatusOfChild([&] {
            SignalCleanup::Install();
            auto first = SignalCleanup::OfFile("first");
            auto kept = SignalCleanup::OfFile("kept");
            auto middle = SignalCleanup::OfFile(folder.Path("middle").toUtf8());
            SignalCleanup last = SignalCleanup::OfFile("replaced");
            last = SignalCleanup::OfFile("last"); // lets go of the one before
            const pid_t pids[] = {Sleeper(false), Sleeper(true)};
            const auto easy = SignalCleanup::OfChild(pids[0]);
            const auto stubborn = SignalCleanup::OfChild(pids[1]);
            (void)!write(ends[1], pids, sizeof pids);
            kept.Release();
            QDir::setCurrent(folder.Path("elsewhere"));
            {
                const SignalHold hold;
                raise(signal);
                folder.Put("held", "");
            }
            folder.Put("not reached", "");
        });
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
        EXPECT_EQ(folder.Names(), QStringList({u"elsewhere"_s, u"held"_s, u"kept"_s, u"replaced"_s}));
        EXPECT_TRUE(folder.Has("elsewhere/first"));
        ASSERT_EQ(read(ends[0], sleepers, sizeof sleepers), ssize_t(sizeof sleepers));
        EXPECT_TRUE(kill(sleepers[0], 0) != 0 && kill(sleepers[1], 0) != 0) << "both are gone";
        close(ends[0]);
        close(ends[1]);
    }
}

TEST(SignalCleanup, AForkOfTheProcessRemovesNothingAndAnIgnoredSignalStaysIgnored)
{
    const TempFolder folder;
    folder.Put("file", "");
    const int status = StatusOfChild([&] {
        signal(SIGINT, SIG_IGN);
        SignalCleanup::Install();
        const auto file = SignalCleanup::OfFile(folder.Path("file").toUtf8());
        raise(SIGINT);
        const int ofFork = StatusOfChild([] { raise(SIGTERM); });
        _exit(WIFSIGNALED(ofFork) && WTERMSIG(ofFork) == SIGTERM && folder.Has("file") ? 77 : 1);
    });
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 77) << status;
    EXPECT_TRUE(folder.Has("file"));
}
