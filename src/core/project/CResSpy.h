// SPDX-License-Identifier: MIT
#pragma once

#include "ResNode.h"

class CDocument;

/// Observes every node of a document and sets the document's modified flag. It is connected to the document only after
/// loading, so that loading doesn't set the flag.
class CResSpy : public IEspia
{
public:
    CDocument *doc = nullptr;
    void NodeChanged(CResNode *node) override;
    void NodeRemoved(CResNode *node) override;
    void NodeAdded(CResNode *node) override;
};
