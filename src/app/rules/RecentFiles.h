#pragma once

#include <QStringList>

class Settings;

/// The four projects that were opened last, newest first. Kept in the settings.
class RecentFiles
{
public:
    static constexpr int MOST = 4;

    void Read(const Settings &settings);
    /// Puts a path in front, and stores the list when that changes it.
    void Add(const QString &path, Settings &settings);
    /// Takes out a path that couldn't be opened.
    void Remove(const QString &path, Settings &settings);

    [[nodiscard]] const QStringList &Paths() const { return paths; }
    /// What the menu shows of the file at `index`: a number to reach it by, and its path, shortened in the middle.
    [[nodiscard]] QString Label(int index) const;

private:
    void Store(Settings &settings) const;

    QStringList paths;
};
