#include "Environment.h"

#include "FileFault.h"
#include "HostFiles.h"
#include "Paths.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <unistd.h>

namespace
{

constexpr qsizetype LOG_LIMIT = 511; // what a buffer of 512 holds beside its terminator
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

void Log(const Environment::Sink &sink, const char *format, va_list arguments)
{
    char small[1024];
    va_list again;
    va_copy(again, arguments);
    const int size = std::vsnprintf(small, sizeof small, format, arguments);
    QString text;
    if (size >= 0 && size_t(size) < sizeof small) {
        text = QString::fromUtf8(small, size);
    } else if (size > 0) {
        QByteArray large(size + 1, Qt::Uninitialized);
        std::vsnprintf(large.data(), size_t(large.size()), format, again);
        text = QString::fromUtf8(large.constData(), size);
    }
    va_end(again);
    if (text.size() > LOG_LIMIT) {
        text.truncate(text.at(LOG_KEEP - 1).isHighSurrogate() ? LOG_KEEP - 1 : LOG_KEEP);
        text += QStringLiteral("...");
    }
    sink(text);
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
    Profile unused;
    if (const int error = Profile::Read(file, unused); error != 0 && error != ENOENT) {
        Explain(WhyNotRead(file, error)); // without them the project would lose what they give it
        return false;
    }
    for (const QString &key : settings.UseProject(file))
        Explain(QStringLiteral("%1: %2 is no setting of a project and is ignored").arg(file, key));
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
    Log(output, format, arguments);
    va_end(arguments);
}

void Environment::DebugTrace(const char *format, ...)
{
    if (!trace)
        return;
    va_list arguments;
    va_start(arguments, format);
    Log(trace, format, arguments);
    va_end(arguments);
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
    if (transaction)
        return transaction->Write(path, bytes, ifRefused);
    const int error = WriteFileAtomically(path, bytes);
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

int Environment::LanguageNumber(const QString &name) const
{
    return Languages().Int(u"Language", name.trimmed(), -1);
}
