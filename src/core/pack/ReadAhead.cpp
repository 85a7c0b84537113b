// SPDX-License-Identifier: MIT
#include "ReadAhead.h"

#include "HostFiles.h"
#include "SignalCleanup.h"
#include "Threads.h"

#include <fcntl.h>
#include <system_error>

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

ReadAhead::ReadAhead(const std::vector<QByteArray> &hosts, const KeptFiles &kept, qint64 largest, Room &all)
    : most(largest), room(all)
{
    byHost.reserve(qsizetype(hosts.size()));
    for (const QByteArray &host : hosts) {
        Entry *&entry = byHost[host];
        if (entry)
            continue;
        entry = &entries.emplace_back();
        entry->host = host;
        entry->kept = kept.value(host);
    }
    const size_t count = ThreadsFor(entries.size(), FILES_WORTH_A_THREAD, MOST_THREADS);
    memories.resize(count);
    const SignalHold hold;
    try {
        for (size_t i = 1; i < count; ++i) {
            threads.emplace_back([this, i] {
                while (ReadOne(memories[i])) {
                }
            });
        }
    } catch (const std::system_error &) { // the user has too many threads; fewer do the same
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
    Read(entry, memory);
    entry.isDone = true;
    entry.isDone.notify_one();
    return true;
}

void ReadAhead::Read(Entry &entry, PieceMemory &memory)
{
    struct stat &info = entry.file.info;
    const KeptFile &kept = entry.kept;
    if (!kept.content.isNull() && stat(entry.host.constData(), &info) == 0 && FileStamp(info) == kept.stamp) {
        entry.file.content = kept.content;
        return;
    }
    // Non-blocking, so that a pipe in place of a file doesn't hang the program.
    const FileHandle handle(open(entry.host.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!handle.IsOpen() || fstat(handle.Get(), &info) != 0 || !S_ISREG(info.st_mode) || info.st_size > most ||
        !room.Take(quint64(info.st_size)))
        return;
    char *const place = memory.Take(quint64(info.st_size));
    if (place && handle.Read(place, size_t(info.st_size)) == info.st_size)
        entry.file.content = {place, qsizetype(info.st_size)};
}

const ReadAhead::File *ReadAhead::Take(const QByteArray &host)
{
    Entry *const entry = byHost.take(host);
    if (!entry)
        return nullptr;
    while (!entry->isDone) {
        if (!ReadOne(memories.front()))
            entry->isDone.wait(false);
    }
    return entry->file.content.isNull() ? nullptr : &entry->file;
}
