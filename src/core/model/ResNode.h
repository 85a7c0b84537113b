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
    virtual ~CResNode() = default;
    CResNode(const CResNode &) = delete;
    CResNode &operator=(const CResNode &) = delete;

    /// The object that watches this node; null for none.
    [[nodiscard]] virtual IEspia *Observer() const = 0;
    // Each of these calls the function of that name of the observer.
    void NotifyChanged();
    void NotifyRemoved();
    void NotifyAdded();
};
