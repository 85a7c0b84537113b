// SPDX-License-Identifier: MIT
#include "OutputPump.h"

#include "SignalCleanup.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{

constexpr qsizetype LONGEST_LINE = 64 * 1024; // bytes; a longer line is split
constexpr int LAST_WAIT_MS = 200;

mode_t TypeOf(int descriptor)
{
    struct stat info;
    return fstat(descriptor, &info) == 0 ? info.st_mode & S_IFMT : 0;
}

/// Opens the same file with flags of its own. Not open if the system refuses, for example for another user's terminal.
FileHandle OpenAgain(int descriptor)
{
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(descriptor);
    return FileHandle(open(path.constData(), O_WRONLY | O_NONBLOCK | O_APPEND | O_NOCTTY | O_CLOEXEC));
}

} // namespace

bool OutputPump::CanWait(int descriptor)
{
    const mode_t type = TypeOf(descriptor);
    return type == S_IFIFO || type == S_IFCHR || type == S_IFSOCK;
}

OutputPump::OutputPump(FileHandle file) : target(std::move(file)), isSocket(TypeOf(target.Get()) == S_IFSOCK)
{
    if (FileHandle again = OpenAgain(target.Get()); again.IsOpen()) {
        target = std::move(again);
        isOwn = true;
    }
    int ends[2];
    ending = FileHandle(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!ending.IsOpen() || pipe2(ends, O_CLOEXEC) != 0)
        return;
    output = FileHandle(ends[0]);
    input = FileHandle(ends[1]);
    fcntl(output.Get(), F_SETFL, O_NONBLOCK);
    const SignalHold hold;
    thread = std::thread([this] { Run(); });
}

OutputPump::~OutputPump()
{
    if (!thread.joinable())
        return;
    eventfd_write(ending.Get(), 1);
    thread.join();
}

void OutputPump::Run()
{
    pollfd events[] = {{output.Get(), POLLIN, 0}, {-1, POLLOUT, 0}, {ending.Get(), POLLIN, 0}};
    while (events[2].revents == 0) {
        events[1].fd = kept.isEmpty() ? -1 : target.Get();
        if (poll(events, 3, -1) < 0)
            continue;
        if (events[0].revents != 0)
            Take();
        if (events[1].revents != 0 && !Give())
            target = FileHandle(); // its reader is gone
    }
    Take();
    Keep(line);
    TellDropped();
    events[1].fd = target.Get();
    while (!kept.isEmpty() && poll(&events[1], 1, LAST_WAIT_MS) > 0 && Give()) {
    }
}

/// Reads what was written and splits it into lines.
void OutputPump::Take()
{
    char bytes[4096];
    ssize_t size;
    while ((size = read(output.Get(), bytes, sizeof bytes)) > 0) {
        line.append(bytes, size);
        qsizetype begin = 0;
        for (qsizetype end; (end = line.indexOf('\n', begin)) >= 0; begin = end + 1)
            Keep(line.mid(begin, end + 1 - begin));
        line.remove(0, begin);
        if (line.size() >= LONGEST_LINE)
            Keep(std::exchange(line, {}));
        if (!kept.isEmpty() && isOwn && !Give())
            target = FileHandle();
    }
}

void OutputPump::Keep(const QByteArray &whole)
{
    // After a gap, wait until there is room for more than one line; otherwise every other line would be missing.
    const qsizetype most = dropped > 0 ? KEPT_BYTES / 2 : KEPT_BYTES;
    if (!target.IsOpen() || whole.isEmpty())
        return;
    if (kept.size() + whole.size() > most) {
        ++dropped;
        return;
    }
    TellDropped();
    kept += whole;
}

void OutputPump::TellDropped()
{
    if (dropped > 0)
        kept +=
            "morvanite-cli: " + QByteArray::number(dropped) + " lines are missing here: they were not read in time\n";
    dropped = 0;
}

/// Writes as much as there is room for. Returns false if nothing can be written any more.
bool OutputPump::Give()
{
    while (!kept.isEmpty()) {
        // A pipe with room takes this many bytes without waiting, even if it has the flags of other programs.
        const size_t size = size_t(std::min(kept.size(), qsizetype(PIPE_BUF)));
        const ssize_t put = isSocket ? send(target.Get(), kept.constData(), size, MSG_DONTWAIT | MSG_NOSIGNAL)
                                     : write(target.Get(), kept.constData(), size);
        if (put < 0) {
            const bool isFull = errno == EAGAIN || errno == EINTR;
            if (!isFull)
                kept.clear();
            return isFull;
        }
        kept.remove(0, put);
        if (!isOwn && !isSocket)
            break;
    }
    return true;
}
