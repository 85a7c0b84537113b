// SPDX-License-Identifier: MIT
#pragma once

#include "PackFiles.h"

/// A folder with converted pictures, which packs share (docs/cli.md, "The cache of converted pictures").
///
/// A file of it has the name of its key, 32 hexadecimal digits: the hash of what the result of a conversion depends on.
/// It has the converted picture, and then ENTRY_END bytes: a mark and the hash of the picture. Files are written under
/// another name and renamed, and never changed after that, so any number of processes can use the folder at the same
/// time. A damaged file counts as one that isn't there. The time of a file is that of its last use.
///
/// Nothing here makes a pack fail: what can't be read is converted again, and what can't be written is explained once.
class PictureCache
{
public:
    static constexpr int ENTRY_END = 24; ///< bytes

    /// `folder` is an absolute host path, which is made at the first write; empty: there is no cache, and all keys are
    /// empty. At most `limit` bytes stay in the folder.
    PictureCache(QByteArray folder, quint64 limit) : path(std::move(folder)), mostBytes(limit) {}

    [[nodiscard]] bool IsOn() const { return !path.isEmpty(); }

    /// Returns the key for a picture and the converter that will convert it. The picture is read, and the converter if
    /// it has changed since it was read last. Returns an empty key if one of them can't be read.
    [[nodiscard]] QByteArray KeyOf(const QByteArray &source, const QByteArray &converter);

    /// Opens a converted picture, whose `size` is that of the picture alone. Not open if there is none.
    [[nodiscard]] PackFile Find(const QByteArray &key) const;

    /// Puts the file `converted` into the folder.
    void Add(const Environment &env, const QByteArray &key, const QByteArray &converted);

    /// Deletes the files that were used longest ago until the others have at most `limit` bytes. Does nothing if no
    /// file was added.
    void Shrink();

    /// What is in the folder.
    struct Content
    {
        qint64 files = 0;
        qint64 bytes = 0;
        int error = 0; ///< the system's error number if it can't be listed
    };
    [[nodiscard]] Content Count() const;
    /// Deletes all files of the cache, and only those. Returns what was deleted; `error` is that of the first file that
    /// couldn't be deleted.
    Content Clear();

private:
    struct Entry;
    [[nodiscard]] std::vector<Entry> Entries(int &error) const;
    [[nodiscard]] int Write(const QByteArray &key, const QByteArray &converted);

    QByteArray path;
    quint64 mostBytes;
    QByteArray converterHash;
    struct stat hashed = {}; // the converter when it was read
    bool hasAdded = false;
    bool hasExplained = false;
};
