#pragma once

#include "FileStamps.h"

#include <QFile>

#include <atomic>

/// A picture's file, opened for reading by one thread. Nothing is waited for: only regular files are opened, and a read
/// fails when `isStopped` is set or when the thread has spent 10 seconds of processor time since the opening, so that a
/// hostile file keeps no decoder busy for long.
class PictureInput : public QFile
{
public:
    /// `hostPath` is in bytes of the file system. `isStopped` must live longer.
    PictureInput(const QByteArray &hostPath, const std::atomic<bool> &isStopped);

    /// Why it isn't open, as half a sentence; empty when it is.
    [[nodiscard]] const QString &Problem() const { return problem; }
    /// Of the file before it was read; of no file where none is.
    [[nodiscard]] const FileStamp &Stamp() const { return stamp; }
    /// The file's bytes; -1 when there is no regular file.
    [[nodiscard]] qint64 Bytes() const { return bytes; }
    [[nodiscard]] bool IsOutOfTime() const { return isOutOfTime; }

protected:
    qint64 readData(char *data, qint64 most) override;

private:
    /// Takes what `info` says of the file; false when it is none that can be read.
    [[nodiscard]] bool Take(const struct stat &info);

    const std::atomic<bool> &stopped;
    double start; // processor time of the thread, in seconds
    FileStamp stamp;
    QString problem;
    qint64 bytes = -1;
    bool isOutOfTime = false;
};
