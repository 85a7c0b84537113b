#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

/// A folder in memory that holds what one process tries, gone when it ends.
class ScratchFolder
{
public:
    [[nodiscard]] QString Path(const char *name) const { return folder.filePath(QString::fromUtf8(name)); }

    void Put(const char *name, const QByteArray &bytes) const
    {
        QDir().mkpath(QFileInfo(Path(name)).path());
        QFile file(Path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            std::abort();
    }

private:
    QTemporaryDir folder{QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm/fuzz-XXXXXX")
                                                                   : QStringLiteral("fuzz-XXXXXX")};
};
