// SPDX-License-Identifier: MIT
#pragma once

#include "FileStamps.h"
#include "PieceMemory.h"

#include <QHash>

#include <atomic>
#include <deque>
#include <thread>
#include <vector>

/// Bytes that several threads may use.
class Room
{
public:
    explicit Room(quint64 bytes) : left(bytes) {}
    /// Returns false, and takes nothing, if there are fewer.
    [[nodiscard]] bool Take(quint64 bytes);

private:
    std::atomic<quint64> left;
};

/// The content of a file, and the stamp that the file had before it was read.
struct KeptFile
{
    FileStamp stamp;
    QByteArrayView content;
};
using KeptFiles = QHash<QByteArray, KeptFile>; ///< by host path

/// Reads small files in other threads, in the order in which the pack will ask for them. To open and read ten thousand
/// small files takes longer than everything else that a pack does with them, above all if the system has to fetch them
/// from the disk.
///
/// What can't be read here is left to the pack, which then says why. Files are neither searched for in other spellings
/// nor compared with outputs.
class ReadAhead
{
public:
    /// A file that was read.
    struct File
    {
        struct stat info = {}; ///< before it was read
        QByteArrayView content;
    };

    /// Starts to read the regular files with these host paths, as far as they have at most `largest` bytes and there is
    /// room. Those of `kept` are read only if they have changed. `all` must live longer than this object.
    ReadAhead(const std::vector<QByteArray> &hosts, const KeptFiles &kept, qint64 largest, Room &all);
    /// Stops early.
    ~ReadAhead();
    ReadAhead(const ReadAhead &) = delete;
    ReadAhead &operator=(const ReadAhead &) = delete;

    /// Waits until the file is read, and returns it; null if it is left to the pack. Each file of the list is returned
    /// once. The calling thread, always the same, reads others meanwhile. The content is valid as long as this object
    /// or the kept file.
    [[nodiscard]] const File *Take(const QByteArray &host);

private:
    struct Entry
    {
        QByteArray host;
        KeptFile kept; // the content is null if there is none
        File file;
        std::atomic<bool> isDone = false;
    };
    [[nodiscard]] bool ReadOne(PieceMemory &memory);
    void Read(Entry &entry, PieceMemory &memory);

    std::deque<Entry> entries;
    QHash<QByteArray, Entry *> byHost;
    const qint64 most; // bytes of a file
    Room &room;
    std::atomic<size_t> next = 0;     // the first entry that no thread has begun
    std::deque<PieceMemory> memories; // one for each thread, the first for the calling one
    std::vector<std::thread> threads;
};
