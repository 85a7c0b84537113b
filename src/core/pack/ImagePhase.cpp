// SPDX-License-Identifier: MIT
#include "Paths.h"
#include "Phases.h"
#include "PictureFile.h"

namespace
{

using Images = std::vector<const CFileRes *>;

/// Returns false if one of them has no ID.
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
    const auto fail = [&env, path, stored](ReadFailure failure) -> int {
        switch (failure) {
        case ReadFailure::Size:
            PACK_LOG_BOTH(env, "\r\n[error] Get file information fail: %s", qUtf8Printable(path));
            return PACK_IMAGE_INFO;
        case ReadFailure::TooSmall:
            PACK_LOG_BOTH(env, "\r\n[error] Got invalid file attributes: %s", qUtf8Printable(path));
            return PACK_IMAGE_SIZE;
        case ReadFailure::Open:
            PACK_LOG_BOTH(env, "\r\n[error] Could not open file while reading resource data. (%s)",
                          env.Shown(stored).constData());
            return PACK_IMAGE_OPEN;
        default:
            PACK_LOG_BOTH(env, "\r\n[error] Read data fail while reading resource data. (%s)",
                          env.Shown(stored).constData());
            return PACK_IMAGE_READ;
        }
    };
    return ReadIntoPayload(context, file, {fail, IMAGE_TOO_SMALL});
}

PictureFile::Request RequestOf(const PackContext &context, const CFileRes &res)
{
    const IDRecord &id = *res.Id();
    return {ResolvePath(context.Env().NarrowToWide(res.path), context.projectFolder),
            context.info.imageconvert != 0 || (id.push && id.pushKind == PUSH_IMAGE)};
}

int AddImage(PackContext &context, const CFileRes &res, PictureFile &picture)
{
    Environment &env = context.Env();
    const IDRecord &id = *res.Id();
    const QString &path = picture.Path();
    context.image.AddItem(id.value, ITEM_IMAGE, &id);
    env.WriteOutput("\r\n%s", qUtf8Printable(path));
    if (!picture.IsThere()) {
        env.WriteOutput("\r\n[error] Image file does not exist: %s", qUtf8Printable(path));
        context.Reason(FILE_MISSING);
        return PACK_NOT_THERE;
    }
    if (picture.Converts() && !NeedImageConvert(path)) {
        PACK_LOG_BOTH(env, "\r\n[error] un-supported image type.");
        return PACK_IMAGE_TYPE;
    }
    return picture.Add(
        [&](const PackFile &file, const QString &from) { return ReadImage(context, file, from, res.path); });
}

} // namespace

void ListImages(const PackContext &context, std::vector<QByteArray> &hosts)
{
    Images images;
    if (!GatherImages(context.document.root, context.info.scope, images))
        return;
    for (const CFileRes *image : images) {
        const PictureFile::Request request = RequestOf(context, *image);
        if (!request.converts)
            hosts.push_back(PackFiles::HostOf(request.path));
    }
}

int ConstructImages(PackContext &context)
{
    Images images;
    if (!GatherImages(context.document.root, context.info.scope, images))
        return PACK_IMAGE_LIST;
    std::vector<PictureFile::Request> requests;
    for (const CFileRes *image : images)
        requests.push_back(RequestOf(context, *image));
    PictureQueue pictures(context, std::move(requests));
    for (auto image = images.begin(); pictures.Next(); ++image) {
        if (const int code = context.After(AddImage(context, **image, pictures.Current()), context.Named(**image)))
            return code;
    }
    return PACK_OK;
}
