#pragma once

#include "ResNode.h"

class CDocument;

/// Watches every node of a document and marks it modified. Linked to the document only once it is loaded, so that
/// reading leaves it clean.
class CResSpy : public IEspia
{
public:
    CDocument *doc = nullptr;
    void NodeChanged(CResNode *node) override;
    void NodeRemoved(CResNode *node) override;
    void NodeAdded(CResNode *node) override;
};
