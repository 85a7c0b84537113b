#pragma once

#include "HostFiles.h"

#include <QHash>
#include <QIcon>

#include <optional>

/// The pictures of the rows of files: one for each kind of file, and those of the rows that have none.
///
/// The kind of a file is that of its extension. Whether it is there is asked once and kept until Refresh: of the file
/// itself, and only where nothing has its exact name of a listing of its folder, which takes long in a large one.
class FileIcons
{
public:
    // The first images.
    static constexpr int NEW_ROW = 0;
    static constexpr int MISSING = 1;
    static constexpr int NO_PATH = 2;

    /// `projectFolder` is what relative paths count from.
    explicit FileIcons(const QString &projectFolder);

    /// The image of a path as the project stores it.
    [[nodiscard]] int ImageOf(const QString &path);
    [[nodiscard]] const QIcon &Icon(int image) const { return icons[image]; }
    /// How many images there are: one for each distinct icon, and the first three.
    [[nodiscard]] int Count() const { return int(icons.size()); }

    /// Says whether an extension is that of a picture.
    [[nodiscard]] bool IsPicture(const QString &path);
    /// The host's path of a path of the project, absolute, in bytes of the file system.
    [[nodiscard]] QByteArray HostPathOf(const QString &path);
    [[nodiscard]] bool IsThere(const QString &path);

    /// Files may have come or gone.
    void Refresh();

private:
    /// What an extension tells.
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
