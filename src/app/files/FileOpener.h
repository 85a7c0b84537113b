#pragma once

#include <QString>

#include <functional>

/// Has the desktop open files of a project, or the folders that they are in.
class FileOpener
{
public:
    FileOpener();

    /// Opens what a path of a project names; relative paths count from `projectFolder`, which becomes the current
    /// folder. What to tell the user when that fails, or nothing.
    [[nodiscard]] QString OpenFile(const QString &path, const QString &projectFolder) const;
    /// The same with the folder of the file.
    [[nodiscard]] QString OpenFolder(const QString &path, const QString &projectFolder) const;

    /// Opens a file or folder with what the desktop has for it. False when it has nothing.
    std::function<bool(const QByteArray &hostPath)> open;
};
