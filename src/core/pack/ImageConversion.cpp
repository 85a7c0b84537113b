// SPDX-License-Identifier: MIT
#include "ImageConversion.h"

#include "FilePlace.h"
#include "PackCodes.h"
#include "PackFiles.h"
#include "PackLog.h"
#include "Paths.h"
#include "RunTool.h"
#include "ScratchFolder.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// Restores the current working directory at the end, even if it was renamed in between.
class WorkingFolder
{
public:
    WorkingFolder() : folder(open(".", O_PATH | O_DIRECTORY | O_CLOEXEC)) {}
    ~WorkingFolder()
    {
        if (folder.IsOpen())
            (void)!fchdir(folder.Get());
    }
    WorkingFolder(const WorkingFolder &) = delete;
    WorkingFolder &operator=(const WorkingFolder &) = delete;

private:
    FileHandle folder;
};

int FailWithoutTarget(Environment &env, const QByteArray &target)
{
    env.WriteOutput("\r\n[error] Cannot open file for read: %s", target.constData());
    return CONVERT_NO_TARGET;
}

/// Removes a file of the target's name that an earlier run left, so that an old file is never taken for a new one.
bool RemoveOld(Environment &env, const QByteArray &target)
{
    struct stat info;
    if (unlink(target.constData()) == 0)
        return true;
    const int error = errno;
    if (lstat(target.constData(), &info) != 0)
        return true; // there is none; a read-only file system gives another error for that
    env.Explain(QStringLiteral("the picture is not converted because the old %1 can't be removed: %2")
                    .arg(QString::fromUtf8(target), QString::fromLocal8Bit(strerror(error))));
    return false;
}

QString ConverterOf(const Environment &env)
{
    return env.ProgramDir() + QStringLiteral("qrk_resgenerator.exe");
}

void RunConverter(Environment &env, const QString &source, const QString &target)
{
    const QString converter = ConverterOf(env);
    ToolEnd end;
    (void)RunTool(env, {converter, QStringLiteral("-f"), QStringLiteral("-i"), source, target}, &end);
    if (const QString wrong = end.Text(); !wrong.isEmpty())
        env.Explain(QStringLiteral("%1: the converter %2 %3").arg(source, converter, wrong));
}

} // namespace

bool NeedImageConvert(const QString &path)
{
    const QString extension = ToLowerSimple(FileExtension(path));
    return extension == u"bmp" || extension == u"gif" || extension == u"jpg" || extension == u"png";
}

int ConvertImage(Environment &env, const QString &source, const QString &target, BesideSource besideSource)
{
    if (source.contains(u'"')) {
        env.WriteOutput("\r\n[error] A name with a double quote can't be handed to the converter: %s",
                        qUtf8Printable(source));
        return CONVERT_NO_TARGET;
    }
    const QByteArray made = target.toUtf8();
    if (!RemoveOld(env, made))
        return FailWithoutTarget(env, made);
    const WorkingFolder folder;
    (void)SetCurrentFolder(env.ProgramDir());
    // A program installed for all users can't make this folder; a converter may not need it.
    if (const QString debug = env.ProgramDir() + QStringLiteral("Debug"); !PathExists(debug))
        CreateFolderOnDisk(debug);
    RunConverter(env, source, target);

    if (!PackFiles::OpenMade(made).file.IsOpen())
        return FailWithoutTarget(env, made);
    struct stat info;
    if (stat(made.constData(), &info) != 0) {
        env.WriteOutput("\r\n[error]  Convert fail, got file information fail: %s", made.constData());
        return CONVERT_TARGET_SIZE;
    }
    if (info.st_size <= IMAGE_TOO_SMALL) {
        env.WriteOutput("\r\n[error] Convert fail, got illegal file size: %s, <= 8 ", made.constData());
        return CONVERT_TARGET_SHORT;
    }
    if (stat(made.constData(), &info) != 0) {
        env.WriteOutput("\r\n[error] Got invalid file attributes: %s", made.constData());
        return CONVERT_TARGET_STATE;
    }
    if (!(info.st_mode & S_IWUSR))
        chmod(made.constData(), (info.st_mode & 07777) | S_IWUSR);
    DeleteFileOnDisk(env.ProgramDir() + QStringLiteral("temp_image"));
    if (besideSource == BesideSource::Delete && ToUpperSimple(FileExtension(source)) == u"PNG") {
        const QByteArray title = source.left(source.lastIndexOf(u'.')).toUtf8();
        unlink((title + ".ABM").constData());
        unlink((title + ".BMPA").constData());
    }
    return PACK_OK;
}

QString ObstacleToConversion(const Environment &env, const QByteArray &source, const ScratchFolder &scratch)
{
    const auto failed = [](const QString &path) {
        return QStringLiteral("%1: %2").arg(path, QString::fromLocal8Bit(strerror(errno)));
    };
    if (source.contains('"'))
        return QStringLiteral("a name with a double quote can't be passed to the converter");
    const QString converter = ConverterOf(env);
    if (access(HostPath(converter).constData(), X_OK) != 0)
        return QStringLiteral("the converter %1").arg(failed(converter));
    if (scratch.IsNamed())
        return {};
    const QByteArray folder = FolderOf(source);
    if (access(folder.constData(), W_OK | X_OK) != 0)
        return QStringLiteral("the converted picture can't be written to %1; --temp names another folder")
            .arg(failed(QString::fromUtf8(folder)));
    return {};
}

ConvertedImage::ConvertedImage(Environment &env, const QByteArray &sourceFile, ScratchFolder &scratch)
    : target(scratch.ForPicture(sourceFile)), isScratch(scratch.IsNamed()), cleanup(SignalCleanup::OfFile(target))
{
    env.WriteOutput("\r\nNeed image convert, convert... ");
    code = ConvertImage(env, QString::fromUtf8(sourceFile), QString::fromUtf8(target),
                        isScratch ? BesideSource::Leave : BesideSource::Delete);
    if (code != 0)
        PACK_LOG_BOTH(env, "\r\n[error] Convert image fail.");
    else
        env.DebugTrace("\r\nConverted temp file name: %s", target.constData());
}

ConvertedImage::~ConvertedImage()
{
    if (code == 0 || isScratch)
        unlink(target.constData());
}
