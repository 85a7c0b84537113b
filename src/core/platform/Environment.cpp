// SPDX-License-Identifier: MIT
#include "Environment.h"

#include "FileFault.h"
#include "HostFiles.h"
#include "Paths.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <iterator>
#include <string_view>
#include <unistd.h>

namespace
{

constexpr qsizetype LOG_LIMIT = 511; // the capacity of a buffer of 512 without its terminator
constexpr qsizetype LOG_KEEP = 508;

QString WithSeparator(const QString &folder)
{
    return folder.endsWith(u'/') ? folder : folder + u'/';
}

QString UserSettingsFile(const QString &configFolder)
{
    const QByteArray config = qgetenv("XDG_CONFIG_HOME");
    const QString folder = !configFolder.isEmpty()  ? configFolder
                           : config.startsWith('/') ? QString::fromUtf8(config)
                                                    : QString::fromUtf8(qgetenv("HOME")) + QStringLiteral("/.config");
    return folder + QStringLiteral("/morvanite/Morvanite.ini");
}

/// Returns `start`, the formatted text and `end` in one string. Makes it in one step, because a report can have 100,000
/// lines.
QString Formatted(std::string_view start, const char *format, va_list arguments, std::string_view end)
{
    char small[1024];
    va_list again;
    va_copy(again, arguments);
    const int size = std::vsnprintf(small + start.size(), sizeof small - start.size(), format, arguments);
    const size_t total = start.size() + size_t(std::max(size, 0)) + end.size();
    QByteArray large;
    char *text = small;
    if (total >= sizeof small) {
        large.resize(qsizetype(total) + 1);
        text = large.data();
        std::vsnprintf(text + start.size(), size_t(size) + 1, format, again);
    }
    va_end(again);
    std::copy(start.begin(), start.end(), text);
    std::copy(end.begin(), end.end(), text + total - end.size());
    return QString::fromUtf8(text, qsizetype(total));
}

QString Formatted(const char *format, va_list arguments)
{
    return Formatted({}, format, arguments, {});
}

void Log(const Environment::Sink &sink, QString text)
{
    if (text.size() > LOG_LIMIT) {
        text.truncate(text.at(LOG_KEEP - 1).isHighSurrogate() ? LOG_KEEP - 1 : LOG_KEEP);
        text += QStringLiteral("...");
    }
    sink(text);
}

/// Returns the beginning of the line with the number `count`.
std::string_view StartOf(const Finding &finding, LineStart start, int count, char (&buffer)[32])
{
    if (start == LineStart::Fatal)
        return "Fatal error: ";
    const bool isError = finding.severity == Severity::Error && start == LineStart::BySeverity;
    const std::string_view word = isError ? "Error " : "Warning ";
    char *const number = std::copy(word.begin(), word.end(), buffer);
    char *end = std::to_chars(number, std::end(buffer), count).ptr; // snprintf would take a quarter of a line's time
    *end++ = ':';
    *end++ = ' ';
    return {buffer, size_t(end - buffer)};
}

QString WithoutStop(const QString &sentence)
{
    return sentence.endsWith(u'.') ? sentence.chopped(1) : sentence;
}

} // namespace

QString Environment::FindProgramDir()
{
    const QByteArray chosen = qgetenv("MORVANITE_PROGRAM_DIR");
    if (!chosen.isEmpty())
        return ResolvePath(QString::fromUtf8(chosen), CurrentFolder()); // the current folder changes with each project
    char path[4096];
    const ssize_t size = readlink("/proc/self/exe", path, sizeof path);
    const QString program = QString::fromUtf8(path, size > 0 ? size : 0);
    return program.left(program.lastIndexOf(u'/') + 1);
}

Environment::Environment(const QString &programFolder, const QString &configFolder)
    : own(std::make_unique<Shared>()), shared(*own),
      settings(WithSeparator(programFolder) + QStringLiteral("Morvanite.ini"), UserSettingsFile(configFolder)),
      programDir(WithSeparator(programFolder)), ownConfigFolder(configFolder)
{
    SelectCodePage();
}

Environment::Environment(Environment &process)
    : shared(process.shared), settings(process.settings), programDir(process.programDir),
      ownConfigFolder(process.ownConfigFolder)
{
    SelectCodePage();
}

void Environment::SelectCodePage()
{
    const QByteArray name = settings.String("Text", "code_page").toUtf8();
    codePageUnknown = !codePage.Select(name.isEmpty() ? QByteArray("UTF-8") : name);
}

