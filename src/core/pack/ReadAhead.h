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
    /// Returns bytes that were taken.
    void GiveBack(quint64 bytes) { left += bytes; }

private:
    std::atomic<quint64> left;
};

/// A file as it was when it was looked at, and its content.
struct KeptFile
{
    KeptFile() = default;
    KeptFile(const struct stat &info, QByteArrayView bytes)
        : content(bytes), stamp(info), device(info.st_dev), inode(info.st_ino)
    {
    }

    /// Returns the same file with this content.
    [[nodiscard]] KeptFile With(QByteArrayView bytes) const
    {
        KeptFile file = *this;
        file.content = bytes;
        return file;
    }

    QByteArrayView content; ///< null if it wasn't read
    FileStamp stamp;
    dev_t device = 0;
    ino_t inode = 0;
};
using KeptFiles = QHash<QByteArray, KeptFile>; ///< by host path

/// Reads small files in several threads, in the order in which the pack will ask for them. The pack of ten thousand
/// small files spends half of its time on opening and reading them, and nearly all of it if the system has to fetch
/// them from the disk.
///
/// What isn't read here is left to the pack, which says why if it can't read it either. Files are neither searched for
/// in other spellings nor compared with outputs.
class ReadAhead
{
public:
    /// True if so many files are worth a second thread.
    [[nodiscard]] static bool IsOfUse(size_t files);
    /// Begins to read the regular files with these host paths, as far as they have at most `largest` bytes and there is
    /// room. Those of `kept` are read only if they have changed. The contents are in `memory`, which must live longer
    /// than this object, as `all` must.
    ReadAhead(std::vector<QByteArray> hosts, const KeptFiles &kept, quint64 largest, Room &all,
              std::deque<PieceMemory> &memory);
    /// Stops after the files that are being read.
    ~ReadAhead();
    ReadAhead(const ReadAhead &) = delete;
    ReadAhead &operator=(const ReadAhead &) = delete;

    /// Waits until the file is read, and returns it; null if it is left to the pack or isn't the next one of the list.
    /// The calling thread, always the same, reads others meanwhile.
    [[nodiscard]] const KeptFile *Take(const QByteArray &host);

private:
    struct Entry
    {
        QByteArray host;
        KeptFile file; // the kept one until it is read
        std::atomic<bool> isDone = false;
    };
    [[nodiscard]] bool ReadOne(PieceMemory &memory);
    void Read(Entry &entry, PieceMemory &memory);

    std::deque<Entry> entries; // each path once
    size_t asked = 0;          // the number of those that were taken
    const quint64 most;        // bytes of a file
    Room &room;
    std::deque<PieceMemory> &memories; // for each thread one; the first is that of the calling thread
    std::atomic<size_t> next = 0;      // the first entry that no thread has begun
    std::vector<std::thread> threads;
};
