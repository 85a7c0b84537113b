#include "Session.h"

#include "HostFiles.h"
#include "Paths.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

void Complain(const QString &text)
{
    const QByteArray line = "morvanite-cli: " + text.toUtf8() + '\n';
    (void)!write(STDERR_FILENO, line.constData(), size_t(line.size()));
}

QString AbsolutePath(const std::string &typed)
{
    const QString path = QString::fromStdString(typed);
    return path.isEmpty() ? path : CanonicalPath(ResolvePath(path, CurrentFolder()));
}

Session::Session(const QString &debugLog)
    : documents([this] { return std::make_unique<CResDoc>(env, tables, services); }), report(STDOUT_FILENO),
      handler(env, documents, report)
{
    OpenDebugLog(debugLog);
    services.GetCommandID = [this](const QString &path) { return handler.GetCommandID(&path); };
    services.Explain = [this](const QString &text) {
        report.Flush();
        Complain(text);
    };
}

void Session::OpenDebugLog(const QString &debugLog)
{
    if (debugLog.isEmpty())
        return;
    const auto log = std::make_shared<FileHandle>(
        debugLog == u"-" ? dup(STDERR_FILENO)
                         : open(debugLog.toUtf8().constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666));
    if (!log->IsOpen()) {
        Complain(
            QStringLiteral("cannot open the debug log %1: %2").arg(debugLog, QString::fromLocal8Bit(strerror(errno))));
        _exit(EXIT_WRONG_USE);
    }
    env.trace = [log](QStringView text) {
        QByteArray line = text.toUtf8();
        if (!line.endsWith('\n'))
            line += '\n';
        (void)log->WriteAll(line.constData(), size_t(line.size()));
    };
}

int Session::LastStatus() const
{
    return handler.LastError() == 0 ? EXIT_FINE : EXIT_FAILED;
}

CResDoc *Session::OpenQuietly(const QString &project, StandardOutput &complainTo)
{
    const auto explain = std::exchange(services.Explain, nullptr);
    CDocument *document = documents.OpenDocumentFile(project);
    services.Explain = explain;
    if (document)
        return static_cast<CResDoc *>(document);
    handler.idleOutput = [&](QStringView text) { complainTo.Write(text); };
    documents.OpenDocumentFile(project); // once more, for what it has to say
    handler.idleOutput = nullptr;
    complainTo.Flush();
    Complain(project + QStringLiteral(": the project can't be opened"));
    return nullptr;
}
