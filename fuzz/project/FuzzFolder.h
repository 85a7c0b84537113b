// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

/// A folder in memory that holds what one process tries, gone when it ends.
class FuzzFolder
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

    /// A silent program with these settings.
    [[nodiscard]] std::unique_ptr<Environment> Program(const QByteArray &settings) const
    {
        Put("bin/Morvanite.ini", settings);
        auto env = std::make_unique<Environment>(Path("bin"));
        env->output = [](QStringView) {};
        return env;
    }

private:
    QTemporaryDir folder{QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm/fuzz-XXXXXX")
                                                                   : QStringLiteral("fuzz-XXXXXX")};
};
