// SPDX-License-Identifier: MIT
#include "ResModel.h"

#include "Environment.h"
#include "FileClassifier.h"
#include "IdNames.h"
#include "Paths.h"

CResModel::CResModel(Environment &environment, ProcessTables &processTables)
    : env(environment), tables(processTables), defaultIds(environment, ids)
{
}

CResModel::~CResModel() = default;

QString CResModel::FilePatterns(const char *type) const
{
    return FileClassifier::Patterns(env.settings, type);
}

std::unique_ptr<CResFolder> CResModel::CreateFolder(quint32 kind, qint32 index)
{
    constexpr quint32 OBSERVED = 0x50058; // images, layouts and component images of any sort
    auto folder = std::make_unique<CResFolder>(kind, index);
    if ((kind & OBSERVED) || kind == KIND_STRINGS)
        folder->SetObserver(ids.observer);
    return folder;
}

std::unique_ptr<CFileRes> CResModel::CreateFileRes(const NarrowText &idName, qint16 scope)
{
    return CreateFileRes(ids.Allocate(idName, scope));
}

std::unique_ptr<CFileRes> CResModel::CreateFileRes(IDRecord *record)
{
    if (!record)
        return nullptr;
    auto res = std::make_unique<CFileRes>();
    res->SetId(record);
    res->NotifyAdded();
    record->Release();
    return res;
}

std::unique_ptr<CStringRes> CResModel::CreateStringRes(const NarrowText &idName)
{
    IDRecord *record = ids.Allocate(idName, ANY_RESOLUTION);
    if (!record)
        return nullptr;
    auto res = CreateStringRes(record);
    record->Release();
    return res;
}

std::unique_ptr<CStringRes> CResModel::CreateStringRes(IDRecord *resId)
{
    if (!resId)
        return nullptr;
    std::unique_ptr<CStringRes> res(new (stringMemory) CStringRes);
    res->SetId(resId);
    res->NotifyAdded();
    return res;
}

QString CResModel::DefaultFileId(const CResFolder &folder, const QString &path) const
{
    const quint32 kind =
        folder.kind == KIND_FILES ? ClassifyFile(KIND_FILES, path) : folder.kind & ~quint32(KIND_FLAG_RESO);
    const char *key = "binary_id";
    const char *fallback = "ID_FILE_%s";
    if (kind == KIND_IMAGES) {
        key = "image_id";
        fallback = "ID_IMAGE_%s";
    } else if (kind == KIND_AUDIO) {
        key = "audio_id";
        fallback = "ID_AUDIO_%s";
    } else if (kind == KIND_VIDEO) {
        key = "video_id";
        fallback = "ID_VIDEO_%s";
    }
    QString word = FileTitle(path);
    if (!MakeIdSafe(word)) {
        word = FileExtension(path);
        if (word.isEmpty())
            word = QStringLiteral("NONAME");
    }
    QString base = env.settings.String("DefaultID", key, fallback);
    base.replace(QStringLiteral("%s"), word);
    return ToUpperSimple(base.left(MAX_ID_NAME));
}

std::unique_ptr<CFileRes> CResModel::CreateDefaultFileRes(const CResFolder &folder, const QString &path)
{
    return CreateFileRes(defaultIds.Allocate(DefaultFileId(folder, path), qint16(folder.index)));
}

bool CResModel::IsIdInUse(const QString &idName)
{
    return ids.unique && ids.FindName(env.WideToNarrow(idName));
}

CResFolder *CResModel::UseFolder(quint32 kind, qint32 index)
{
    if (CResFolder *inUse = root.FindFolder(kind, index, 2))
        return inUse;
    CResFolder *folder = root.FindFolder(kind | KIND_FLAG_OFF, index, 2);
    if (folder)
        PutIntoUse(*folder);
    return folder;
}

void CResModel::PutIntoUse(CResFolder &folder)
{
    folder.kind &= ~quint32(KIND_FLAG_OFF);
    folder.NotifyChanged();
}

void CResModel::TakeOutOfUse(CResFolder &folder)
{
    if (folder.kind & KIND_FLAG_OFF)
        return;
    folder.kind |= KIND_FLAG_OFF;
    folder.NotifyChanged();
    ClearFolder(folder);
}

quint32 CResModel::ClassifyFile(quint32 mask, const QString &path) const
{
    return FileClassifier(env.settings).Classify(mask, path);
}

PushKind CResModel::PushKindOf(quint32 folderKind)
{
    switch (folderKind & ~quint32(KIND_FLAG_OFF)) {
    case KIND_AUDIO:
        return PUSH_AUDIO;
    case KIND_VIDEO:
        return PUSH_VIDEO;
    case KIND_BINARY:
        return PUSH_BINARY;
    case KIND_RESO_IMAGES:
    case KIND_COMPONENT:
        return PUSH_IMAGE;
    case KIND_STRINGS:
    case KIND_LANGUAGE:
        return PUSH_STRING;
    default:
        return PUSH_NONE;
    }
}

ITreeListener::ITreeListener(CResModel &model)
    : registration(model.treeGoes, [this](const CResFolder &folder) { TreeGoes(folder); })
{
}

namespace
{

/// Returns the folder of `tree` that has `folder` as a subfolder; null when there is none.
CResFolder *ParentOf(CResFolder &tree, const CResFolder &folder)
{
    for (const auto &subfolder : tree.subfolders) {
        if (subfolder.get() == &folder)
            return &tree;
        if (CResFolder *found = ParentOf(*subfolder, folder))
            return found;
    }
    return nullptr;
}

} // namespace

void CResModel::ClearFolder(CResFolder &folder)
{
    treeGoes.Tell(folder);
    folder.Clear();
}

bool CResModel::DeleteFolder(CResFolder &folder)
{
    CResFolder *const parent = ParentOf(root, folder);
    if (!parent)
        return false;
    treeGoes.Tell(folder);
    return parent->DeleteFolder(&folder);
}

void CResModel::ClearByKind(CResFolder &folder)
{
    switch (folder.kind) {
    case KIND_AUDIO:
    case KIND_VIDEO:
    case KIND_BINARY:
    case KIND_RESO_IMAGES:
    case KIND_RESO_LAYOUTS:
    case KIND_LANGUAGE:
        ClearFolder(folder);
        break;
    case KIND_COMPONENT:
        for (CBaseRes *res : folder.resources) {
            static_cast<CFileRes *>(res)->inUse = false;
            res->NotifyRemoved();
        }
        break;
    default:
        for (const auto &subfolder : folder.subfolders)
            ClearByKind(*subfolder);
    }
}
