// SPDX-License-Identifier: MIT
#include "CheckTree.h"

void CheckTree::SetCheckAll(Item &item, bool checked)
{
    if (item.checked != checked) {
        item.checked = checked;
        if (onCheck)
            onCheck(item.data, checked);
    }
    for (Item &child : item.children)
        SetCheckAll(child, checked);
}

void CheckTree::SetAll(bool checked)
{
    for (Item &item : items)
        SetCheckAll(item, checked);
}
