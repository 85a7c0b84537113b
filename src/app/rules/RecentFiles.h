// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class Settings;

/// The four projects that were opened last, newest first. The settings store them.
class RecentFiles
{
public:
    static constexpr int MOST = 4;

    void Read(const Settings &settings);
    /// Moves or adds a path to the front. Stores the list if that changes it.
    void Add(const QString &path, Settings &settings);
    /// Removes a path that couldn't be opened.
    void Remove(const QString &path, Settings &settings);

    [[nodiscard]] const QStringList &Paths() const { return paths; }
    /// The menu text of the file at `index`: a number as its access key, and its path, shortened in the middle.
    [[nodiscard]] QString Label(int index) const;

private:
    void Store(Settings &settings) const;

    QStringList paths;
};
