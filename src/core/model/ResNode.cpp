// SPDX-License-Identifier: MIT
#include "ResNode.h"

CResNode::~CResNode()
{
    if (observer)
        observer->NodeRemoved(this);
}

void CResNode::SetObserver(IEspia *newObserver)
{
    observer = newObserver;
    if (observer)
        observer->NodeAdded(this);
}

void CResNode::NotifyChanged()
{
    if (observer)
        observer->NodeChanged(this);
}
