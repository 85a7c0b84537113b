// SPDX-License-Identifier: MIT
#include "StandardOutput.h"

#include "Session.h"

#include <QRegularExpression>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <unistd.h>

namespace
{

constexpr qsizetype HOLD_AT_MOST = 64 * 1024; // bytes
constexpr qint64 HOLD_NO_LONGER = 50;         // milliseconds

qint64 Now()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000;
}

/// Returns whether a line of a report is about an error or a warning: "Error 3: ...", "Warning: 5 more ...",
/// "### error 110 ###", and the lines of the pack's phases.
bool IsProblem(QByteArrayView line)
{
    static const QRegularExpression PROBLEM(
        QStringLiteral("\\b(Error|Warning)( \\d+)?:|### error |\\[(warning|error)\\]|not exist, ignore"));
    return PROBLEM.match(QString::fromUtf8(line)).hasMatch();
}

} // namespace

StandardOutput::~StandardOutput()
{
    Flush();
}

bool StandardOutput::Open()
{
    open = true;
    return true;
}

void StandardOutput::Write(QStringView text)
{
    if (!hasOnlyProblems)
        return WriteBytes(text.toUtf8());
    begun.append(text.toUtf8());
    qsizetype from = 0;
    for (qsizetype end; (end = begun.indexOf('\n', from)) >= 0; from = end + 1) {
        const QByteArrayView line = QByteArrayView(begun).sliced(from, end + 1 - from);
        if (IsProblem(line))
            WriteBytes(line);
    }
    begun.remove(0, from);
}

void StandardOutput::WriteBytes(QByteArrayView bytes)
{
    if (broken)
        return;
    const qint64 now = Now();
    if (held.isEmpty())
        heldSince = now;
    if (bytes.size() >= HOLD_AT_MOST) { // needn't be copied first
        Flush();
        return WriteOut(bytes);
    }
    held.append(bytes);
    if (held.size() >= HOLD_AT_MOST || now - heldSince >= HOLD_NO_LONGER)
        Flush();
}

void StandardOutput::Flush()
{
    WriteOut(held);
    held.clear();
}

void StandardOutput::WriteOut(QByteArrayView bytes)
{
    qsizetype done = 0;
    while (!broken && done < bytes.size()) {
        const ssize_t put = write(fd, bytes.data() + done, size_t(bytes.size() - done));
        if (put < 0 && errno == EINTR)
            continue;
        if (put < 0) {
            if (errno != EPIPE && fd != STDERR_FILENO)
                Complain(QStringLiteral("cannot write the output: ") + QString::fromLocal8Bit(strerror(errno)));
            broken = true; // the command still completes its work on files
            return;
        }
        done += put;
    }
}

void StandardOutput::Close()
{
    Flush();
    open = false;
}
