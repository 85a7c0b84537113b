#include "ImageConversion.h"

#include "PackCodes.h"
#include "PackFiles.h"
#include "PackLog.h"
#include "Paths.h"
#include "RunTool.h"
#include "ScratchFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// The working directory of now, back again at the end, even if it has been renamed meanwhile.
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
    const WorkingFolder folder;
    (void)SetCurrentFolder(env.ProgramDir());
    // Programs that are installed for everybody can't make it, and a converter may do without.
    if (const QString debug = env.ProgramDir() + QStringLiteral("Debug"); !PathExists(debug))
        CreateFolderOnDisk(debug);
    (void)RunTool(env, env.ProgramDir() + QStringLiteral("qrk_resgenerator.exe -f -i \"") + source +
                           QStringLiteral("\" \"") + target + u'"');

    const QByteArray made = target.toUtf8();
    if (!PackFiles::OpenMade(made).file.IsOpen()) {
        env.WriteOutput("\r\n[error] Cannot open file for read: %s", made.constData());
        return CONVERT_NO_TARGET;
    }
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

ConvertedImage::ConvertedImage(Environment &env, const QByteArray &sourceFile, ScratchFolder &scratch)
    : target(scratch.ForPicture(sourceFile)), isScratch(scratch.IsNamed())
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
