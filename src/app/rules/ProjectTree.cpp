#include "ProjectTree.h"

#include "Environment.h"
#include "IdNames.h"
#include "ResModel.h"

QString LabelOf(const CResFolder &folder, const CResModel &document)
{
    return &folder == &document.root ? document.name : folder.title;
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
