// SPDX-License-Identifier: MIT
#include "ConverterRun.h"

#include "RunTool.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTimer>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr qsizetype MOST_WORDS = 500; // characters of the converter's message that are shown

QString NoPlace(int error)
{
    return QStringLiteral("has no folder for its files in %1: %2")
        .arg(QDir::tempPath(), QString::fromLocal8Bit(strerror(error)));
}

} // namespace

/// One run with its own folder. It exists until the converter has ended.
class ConverterRun::Run : public QObject
{
public:
    Run(std::shared_ptr<TemporaryFolder> parentFolder, int number, const QByteArray &kind)
        : parent(std::move(parentFolder)), folder(parent->Path() + '/' + QByteArray::number(number)),
          source(folder + "/picture." + kind), target(folder + "/picture.made")
    {
    }
    ~Run() override { QDir(QString::fromUtf8(folder)).removeRecursively(); }

    void Start(const QString &program, const QByteArray &picture, int limitMs, Then tellEnd);
    /// Ends the run without reporting a result.
    void Abandon();

private:
    [[nodiscard]] int Prepare(const QByteArray &picture) const;
    void End(const QString &problem);
    [[nodiscard]] QString ProblemOfEnd(int status, QProcess::ExitStatus how) const;

    std::shared_ptr<TemporaryFolder> parent;
    QByteArray folder, source, target;
    QString converterPath;
    QByteArray words; // what the converter writes to standard error
    bool isOutOfTime = false;
    Then then;
    QTimer limit;
    QProcess process; // the last member, so that it is destroyed first
};

void ConverterRun::Run::Start(const QString &program, const QByteArray &picture, int limitMs, Then tellEnd)
{
    then = std::move(tellEnd);
    converterPath = program;
    if (const int error = Prepare(picture))
        return End(NoPlace(error));
    process.setWorkingDirectory(QString::fromUtf8(folder));
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    connect(&process, &QProcess::readyReadStandardError, this, [this] {
        const QByteArray more = process.readAllStandardError();
        words += more.first(qMin(more.size(), MOST_WORDS - words.size()));
    });
    connect(&process, &QProcess::finished, this,
            [this](int status, QProcess::ExitStatus how) { End(ProblemOfEnd(status, how)); });
    connect(&process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            End(QFile::exists(converterPath)
                    ? QStringLiteral("%1 could not be started: %2").arg(converterPath, process.errorString())
                    : QStringLiteral("is missing: %1").arg(converterPath));
    });
    limit.setSingleShot(true);
    connect(&limit, &QTimer::timeout, this, [this] {
        isOutOfTime = true;
        process.kill();
    });
    limit.start(limitMs);
    process.start(program,
                  {QStringLiteral("-f"), QStringLiteral("-i"), QString::fromUtf8(source), QString::fromUtf8(target)});
}

/// Makes the folder's contents. Returns 0 or the system's error number.
int ConverterRun::Run::Prepare(const QByteArray &picture) const
{
    // The link has a name that can be passed to the converter, whatever bytes the picture's name has. Files that the
    // converter leaves beside the picture go to this folder. A converter may need a folder "Debug" in its working
    // directory.
    const bool isReady = mkdir(folder.constData(), S_IRWXU) == 0 &&
                         mkdir((folder + "/Debug").constData(), S_IRWXU) == 0 &&
                         symlink(picture.constData(), source.constData()) == 0;
    return isReady ? 0 : errno;
}

void ConverterRun::Run::End(const QString &problem)
{
    limit.stop();
    if (!then)
        return deleteLater();
    // Queued, so that it isn't called from within the start or a signal of the process.
    QMetaObject::invokeMethod(
        this,
        [this, problem] {
            if (const Then told = std::exchange(then, nullptr))
                told(problem.isEmpty() ? target : QByteArray(), problem);
        },
        Qt::QueuedConnection);
}

void ConverterRun::Run::Abandon()
{
    then = nullptr;
    if (process.state() == QProcess::NotRunning)
        return deleteLater();
    setParent(QCoreApplication::instance()); // in case the program ends before the process
    process.kill();
}

QString ConverterRun::Run::ProblemOfEnd(int status, QProcess::ExitStatus how) const
{
    if (isOutOfTime)
        return QStringLiteral("takes too long");
    struct stat info;
    if (how == QProcess::NormalExit && status == 0 && stat(target.constData(), &info) == 0)
        return {};
    QString said = QString::fromUtf8(words).section(u'\n', 0, 0).trimmed();
    said.remove(QString::fromUtf8(source) + QStringLiteral(": "));
    said.remove(QStringLiteral("qrk_resgenerator.exe: "));
    if (!said.isEmpty())
        return QStringLiteral("says: %1").arg(said);
    const bool isCrash = how == QProcess::CrashExit;
    const ToolEnd end{0, isCrash ? 0 : status, isCrash ? status : 0};
    return end.Text().isEmpty() ? QStringLiteral("wrote no file") : end.Text();
}

ConverterRun::ConverterRun(QString converterPath, QObject *parent)
    : QObject(parent), converter(std::move(converterPath))
{
}

ConverterRun::~ConverterRun()
{
    Stop();
}

void ConverterRun::Start(const QByteArray &source, const QByteArray &kind, Then then, int limitMs)
{
    Stop();
    if (!folder || folder->Error() != 0)
        folder = std::make_shared<TemporaryFolder>(QFile::encodeName(QDir::tempPath()), "morvanite-preview");
    if (folder->Error() != 0)
        return then({}, NoPlace(folder->Error()));
    run = new Run(folder, ++number, kind);
    run->Start(converter, source, limitMs, std::move(then));
}

void ConverterRun::Stop()
{
    if (run)
        std::exchange(run, nullptr)->Abandon();
}
