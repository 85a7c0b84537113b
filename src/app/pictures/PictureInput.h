// SPDX-License-Identifier: MIT
#pragma once

#include "FileStamps.h"

#include <QFile>

#include <atomic>

/// A picture's file, opened for reading by one thread. It never blocks: only regular files are opened. A read fails if
/// `isStopped` is set, or if the thread has used 10 seconds of processor time since the file was opened, so that a
/// hostile file can't keep a decoder busy for long.
class PictureInput : public QFile
{
public:
    /// `hostPath` is in bytes of the file system. `isStopped` must outlive this object.
    PictureInput(const QByteArray &hostPath, const std::atomic<bool> &isStopped);

    /// Why the file isn't open, as half a sentence; empty if it is open.
    [[nodiscard]] const QString &Problem() const { return problem; }
    /// The stamp of the file before it was read; that of a missing file if there is none.
    [[nodiscard]] const FileStamp &Stamp() const { return stamp; }
    /// The size of the file in bytes; -1 if there is no regular file.
    [[nodiscard]] qint64 Bytes() const { return bytes; }
    [[nodiscard]] bool IsOutOfTime() const { return isOutOfTime; }

protected:
    qint64 readData(char *data, qint64 most) override;

private:
    /// Stores the size and the stamp from `info`. Returns false if the file is none that can be read.
    [[nodiscard]] bool Take(const struct stat &info);

    const std::atomic<bool> &stopped;
    double start; // processor time of the thread, in seconds
    FileStamp stamp;
    QString problem;
    qint64 bytes = -1;
    bool isOutOfTime = false;
};