bool Environment::UseProjectSettings(const QString &folder)
{
    const QString file = ResolvePath(QStringLiteral("morvanite.ini"), folder);
    QStringList ignored;
    if (const int error = settings.UseProject(file, ignored); error != 0) {
        Explain(WhyNotRead(file, error)); // without its settings the project would lose what they give it
        return false;
    }
    for (const QString &key : ignored)
        Explain(QStringLiteral("%1: %2 is ignored because a project can't have this setting").arg(file, key));
    SelectCodePage();
    if (codePageUnknown) {
        Explain(QStringLiteral("%1: there is no code page \"%2\" (section Text, key code_page)")
                    .arg(file, settings.String("Text", "code_page")));
    }
    return !codePageUnknown;
}

Environment::~Environment() = default;

QStringList Environment::SettingsFiles() const
{
    QStringList files{programDir + QStringLiteral("Morvanite.ini"), UserSettingsFile(ownConfigFolder), LanguageFile()};
    if (!settings.ProjectFile().isEmpty())
        files.append(settings.ProjectFile());
    return files;
}

QString Environment::LanguageFile() const
{
    return programDir + QStringLiteral("tuvik.ini");
}

QByteArray Environment::Shown(const NarrowText &text) const
{
    return codePage.IsUtf8() ? text : NarrowToWide(text).toUtf8();
}

void Environment::WriteOutput(const char *format, ...)
{
    if (!output)
        return;
    va_list arguments;
    va_start(arguments, format);
    Log(output, Formatted(format, arguments));
    va_end(arguments);
}

void Environment::DebugTrace(const char *format, ...)
{
    if (!trace)
        return;
    va_list arguments;
    va_start(arguments, format);
    Log(trace, Formatted(format, arguments));
    va_end(arguments);
}

void Environment::ResetCounts()
{
    ErrorCount = WarningCount = DroppedCount = FailureCount = 0;
    shared.warningLimit.End();
}

void Environment::Report(const Finding &finding, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    ReportLine(finding, LineStart::BySeverity, format, arguments);
    va_end(arguments);
}

void Environment::Report(const Finding &finding, LineStart start, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    ReportLine(finding, start, format, arguments);
    va_end(arguments);
}

void Environment::ReportLine(const Finding &finding, LineStart lineStart, const char *format, va_list arguments)
{
    const bool isWarning = finding.severity == Severity::Warning;
    const int count = isWarning ? ++WarningCount : ++ErrorCount;
    WarningLimit::Kind *const kind = isWarning ? shared.warningLimit.Count(finding.code) : nullptr;
    const int rest = kind ? kind->Rest() : 0;
    if (output && rest == 0) {
        char start[32];
        va_list again;
        va_copy(again, arguments);
        Log(output, Formatted(StartOf(finding, lineStart, count, start), format, again, "\r\n"));
        va_end(again);
    }
    const bool isWorded = !found.IsEmpty() && finding.text.isEmpty();
    const QString sentence = isWorded || rest == 1 ? Formatted(format, arguments) : QString();
    if (rest == 1)
        kind->firstRest = sentence;
    if (!isWorded)
        return found.Tell(finding);
    Finding worded = finding;
    worded.text = WithoutStop(sentence);
    found.Tell(worded);
}

void Environment::EndReport(const QString &name, const char *operation)
{
    for (const WarningLimit::Kind &kind : shared.warningLimit.Kinds()) {
        if (output && kind.Rest() > 0)
            Log(output, QStringLiteral("Warning: %1 more warnings like this one are not listed: %2\r\n")
                            .arg(QString::number(kind.Rest()), kind.firstRest));
    }
    shared.warningLimit.End();
    WriteOutput("[%s] %s - %d error(s), %d warning(s)\r\n", qUtf8Printable(name), operation, ErrorCount, WarningCount);
}

void Environment::Explain(const QString &text) const
{
    if (explain)
        explain(text);
}

void Environment::ExplainFailure(const QString &text)
{
    ++FailureCount;
    Explain(text);
}

void Environment::RefreshSettings()
{
    settings.Refresh();
    if (languages)
        languages->Refresh();
}

void Environment::FlushOutput()
{
    if (flushOutput)
        flushOutput();
}

int Environment::ReplaceFile(QStringView path, QByteArrayView bytes, IfRefused ifRefused)
{
    return ReplaceFile(path, OnePiece(bytes), ifRefused);
}

int Environment::ReplaceFile(QStringView path, const FilePieces &content, IfRefused ifRefused)
{
    if (transaction)
        return transaction->Write(path, content, ifRefused);
    const int error = WriteFileAtomically(path, content);
    if (error != 0)
        ExplainFailure(WhyNotWritten(path.toString(), error));
    return error;
}

const Profile &Environment::Languages() const
{
    if (!languages)
        languages = std::make_unique<ProfileFile>(LanguageFile());
    return languages->Content();
}

QStringList Environment::ReadLanguageTable() const
{
    return Languages().Section(u"Language");
}

QStringList Environment::ReadLanguageCodes() const
{
    return Languages().Section(u"Code");
}

int Environment::LanguageNumber(const QString &name) const
{
    return Languages().Int(u"Language", name.trimmed(), -1);
}
