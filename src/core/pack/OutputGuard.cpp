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

void OutputGuard::Compare(const QByteArray &host, dev_t device, ino_t inode)
{
    for (const Replaced &one : replaced) {
        if (one.inode == inode && one.device == device && !HasClash()) {
            output = one.host;
            file = host;
        }
    }
}

void OutputGuard::Compare(const QByteArray &host)
{
    struct stat info;
    if (IsNeeded() && stat(host.constData(), &info) == 0)
        Compare(host, info.st_dev, info.st_ino);
}

QString OutputGuard::ClashText() const
{
    return QStringLiteral("%1 is not written because it is the same file as %2 of the project")
        .arg(QString::fromUtf8(output), QString::fromUtf8(file));
}
