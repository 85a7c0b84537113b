// SPDX-License-Identifier: MIT
#include "OutputGuard.h"

OutputGuard::OutputGuard(const std::vector<QByteArray> &outputs)
{
    for (const QByteArray &host : outputs) {
        struct stat info;
        if (stat(host.constData(), &info) == 0 && S_ISREG(info.st_mode))
            replaced.push_back({host, info.st_dev, info.st_ino});
    }
}

void OutputGuard::Compare(const QByteArray &host, const struct stat &info)
{
    for (const Replaced &one : replaced) {
        if (one.inode == info.st_ino && one.device == info.st_dev && !HasClash()) {
            output = one.host;
            file = host;
        }
    }
}

void OutputGuard::Compare(const QByteArray &host)
{
    struct stat info;
    if (IsNeeded() && stat(host.constData(), &info) == 0)
        Compare(host, info);
}

QString OutputGuard::ClashText() const
{
    return QStringLiteral("%1 is not written because it is the same file as %2 of the project")
        .arg(QString::fromUtf8(output), QString::fromUtf8(file));
}
