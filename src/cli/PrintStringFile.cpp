// SPDX-License-Identifier: MIT
#include "PrintStringFile.h"

#include "FileFault.h"
#include "HostFiles.h"
#include "Session.h"
#include "TextForm.h"

int PrintStringFile(Session &session, const QString &path)
{
    QByteArray bytes;
    if (const int error = ReadFile(path, bytes)) {
        Complain(WhyNotRead(path, error));
        return EXIT_FAILED;
    }
    session.report.WriteBytes(ReadableText(bytes));
    return EXIT_FINE;
}
