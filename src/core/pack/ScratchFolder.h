#pragma once

#include <QByteArray>

class Environment;

/// Where a pack keeps the files that it makes for itself: converted pictures and the results of the layout converter.
///
/// Without a folder of its own a picture is beside its source, and the settings name the folder of the layouts. With
/// one all of it goes there, so the sources may be read-only, and two packs of a project can run at the same time.
class ScratchFolder
{
public:
    /// `folder` is an absolute host path; empty: there is none.
    explicit ScratchFolder(QByteArray folder) : path(std::move(folder)) {}

    [[nodiscard]] bool IsNamed() const { return !path.isEmpty(); }
    [[nodiscard]] const QByteArray &Path() const { return path; }

    /// Makes the folder if it isn't there; its parent must be. False when there is no folder that can be written, and
    /// then it has said why. True without a folder.
    [[nodiscard]] bool Prepare(const Environment &env) const;

    /// The path for the next converted picture: "SOURCE.tmp", or a hidden numbered file of the folder. An old file of
    /// that name is the pack's to delete.
    [[nodiscard]] QByteArray ForPicture(const QByteArray &source);

private:
    QByteArray path;
    int pictures = 0;
};
