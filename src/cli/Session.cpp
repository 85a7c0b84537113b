// SPDX-License-Identifier: MIT
#include "Session.h"

#include "HostFiles.h"
#include "ProjectSave.h"
#include "TypedPath.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

QString AbsolutePath(const std::string &typed)
{
    return QString::fromStdU16String(AbsoluteTypedPath(typed));
}

Session::Session(const QString &debugLogName, const QString &configFolder, bool verbose)
    : env(Environment::FindProgramDir(), configFolder),
      documents([this] { return std::make_unique<CResDoc>(env, tables, services); }), report(STDOUT_FILENO),
      handler(env, documents, report), isVerbose(verbose)
{
    OpenDebugLog(debugLogName);
    if (isVerbose)
        TellFilesOfProgram();
    if (env.codePageUnknown) {
        Complain(QStringLiteral("Morvanite.ini: there is no code page \"%1\" (section Text, key code_page)")
                     .arg(env.settings.String("Text", "code_page")));
        _exit(FinalStatus(EXIT_FAILED)); // with another code page, a save would destroy the project's texts
    }
    services.GetCommandID = [this](const QString &path) { return handler.GetCommandID(&path); };
    services.Notify = [this](const CResDoc &, const QString &text) { env.Explain(text); };
    env.explain = [this](const QString &text) {
        report.Flush();
        Complain(text);
    };
}

void Session::OpenDebugLog(const QString &name)
{
    const bool isErrors = isVerbose || name == u"-";
    const bool isFile = !name.isEmpty() && name != u"-";
    if (!isErrors && !isFile)
        return;
    if (isFile)
        debugLog = FileHandle(open(name.toUtf8().constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666));
    if (isFile && !debugLog.IsOpen()) {
        Complain(QStringLiteral("cannot open the debug log %1: %2").arg(name, QString::fromLocal8Bit(strerror(errno))));
        _exit(FinalStatus(EXIT_WRONG_USE));
    }
    env.trace = [this, isErrors](QStringView text) {
        QByteArray line = text.toUtf8();
        if (!line.endsWith('\n'))
            line += '\n';
        if (isErrors)
            (void)!write(STDERR_FILENO, line.constData(), size_t(line.size()));
        if (debugLog.IsOpen())
            (void)debugLog.WriteAll(line.constData(), size_t(line.size()));
    };
}

void Session::TellFilesOfProgram() const
{
    Complain(QStringLiteral("the folder of the program is %1").arg(env.ProgramDir()));
    for (const QString &file : env.SettingsFiles())
        Complain((PathExists(file) ? QStringLiteral("uses %1") : QStringLiteral("would use %1, which doesn't exist"))
                     .arg(file));
}

int Session::LastStatus() const
{
    return handler.LastError() == 0 && env.FailureCount == 0 ? EXIT_FINE : EXIT_FAILED;
}

int Session::StatusAfter(int status)
{
    hasFailures = hasFailures || env.FailureCount > 0;
    return hasFailures ? int(EXIT_FAILED) : status;
}

bool Session::LockProject(const QString &project)
{
    return lock.Take(env, SavedProjectOf(env, project));
}

CResDoc *Session::OpenQuietly(const QString &project)
{
    QByteArray lines;
    lines.reserve(16 << 20); // it can have 100,000 warnings; memory that isn't written to costs nothing
    QStringList explained;
    const auto idleOutput = std::exchange(handler.idleOutput, [&](QStringView text) { lines += text.toUtf8(); });
    const auto explain = std::exchange(env.explain, [&](const QString &text) { explained += text; });
    CDocument *document = documents.OpenDocumentFile(project);
    env.explain = explain;
    handler.idleOutput = idleOutput;
    const bool hasFailed = StatusAfter(EXIT_FINE) != EXIT_FINE;
    if (isVerbose || !document || hasFailed || env.ErrorCount + env.WarningCount > 0)
        StandardOutput(STDERR_FILENO).WriteBytes(lines);
    for (const QString &text : explained)
        Complain(text);
    if (!document)
        Complain(project + QStringLiteral(": the project can't be opened"));
    return static_cast<CResDoc *>(document);
}
