#include "Session.h"

#include "HostFiles.h"
#include "Paths.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace
{

const QString COMPLAINT_START = QStringLiteral("morvanite-cli: ");

} // namespace

void Complain(const QString &text)
{
    const QByteArray line = (COMPLAINT_START + text).toUtf8() + '\n';
    (void)!write(STDERR_FILENO, line.constData(), size_t(line.size()));
}

QString AbsolutePath(const std::string &typed)
{
    const QString path = QString::fromStdString(typed);
    if (path.isEmpty())
        return path;
    return CanonicalPath(IsRelativePath(path) ? CurrentFolder() + u'/' + path : path);
}

Session::Session(const QString &debugLog, const QString &configFolder)
    : env(Environment::FindProgramDir(), configFolder),
      documents([this] { return std::make_unique<CResDoc>(env, tables, services); }), report(STDOUT_FILENO),
      handler(env, documents, report)
{
    OpenDebugLog(debugLog);
    if (env.codePageUnknown) {
        Complain(QStringLiteral("Morvanite.ini: there is no code page \"%1\" (section Text, key code_page)")
                     .arg(env.settings.String("Text", "code_page")));
        _exit(EXIT_FAILED); // with another, a save would destroy the project's texts
    }
    services.GetCommandID = [this](const QString &path) { return handler.GetCommandID(&path); };
    services.Notify = [this](const CResDoc &, const QString &text) { env.Explain(text); };
    env.explain = [this](const QString &text) {
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
    return handler.LastError() == 0 && env.FailureCount == 0 ? EXIT_FINE : EXIT_FAILED;
}

CResDoc *Session::OpenQuietly(const QString &project)
{
    QString lines;
    const auto idleOutput = std::exchange(handler.idleOutput, [&](QStringView text) { lines += text; });
    const auto explain =
        std::exchange(env.explain, [&](const QString &text) { lines += COMPLAINT_START + text + u'\n'; });
    CDocument *document = documents.OpenDocumentFile(project);
    env.explain = explain;
    handler.idleOutput = idleOutput;
    if (!document || env.ErrorCount + env.WarningCount > 0)
        StandardOutput(STDERR_FILENO).Write(lines);
    if (!document)
        Complain(project + QStringLiteral(": the project can't be opened"));
    return static_cast<CResDoc *>(document);
}
