// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

/// Opens files and folders with the desktop's programs.
class FileOpener
{
public:
    FileOpener();

    /// Opens a file by its absolute path in bytes of the file system. Returns an error message for the user, or an
    /// empty text.
    [[nodiscard]] QString OpenFile(const QByteArray &hostPath) const;
    [[nodiscard]] QString OpenFolder(const QByteArray &hostPath) const;

    /// Opens a file or folder with the desktop's program for it. Returns false if there is none.
    std::function<bool(const QByteArray &hostPath)> open;
};
