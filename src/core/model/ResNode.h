// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

class CResNode;

/// Watches the nodes of a tree. The nodes don't own it.
class IEspia
{
public:
    virtual void NodeChanged(CResNode *node) = 0; ///< its content changed
    virtual void NodeRemoved(CResNode *node) = 0; ///< it is being destroyed
    virtual void NodeAdded(CResNode *node) = 0;   ///< it has just been given this observer

protected:
    ~IEspia() = default;
};

/// Anything in the resource tree: a folder or a resource.
class CResNode
{
public:
    CResNode() = default;
    virtual ~CResNode(); ///< notifies the observer, after the derived parts have been destroyed
    CResNode(const CResNode &) = delete;
    CResNode &operator=(const CResNode &) = delete;

    IEspia *observer = nullptr;

    /// Sets the observer and calls its `NodeAdded`.
    void SetObserver(IEspia *newObserver);
    void NotifyChanged();
};
