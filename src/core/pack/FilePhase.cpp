// SPDX-License-Identifier: MIT
#include "Phases.h"

namespace
{

constexpr char FILE_PREFIX[8] = {}; // before a file's own bytes, in a pack that converts images

/// The host path of a resource whose path is `shown`.
QByteArray HostOf(QByteArray shown)
{
    return shown.replace('\\', '/');
}

int ReadFileResource(PackContext &context, const QByteArray &host, const QByteArray &shown)
{
    Environment &env = context.Env();
    const PackFile file = context.files.OpenHost(host);
    if (!file.exists) {
        env.WriteOutput("\r\n[error] File does not exist: %s", shown.constData());
        context.Reason(FILE_MISSING);
        return PACK_NOT_THERE;
    }
    const auto fail = [&env, shown](ReadFailure failure) -> int {
        if (failure == ReadFailure::Size) {
            env.WriteOutput("\r\n[error] Get file information fail: %s", shown.constData());
            return PACK_FILE_INFO;
        }
        if (failure == ReadFailure::Content)
            return PACK_FILE_READ;
        env.DebugTrace("[error] Could not open file while read resource data : %s.\n", shown.constData());
        return PACK_FILE_OPEN;
    };
    return ReadIntoPayload(context, file, {fail});
}

int AddFile(PackContext &context, const CFileRes &res)
{
    Environment &env = context.Env();
    PackImage &image = context.image;
    const IDRecord &id = *res.Id();
    image.AddItem(id.value, ITEM_FILE, &id);
    const QByteArray shown = env.Shown(res.path);
    if (qint32(id.value) <= 0) {
        env.WriteOutput("\r\n[error] Illegal resource id value :\"%s\" with value \"%d\"",
                        env.Shown(id.name).constData(), qint32(id.value));
    }
    env.WriteOutput("\r\n%s", shown.constData());
    if (context.info.imageconvert != 0) {
        if (!image.Fits(sizeof FILE_PREFIX))
            return PACK_MEMORY;
        image.AddBytes({FILE_PREFIX, sizeof FILE_PREFIX});
    }
    return ReadFileResource(context, HostOf(shown), shown);
}

/// Gathers the file resources in their order. Returns false if one of them has no ID.
bool Gather(const CResFolder &root, std::vector<const CFileRes *> &resources)
{
    for (const quint32 kind : {KIND_AUDIO, KIND_VIDEO, KIND_BINARY}) {
        const CResFolder *folder = root.FindFolder(kind, 2);
        if (!folder)
            continue;
        for (CBaseRes *res : folder->resources) {
            if (!res->Id())
                return false;
            resources.push_back(static_cast<const CFileRes *>(res));
        }
    }
    return true;
}

} // namespace

void ListFiles(const PackContext &context, std::vector<QByteArray> &hosts)
{
    std::vector<const CFileRes *> resources;
    if (!Gather(context.document.root, resources))
        return;
    for (const CFileRes *res : resources)
        hosts.push_back(HostOf(context.Env().Shown(res->path)));
}

int ConstructFiles(PackContext &context)
{
    std::vector<const CFileRes *> resources;
    if (!Gather(context.document.root, resources))
        return PACK_FILE_LIST;
    for (const CFileRes *res : resources) {
        const int code = AddFile(context, *res);
        if (code != 0 && context.After(code, context.Named(*res)) != 0)
            return code;
    }
    return PACK_OK;
}
