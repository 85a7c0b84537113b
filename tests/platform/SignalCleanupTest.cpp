// SPDX-License-Identifier: MIT
#include "SignalCleanup.h"

#include "Leftovers.h"
#include "TempFolder.h"
#include "TemporaryFolder.h"

#include <csignal>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

namespace
{

/// Calls `work` in a child process, which ends at the latest when `work` returns. Returns the status of the child.
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

} // namespace

TEST(SignalCleanup, RemovesTheFilesThatItOwnsAndWaitsForAHold)
{
    const TempFolder folder;
    QDir::setCurrent(folder.Path());
    for (const char *name : {"kept", "first", "middle", "last", "replaced", "elsewhere/first"})
        folder.Put(name, "");
    const int status = StatusOfChild([&] {
        SignalCleanup::Install();
        auto first = SignalCleanup::OfFile("first");
        auto kept = SignalCleanup::OfFile("kept");
        auto middle = SignalCleanup::OfFile(folder.Path("middle").toUtf8());
        SignalCleanup last = SignalCleanup::OfFile("replaced");
        last = SignalCleanup::OfFile("last"); // releases the previous file
        kept.Release();
        QDir::setCurrent(folder.Path("elsewhere"));
        {
            const SignalHold hold;
            raise(SIGTERM);
            folder.Put("held", "");
        }
        folder.Put("not reached", "");
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
    EXPECT_EQ(folder.Names(), QStringList({u"elsewhere"_s, u"held"_s, u"kept"_s, u"replaced"_s}));
    EXPECT_TRUE(folder.Has("elsewhere/first"));
}

TEST(SignalCleanup, AForkedProcessRemovesNothingAndIgnoredSignalsStayIgnored)
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

TEST(TemporaryFolder, IsRemovedAtTheEndBySignalsAndAfterAKillAtTheNextRun)
{
    const TempFolder folder;
    const QByteArray parent = folder.Path().toUtf8();
    const auto run = [&](int signal) {
        return StatusOfChild([&] {
            SignalCleanup::Install();
            const TemporaryFolder made(parent, "tables");
            const QByteArray name = made.Path().mid(parent.size() + 1);
            folder.Put(name + "/a.h", "x");
            folder.Put(name + "/.a.h.1-0", "x");
            if (signal != 0)
                raise(signal);
        });
    };
    EXPECT_EQ(run(0), 0);
    EXPECT_EQ(folder.Names(), QStringList());
    for (const int signal : {SIGTERM, SIGHUP}) {
        EXPECT_EQ(WTERMSIG(run(signal)), signal);
        EXPECT_EQ(folder.Names(), QStringList());
    }
    EXPECT_EQ(WTERMSIG(run(SIGKILL)), SIGKILL);
    EXPECT_EQ(folder.Names().size(), 1);
    folder.MakeFolder(".other.1000000000-0");
    folder.MakeFolder(".tables.1000000000-1"); // in use by a container, whose processes have their own numbers
    FileHandle lock;
    EXPECT_EQ(LockTemporaryFolder(parent + "/.tables.1000000000-1", lock, IfLocked::Fail), 0);
    const TemporaryFolder made(parent, "tables");
    EXPECT_EQ(made.Error(), 0);
    EXPECT_EQ(folder.Names(), QStringList({u".other.1000000000-0"_s, u".tables.1000000000-1"_s,
                                           QString::fromUtf8(made.Path().mid(parent.size() + 1))}));
    EXPECT_EQ(TemporaryFolder(parent + "/nowhere", "x").Error(), ENOENT);
}
