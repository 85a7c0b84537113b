// SPDX-License-Identifier: MIT
#include "ResNode.h"

void CResNode::NotifyChanged()
{
    if (IEspia *const observer = Observer())
        observer->NodeChanged(this);
}

void CResNode::NotifyRemoved()
{
    if (IEspia *const observer = Observer())
        observer->NodeRemoved(this);
}

void CResNode::NotifyAdded()
{
    if (IEspia *const observer = Observer())
        observer->NodeAdded(this);
}
