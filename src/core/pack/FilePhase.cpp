#include "Phases.h"

#include <cstring>

namespace
{

constexpr quint64 FILE_PREFIX = 8; // zero bytes before a file's own, in a pack that converts images

int AddFile(PackContext &context, const CFileRes &res)
{
    Environment &env = context.Env();
    const IDRecord &id = *res.Id();
    context.image.AddItem(id.value, ITEM_FILE);
    const QByteArray shown = env.Shown(res.path);
    if (qint32(id.value) <= 0) {
        env.WriteOutput("\r\n[error] Illegal resource id value :\"%s\" with value \"%d\"",
                        env.Shown(id.name).constData(), qint32(id.value));
    }
    env.WriteOutput("\r\n%s", shown.constData());
    const PackFile file = context.files.Open(env.NarrowToWide(res.path));
    if (!file.exists) {
        env.WriteOutput("\r\n[error] File does not exist: %s", shown.constData());
        return PACK_NOT_THERE;
    }
    if (file.size < 0) {
        env.WriteOutput("\r\n[error] Get file information fail: %s", shown.constData());
        return PACK_FILE_INFO;
    }
    if (!file.file.IsOpen()) {
        env.DebugTrace("[error] Could not open file while read resource data : %s.\n", shown.constData());
        return PACK_FILE_OPEN;
    }
    const quint64 prefix = context.info.imageconvert != 0 ? FILE_PREFIX : 0;
    char *place = context.image.ExtendItem(prefix + quint64(file.size));
    if (!place)
        return PACK_MEMORY;
    std::memset(place, 0, size_t(prefix));
    if (!file.ReadTo(place + prefix))
        return PACK_FILE_READ;
    return context.image.PadItem() ? PACK_OK : PACK_MEMORY;
}

} // namespace

int ConstructFiles(PackContext &context)
{
    for (const quint32 kind : {KIND_AUDIO, KIND_VIDEO, KIND_BINARY}) {
        const CResFolder *folder = context.document.root.FindFolder(kind, 2);
        if (!folder)
            continue;
        for (CBaseRes *res : folder->resources) {
            if (!res->Id())
                return PACK_FILE_LIST;
        }
    }
    for (const quint32 kind : {KIND_AUDIO, KIND_VIDEO, KIND_BINARY}) {
        const CResFolder *folder = context.document.root.FindFolder(kind, 2);
        if (!folder)
            continue;
        for (CBaseRes *res : folder->resources) {
            if (const int code = AddFile(context, static_cast<const CFileRes &>(*res)))
                return code;
        }
    }
    return PACK_OK;
}
