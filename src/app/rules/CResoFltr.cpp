// SPDX-License-Identifier: MIT
#include "CResoFltr.h"

#include "ResModel.h"
#include "ViewBoxes.h"

namespace
{

bool IsInUse(const CResFolder &folder)
{
    return (folder.kind & KIND_FLAG_OFF) == 0;
}

bool IsOfResolution(const CResFolder &folder)
{
    return (folder.kind & KIND_FLAG_RESO) != 0;
}

CheckTree::Item ItemOf(CResFolder &folder)
{
    return {folder.title, &folder, IsInUse(folder), {}};
}

} // namespace

CResoFltr::CResoFltr(CResModel &document, CResFolder *firstFolder, CResFolder *secondFolder, IViewBoxes &viewBoxes)
    : doc(document), first(firstFolder), second(secondFolder), boxes(viewBoxes)
{
}

void CResoFltr::InitTree(CheckTree &tree)
{
    tree.items.clear();
    added = deleted = 0;
    for (CResFolder *const top : {first, second}) {
        if (!top)
            continue;
        CheckTree::Item item = ItemOf(*top);
        for (const auto &folder : top->subfolders) {
            const bool isDefault = IsOfResolution(*folder) && folder->index < 0;
            if (!isDefault)
                item.children.push_back(ItemOf(*folder));
        }
        tree.items.push_back(std::move(item));
    }
}

void CResoFltr::OnCheck(CResFolder *folder, bool checked)
{
    if (!folder || !IsOfResolution(*folder))
        return;
    if (IsInUse(*folder))
        deleted += checked ? -1 : 1;
    else
        added += checked ? 1 : -1;
}

bool CResoFltr::Ask() const
{
    const QString counts = QStringLiteral("%1 resolution(s) will be added, and %2 will be deleted.");
    const QString question = counts.arg(added).arg(deleted);
    if (deleted < 1)
        return boxes.AskOkCancel(question);
    return boxes.AskYesNo(
        question + QStringLiteral("\r\nAll resources of the deleted resolution(s) will be deleted too. Continue?"));
}

bool CResoFltr::Apply(CheckTree &tree)
{
    if (added + deleted < 1)
        return true;
    if (!Ask())
        return false;
    for (const CheckTree::Item &item : tree.items)
        ApplyItem(item);
    return true;
}

void CResoFltr::ApplyItem(const CheckTree::Item &item)
{
    if (!item.data || !IsOfResolution(*item.data)) {
        for (const CheckTree::Item &child : item.children)
            ApplyItem(child);
    } else if (!item.checked) {
        doc.TakeOutOfUse(*item.data);
    } else if (!IsInUse(*item.data)) {
        CResModel::PutIntoUse(*item.data);
    }
}
