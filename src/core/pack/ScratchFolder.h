// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class Environment;

/// The place for a pack's own temporary files: converted pictures and the results of the layout converter.
///
/// Without a folder, a converted picture is beside its source, and the settings name the folder of the layouts. With a
/// folder, all files are there, so the sources may be read-only and two packs of a project can run at the same time.
class ScratchFolder
{
public:
    /// `folder` is an absolute host path; empty: no folder.
    explicit ScratchFolder(QByteArray folder) : path(std::move(folder)) {}

    [[nodiscard]] bool IsNamed() const { return !path.isEmpty(); }
    [[nodiscard]] const QByteArray &Path() const { return path; }

    /// Returns whether `Prepare` would succeed, and explains why not. Makes nothing.
    [[nodiscard]] bool IsUsable(const Environment &env) const;

    /// Makes the folder if it doesn't exist; its parent must exist. Returns false, and explains why, if the folder
    /// can't be written. Returns true without a folder.
    [[nodiscard]] bool Prepare(const Environment &env) const;

    /// The path for the next converted picture: "SOURCE.tmp", or a hidden numbered file in the folder. The pack may
    /// delete an old file of that name.
    [[nodiscard]] QByteArray ForPicture(const QByteArray &source);

private:
    [[nodiscard]] bool Look(const Environment &env, bool mayMake) const;

    QByteArray path;
    int pictures = 0;
};
