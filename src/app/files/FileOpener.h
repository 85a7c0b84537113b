#pragma once

#include <QString>

#include <functional>

/// Has the desktop open files and folders.
class FileOpener
{
public:
    FileOpener();

    /// Opens a file, by its absolute path in bytes of the file system. What to tell the user when that fails, or
    /// nothing.
    [[nodiscard]] QString OpenFile(const QByteArray &hostPath) const;
    [[nodiscard]] QString OpenFolder(const QByteArray &hostPath) const;

    /// Opens a file or folder with what the desktop has for it. False when it has nothing.
    std::function<bool(const QByteArray &hostPath)> open;
};
