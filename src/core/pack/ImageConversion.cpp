// SPDX-License-Identifier: MIT
#include "ImageConversion.h"

#include "FilePlace.h"
#include "PackCodes.h"
#include "PackLog.h"
#include "Paths.h"
#include "ScratchFolder.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

bool NeedImageConvert(const QString &path)
{
    const QString extension = ToLowerSimple(FileExtension(path));
    return extension == u"bmp" || extension == u"gif" || extension == u"jpg" || extension == u"png";
}

QString ObstacleToConversion(const Environment &env, const QByteArray &source, const ScratchFolder &scratch)
{
    const auto failed = [](const QString &path) {
        return QStringLiteral("%1: %2").arg(path, QString::fromLocal8Bit(strerror(errno)));
    };
    if (source.contains('"'))
        return QStringLiteral("a name with a double quote can't be passed to the converter");
    const QString converter = PictureConverters::PathIn(env);
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

ImageConversion::ImageConversion(Environment &environment, const QByteArray &sourceFile, ScratchFolder &scratch,
                                 PictureConverters &pictureConverters)
    : env(environment), converters(pictureConverters), source(sourceFile), target(scratch.ForPicture(sourceFile)),
      isScratch(scratch.IsNamed())
{
}

ImageConversion::~ImageConversion()
{
    if (run && (!code || *code == 0 || isScratch)) {
        run.reset(); // ends a converter that still runs
        unlink(target.constData());
        if (!code)
            RemoveBeside(); // it is ended before its turn
    }
    if (claimed)
        converters.Release(*claimed);
}

bool ImageConversion::IsInCache()
{
    if (key.isNull() && !cached.file.IsOpen()) {
        key = converters.cache.KeyOf(source, converters.Converter());
        cached = converters.cache.Find(key);
    }
    return cached.file.IsOpen();
}

/// Two pictures of the list may be the same file, and then have the same target.
bool ImageConversion::IsTargetFree()
{
    struct stat info;
    if (isScratch || claimed)
        return isScratch;
    if (stat(source.constData(), &info) != 0)
        return false;
    claimed = {info.st_dev, info.st_ino};
    return converters.Claim(*claimed);
}

bool ImageConversion::BeginAhead()
{
    if (IsInCache())
        return true;
    if (!converters.IsOneFree())
        return false;
    // Anything that is wrong is reported when it is this picture's turn.
    if (IsTargetFree() && !source.contains('"') && RemoveOld() == 0)
        Start();
    return true;
}

int ImageConversion::Finish()
{
    env.WriteOutput("\r\nNeed image convert, convert... ");
    if (!run && !cached.file.IsOpen())
        key = QByteArray(); // the same picture may have been converted since it was sought
    code = !run && IsInCache() ? int(PACK_OK) : Convert();
    if (*code != 0)
        PACK_LOG_BOTH(env, "\r\n[error] Convert image fail.");
    else
        env.DebugTrace("\r\nConverted temp file name: %s", target.constData());
    return *code;
}

PackFile ImageConversion::Take()
{
    return cached.file.IsOpen() ? std::move(cached) : PackFiles::OpenMade(target);
}

/// Removes a file of the target's name that an earlier run left, so that an old file is never taken for a new one.
/// Returns the system's error number or 0.
int ImageConversion::RemoveOld() const
{
    struct stat info;
    if (unlink(target.constData()) == 0)
        return 0;
    const int error = errno;
    return lstat(target.constData(), &info) == 0 ? error : 0; // a read-only file system gives another error for no file
}

void ImageConversion::Start()
{
    cleanup = SignalCleanup::OfFile(target);
    run = converters.Start(source, target);
}

int ImageConversion::Convert()
{
    const QString sourceName = QString::fromUtf8(source);
    if (source.contains('"')) {
        env.WriteOutput("\r\n[error] A name with a double quote can't be handed to the converter: %s",
                        source.constData());
        return CONVERT_NO_TARGET;
    }
    if (!run) {
        if (const int error = RemoveOld()) {
            env.Explain(QStringLiteral("the picture is not converted because the old %1 can't be removed: %2")
                            .arg(QString::fromUtf8(target), QString::fromLocal8Bit(strerror(error))));
            return FailWithoutTarget();
        }
        env.FlushOutput();
        Start();
    }
    const QString wrong = run->Wait().Text();
    if (!wrong.isEmpty())
        env.Explain(QStringLiteral("%1: the converter %2 %3").arg(sourceName, PictureConverters::PathIn(env), wrong));
    if (const int failed = CheckTarget())
        return failed;
    if (converters.Ahead() == 0)
        run->RemoveLeftFile();
    RemoveBeside();
    // Neither the picture nor the converter must have changed since the key was computed. A result with a complaint is
    // made again each time, so that the complaint isn't lost.
    if (!key.isEmpty() && wrong.isEmpty() && run->WasQuiet() &&
        converters.cache.KeyOf(source, converters.Converter()) == key)
        converters.cache.Add(env, key, target);
    return PACK_OK;
}

/// Removes what the converter may have made beside the picture.
void ImageConversion::RemoveBeside() const
{
    if (isScratch || ToUpperSimple(FileExtension(QString::fromUtf8(source))) != u"PNG")
        return;
    const QByteArray title = source.left(source.lastIndexOf('.'));
    unlink((title + ".ABM").constData());
    unlink((title + ".BMPA").constData());
}

int ImageConversion::FailWithoutTarget() const
{
    env.WriteOutput("\r\n[error] Cannot open file for read: %s", target.constData());
    return CONVERT_NO_TARGET;
}

/// Looks at what the converter made, and makes it writable.
int ImageConversion::CheckTarget() const
{
    if (!PackFiles::OpenMade(target).file.IsOpen())
        return FailWithoutTarget();
    struct stat info;
    if (stat(target.constData(), &info) != 0) {
        env.WriteOutput("\r\n[error]  Convert fail, got file information fail: %s", target.constData());
        return CONVERT_TARGET_SIZE;
    }
    if (info.st_size <= IMAGE_TOO_SMALL) {
        env.WriteOutput("\r\n[error] Convert fail, got illegal file size: %s, <= 8 ", target.constData());
        return CONVERT_TARGET_SHORT;
    }
    if (stat(target.constData(), &info) != 0) {
        env.WriteOutput("\r\n[error] Got invalid file attributes: %s", target.constData());
        return CONVERT_TARGET_STATE;
    }
    if (!(info.st_mode & S_IWUSR))
        chmod(target.constData(), (info.st_mode & 07777) | S_IWUSR);
    return PACK_OK;
}
