// SPDX-License-Identifier: MIT
#include "ProjectFolders.h"

#include "Environment.h"
#include "ResModel.h"

namespace
{

CResFolder &Add(CResModel &model, CResFolder &parent, quint32 kind, qint32 index, const QString &title)
{
    std::unique_ptr<CResFolder> folder = model.CreateFolder(kind, index);
    folder->title = title;
    CResFolder &added = *folder;
    parent.AddFolder(std::move(folder));
    return added;
}

void AddByResolution(CResModel &model, quint32 kind, const QString &title, int ownResolution)
{
    CResFolder &all = Add(model, model.root, kind, -1, title);
    kind |= KIND_FLAG_RESO;
    for (int i = 0; i < model.tables.resolutions.Count(); ++i)
        Add(model, all, i == ownResolution ? kind : kind | KIND_FLAG_OFF, i,
            model.env.NarrowToWide(model.tables.resolutions.At(i).name));
    Add(model, all, kind, -1, QStringLiteral("Default"));
}

} // namespace

void MakeProjectFolders(CResModel &model, int ownResolution)
{
    CResFolder &files = Add(model, model.root, KIND_FILES, -1, QStringLiteral("Files"));
    Add(model, files, KIND_AUDIO, -1, QStringLiteral("Audio"));
    Add(model, files, KIND_VIDEO, -1, QStringLiteral("Video"));
    Add(model, files, KIND_BINARY, -1, QStringLiteral("Binary"));
    AddByResolution(model, KIND_IMAGES, QStringLiteral("Images"), ownResolution);
    if (model.env.settings.Int("Layout", "folders", 0) != 0)
        AddByResolution(model, KIND_LAYOUTS, QStringLiteral("Layouts"), ownResolution);
    Add(model, model.root, KIND_STRINGS, -1, QStringLiteral("Strings"));
}
