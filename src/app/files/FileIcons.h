// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"

#include <QHash>
#include <QIcon>

#include <optional>

/// The icons of the rows of files: one for each kind of file, and those of rows without a file.
///
/// The extension determines the kind of a file. Whether a file exists is checked once and cached until Refresh. The
/// check first looks for the file's exact name, and lists the folder only if there is no such file, because listing a
/// large folder takes long.
class FileIcons
{
public:
    // The first images.
    static constexpr int NEW_ROW = 0;
    static constexpr int MISSING = 1;
    static constexpr int NO_PATH = 2;

    /// Relative paths are relative to `projectFolder`.
    explicit FileIcons(const QString &projectFolder);

    /// The number of the image for a path as the project stores it.
    [[nodiscard]] int ImageOf(const QString &path);
    [[nodiscard]] const QIcon &Icon(int image) const { return icons[image]; }
    /// The number of images: one for each distinct icon, and the first three.
    [[nodiscard]] int Count() const { return int(icons.size()); }

    /// Returns whether the extension of a path is that of a picture.
    [[nodiscard]] bool IsPicture(const QString &path);
    /// The absolute host path of a path of the project, in bytes of the file system.
    [[nodiscard]] QByteArray HostPathOf(const QString &path);
    [[nodiscard]] bool IsThere(const QString &path);

    /// Drops the cache, because files may have been added or removed.
    void Refresh();

private:
    /// The properties of an extension.
    struct Kind
    {
        int image;
        bool isPicture;
    };
    [[nodiscard]] QString Absolute(const QString &path) const;
    [[nodiscard]] const Kind &KindOf(const QString &path);

    QString folder;
    std::optional<HostPaths> paths{std::in_place};
    QHash<QString, bool> isThere; // by path
    QList<QIcon> icons;
    QHash<QString, int> imageOfIcon;
    QHash<QString, Kind> kinds; // by extension in lower case
};
