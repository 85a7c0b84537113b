// SPDX-License-Identifier: MIT
#include "ReadAhead.h"

#include "HostFiles.h"
#include "SignalCleanup.h"
#include "Threads.h"

#include <QSet>

#include <exception>
#include <fcntl.h>
#include <new>
#include <utility>

namespace
{

constexpr size_t FILES_WORTH_A_THREAD = 64;
constexpr size_t MOST_THREADS = 4;

} // namespace

bool Room::Take(quint64 bytes)
{
    quint64 seen = left;
    while (seen >= bytes) {
        if (left.compare_exchange_weak(seen, seen - bytes))
            return true;
    }
    return false;
}

bool ReadAhead::IsOfUse(size_t files)
{
    return ThreadsFor(files, FILES_WORTH_A_THREAD, MOST_THREADS) > 1;
}

ReadAhead::ReadAhead(std::vector<QByteArray> hosts, const KeptFiles &kept, quint64 largest, Room &all,
                     std::deque<PieceMemory> &memory)
    : most(largest), room(all), memories(memory)
{
    QSet<QByteArray> seen;
    seen.reserve(qsizetype(hosts.size()));
    for (QByteArray &host : hosts) {
        if (seen.contains(host))
            continue;
        seen.insert(host);
        Entry &entry = entries.emplace_back();
        entry.file = kept.value(host);
        entry.host = std::move(host);
    }
    const size_t count = ThreadsFor(entries.size(), FILES_WORTH_A_THREAD, MOST_THREADS);
    while (memories.size() < count)
        memories.emplace_back();
    const SignalHold hold;
    try {
        for (size_t i = 1; i < count; ++i) {
            threads.emplace_back([this, i] {
                while (ReadOne(memories[i])) {
                }
            });
        }
    } catch (const std::exception &) {
        // Too many threads, or too little memory for one more. Those that began do all the work.
    }
}

ReadAhead::~ReadAhead()
{
    next = entries.size();
    for (std::thread &thread : threads)
        thread.join();
}

/// Reads the next file that no thread has begun. Returns false if there is none.
bool ReadAhead::ReadOne(PieceMemory &memory)
{
    const size_t number = next.fetch_add(1);
    if (number >= entries.size())
        return false;
    Entry &entry = entries[number];
    try {
        Read(entry, memory);
    } catch (const std::bad_alloc &) { // left to the pack
    }
    entry.isDone = true;
    entry.isDone.notify_one();
    return true;
}

void ReadAhead::Read(Entry &entry, PieceMemory &memory)
{
    struct stat info;
    const KeptFile kept = std::exchange(entry.file, {});
    if (!kept.content.isNull() && stat(entry.host.constData(), &info) == 0 && FileStamp(info) == kept.stamp) {
        entry.file = kept;
        return;
    }
    if (!room.Take(most)) // before the file is opened, as many others may follow
        return;
    quint64 used = 0;
    // Non-blocking, so that a pipe in place of a file doesn't hang the program.
    const FileHandle handle(open(entry.host.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (handle.IsOpen() && fstat(handle.Get(), &info) == 0 && S_ISREG(info.st_mode) && quint64(info.st_size) <= most) {
        used = quint64(info.st_size);
        char *const place = memory.Take(used);
        if (place && handle.Read(place, used) == info.st_size)
            entry.file = KeptFile(info, {place, qsizetype(used)});
    }
    room.GiveBack(most - used);
}

const KeptFile *ReadAhead::Take(const QByteArray &host)
{
    if (asked == entries.size() || entries[asked].host != host)
        return nullptr;
    const Entry &entry = entries[asked++];
    while (!entry.isDone) {
        if (!ReadOne(memories.front()))
            entry.isDone.wait(false);
    }
    return entry.file.content.isNull() ? nullptr : &entry.file;
}
