// SPDX-License-Identifier: MIT
#include "ListLines.h"
#include "Paths.h"
#include "Phases.h"
#include "PictureFile.h"
#include "V1ResourceList.h"

namespace
{

constexpr qint64 LARGEST_LIST = 64 << 20; // bytes

enum class ListKind
{
    Preview, ///< entries are numbered
    Files,   ///< entries have the files' names
};

/// Reads a list file once.
class ListReader
{
public:
    ListReader(PackContext &packContext, ListKind listKind, bool convertImages)
        : context(packContext), env(packContext.Env()), kind(listKind), convert(convertImages)
    {
    }

    int Read(const QString &list);

private:
    int AddLine(const NarrowText &line, PictureFile &picture);
    int AddEntry(const NarrowText &name, const PackFile &file, const QString &path);

    PackContext &context;
    Environment &env;
    ListKind kind;
    bool convert;
    int previews = 0;
};

int ListReader::Read(const QString &list)
{
    QByteArray bytes;
    PackFile file = context.files.Open(list);
    if (!file.IsReadable()) {
        env.DebugTrace("Could not read list file : %s.\n", qUtf8Printable(list));
        return FailFile(env, file, PACK_FILE_OPEN);
    }
    if (file.size > LARGEST_LIST) {
        env.WriteOutput("\r\n[error] The list file is too large: %s", qUtf8Printable(list));
        return PACK_MEMORY;
    }
    bytes.resize(file.size);
    if (!file.ReadTo(bytes.data()))
        return FailFile(env, file, PACK_FILE_READ);
    const QString folder = DirectoryOf(list);
    std::vector<NarrowText> lines;
    std::vector<PictureFile::Request> requests;
    for (ListLines line(bytes); line.Next();) {
        const QString path = ResolvePath(env.NarrowToWide(line.Text()), folder);
        lines.push_back(line.Text());
        requests.push_back({path, convert && NeedImageConvert(path)});
    }
    PictureQueue pictures(context, std::move(requests));
    for (auto line = lines.begin(); pictures.Next(); ++line) {
        if (const int code = context.After(AddLine(*line, pictures.Current()), env.NarrowToWide(*line)))
            return code;
    }
    return PACK_OK;
}

int ListReader::AddLine(const NarrowText &line, PictureFile &picture)
{
    const QString wide = env.NarrowToWide(line);
    const QString &path = picture.Path();
    const NarrowText name =
        kind == ListKind::Preview ? "zep.preview_" + QByteArray::number(previews) : env.WideToNarrow(FileName(wide));
    if (!picture.IsThere()) {
        env.WriteOutput("\r\nResource file %s not exist, ignore...", qUtf8Printable(path));
        if (context.trial)
            context.trial->remarks.append(
                QStringLiteral("%1, which a list names, does not exist and is left out").arg(path));
        return PACK_OK;
    }
    ++previews;
    env.WriteOutput("\r\n%s", qUtf8Printable(path));
    return picture.Add([&](const PackFile &file, const QString &from) { return AddEntry(name, file, from); });
}

int ListReader::AddEntry(const NarrowText &name, const PackFile &file, const QString &path)
{
    context.image.AddEntry(name);
    const auto fail = [&env = env, path](ReadFailure failure) -> int {
        switch (failure) {
        case ReadFailure::Size:
            env.DebugTrace("Get file info error while read resource file : %s.\n", qUtf8Printable(path));
            return PACK_FILE_INFO;
        case ReadFailure::TooSmall:
            PACK_LOG_BOTH(env, "\r\n[error] Got invalid file attributes: %s", qUtf8Printable(path));
            return PACK_IMAGE_SIZE;
        case ReadFailure::Open:
            env.DebugTrace("Could not read resource file : %s.\n", qUtf8Printable(path));
            return PACK_FILE_OPEN;
        default:
            return PACK_FILE_READ;
        }
    };
    return ReadIntoPayload(context, file, {fail, convert ? IMAGE_TOO_SMALL : -1});
}

} // namespace

int ConstructPreview(PackContext &context)
{
    if (context.info.imageconvert == 0)
        return PACK_OK;
    const QString list = context.projectFolder + QStringLiteral("/preview.lst");
    if (!PathExists(list))
        return PACK_OK;
    return ListReader(context, ListKind::Preview, true).Read(list);
}

int ConstructV1(PackContext &context)
{
    const QString list = V1ListPath(context.document.PathName());
    if (!PathExists(list))
        return PACK_OK;
    return ListReader(context, ListKind::Files, context.info.imageconvert != 0).Read(list);
}
