// SPDX-License-Identifier: MIT
#include "CResSpy.h"

#include "Document.h"

void CResSpy::NodeChanged(CResNode *)
{
    if (doc)
        doc->SetModifiedFlag(true);
}

void CResSpy::NodeRemoved(CResNode *node)
{
    NodeChanged(node);
}

void CResSpy::NodeAdded(CResNode *node)
{
    NodeChanged(node);
}
