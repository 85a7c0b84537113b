// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

/// A folder in memory for the files of one process, removed by the destructor.
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

    /// Returns a program with these settings and without output.
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
