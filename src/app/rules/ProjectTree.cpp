// SPDX-License-Identifier: MIT
#include "ProjectTree.h"

#include "Environment.h"
#include "FolderKinds.h"
#include "IdNames.h"
#include "ResModel.h"

#include <algorithm>

QString LabelOf(const CResFolder &folder, const CResModel &document)
{
    return &folder == &document.root ? document.name : folder.title;
}

namespace
{

bool ExtendPath(CResFolder &at, const CResFolder *folder, std::vector<CResFolder *> &path)
{
    if (!IsShown(at))
        return false;
    path.push_back(&at);
    if (&at == folder)
        return true;
    for (const auto &subfolder : at.subfolders) {
        if (ExtendPath(*subfolder, folder, path))
            return true;
    }
    path.pop_back();
    return false;
}

} // namespace

std::vector<CResFolder *> PathTo(CResFolder &root, const CResFolder *folder)
{
    std::vector<CResFolder *> path;
    if (folder)
        (void)ExtendPath(root, folder, path);
    return path;
}

bool IsWithin(const CResFolder &folder, const CResFolder &tree)
{
    return &folder == &tree || std::any_of(tree.subfolders.begin(), tree.subfolders.end(),
                                           [&](const auto &subfolder) { return IsWithin(folder, *subfolder); });
}

bool GoesWith(const CResFolder &folder, const CResFolder &going)
{
    return &folder == &going ? folder.kind == KIND_LAYOUT : IsWithin(folder, going);
}

bool HasResolutions(const CResFolder &folder)
{
    return folder.kind == KIND_ROOT || folder.kind == KIND_IMAGES || folder.kind == KIND_LAYOUTS;
}

QString ClearQuestion(const QString &label)
{
    return QStringLiteral("All resources of \"%1\" will be deleted. Continue?").arg(label);
}

bool CanEditLabel(const CResFolder *folder)
{
    return folder && folder->kind == KIND_LAYOUT;
}

LabelEdit EndLabelEdit(CResModel &document, CResFolder &folder, const QString &typed)
{
    const QString trimmed = typed.trimmed();
    if (!CanEditLabel(&folder) || trimmed.isEmpty() || folder.resources.IsEmpty() || trimmed == folder.title)
        return {};
    const QString name = ToUpperSimple(trimmed);
    if (!IsValidIdName(name))
        return {{}, QStringLiteral("The ID is invalid.")};
    if (!folder.resources.First()->Rename(document.ids, document.env.WideToNarrow(name)))
        return {{}, QStringLiteral("The ID already exists, or it is reserved.")};
    folder.title = name;
    return {name, {}};
}
