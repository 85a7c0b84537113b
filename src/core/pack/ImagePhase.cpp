#include "ImageConversion.h"
#include "Paths.h"
#include "Phases.h"

namespace
{

using Images = std::vector<const CFileRes *>;

/// False when one of them has no ID.
bool Gather(const CResFolder *folder, bool onlyInUse, Images &images)
{
    if (!folder)
        return true;
    for (CBaseRes *res : folder->resources) {
        const auto *image = static_cast<const CFileRes *>(res);
        if (onlyInUse && !image->inUse)
            continue;
        if (!image->Id())
            return false;
        images.push_back(image);
    }
    return true;
}

/// The images of the target's resolution, those of any resolution, and the components' images that the project uses.
bool GatherImages(const CResFolder &root, qint16 scope, Images &images)
{
    if (!Gather(root.FindFolder(KIND_RESO_IMAGES, scope, 2), false, images))
        return false;
    if (scope != ANY_RESOLUTION && !Gather(root.FindFolder(KIND_RESO_IMAGES, ANY_RESOLUTION, 2), false, images))
        return false;
    const CResFolder *components = root.FindFolder(KIND_CPIMAGES, 2);
    if (!components)
        return true;
    for (const auto &component : components->subfolders) {
        if (!Gather(component.get(), true, images))
            return false;
    }
    return true;
}

/// Reads the image into the last item.
int ReadImage(PackContext &context, const PackFile &file, const QString &path, const NarrowText &stored)
{
    Environment &env = context.Env();
    if (file.size < 0) {
        PACK_LOG_BOTH(env, "\r\n[error] Get file information fail: %s", qUtf8Printable(path));
        return PACK_IMAGE_INFO;
    }
    if (file.size <= IMAGE_TOO_SMALL) {
        PACK_LOG_BOTH(env, "\r\n[error] Got invalid file attributes: %s", qUtf8Printable(path));
        return PACK_IMAGE_SIZE;
    }
    if (!file.file.IsOpen()) {
        PACK_LOG_BOTH(env, "\r\n[error] Could not open file while reading resource data. (%s)",
                      env.Shown(stored).constData());
        return FailFile(env, file, PACK_IMAGE_OPEN);
    }
    char *place = context.image.ExtendItem(quint64(file.size));
    if (!place)
        return PACK_MEMORY;
    if (!file.ReadTo(place)) {
        (void)FailFile(env, file, PACK_IMAGE_READ);
        PACK_LOG_BOTH(env, "\r\n[error] Read data fail while reading resource data. (%s)",
                      env.Shown(stored).constData());
        return PACK_IMAGE_READ;
    }
    return context.image.PadItem() ? PACK_OK : PACK_MEMORY;
}

int AddConverted(PackContext &context, const QByteArray &source, const QString &path, const NarrowText &stored)
{
    Environment &env = context.Env();
    if (!NeedImageConvert(path)) {
        PACK_LOG_BOTH(env, "\r\n[error] un-supported image type.");
        return PACK_IMAGE_TYPE;
    }
    const ConvertedImage converted(env, source, context.scratch);
    if (converted.Code() != 0)
        return PACK_NOT_THERE;
    return ReadImage(context, PackFiles::OpenMade(converted.Target()), QString::fromUtf8(converted.Target()), stored);
}

int AddImage(PackContext &context, const CFileRes &res)
{
    Environment &env = context.Env();
    const IDRecord &id = *res.Id();
    context.image.AddItem(id.value, ITEM_IMAGE);
    const QString path = ResolvePath(env.NarrowToWide(res.path), context.projectFolder);
    env.WriteOutput("\r\n%s", qUtf8Printable(path));

    const bool converts = context.info.imageconvert != 0 || (id.push && id.pushKind == PUSH_IMAGE);
    PackFile file;
    QByteArray source;
    if (converts)
        source = context.files.Find(path);
    else
        file = context.files.Open(path);
    if (converts ? source.isEmpty() : !file.exists) {
        env.WriteOutput("\r\n[error] Image file does not exist: %s", qUtf8Printable(path));
        return PACK_NOT_THERE;
    }
    return converts ? AddConverted(context, source, path, res.path) : ReadImage(context, file, path, res.path);
}

} // namespace

int ConstructImages(PackContext &context)
{
    Images images;
    if (!GatherImages(context.document.root, context.info.scope, images))
        return PACK_IMAGE_LIST;
    for (const CFileRes *image : images) {
        if (const int code = AddImage(context, *image))
            return code;
    }
    return PACK_OK;
}
