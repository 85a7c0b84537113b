#pragma once

#include "Text.h"

class CResNode;

/// Watches the nodes of a tree. Never owned by them.
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
    virtual ~CResNode(); ///< tells the observer last of all, when the derived parts are gone
    CResNode(const CResNode &) = delete;
    CResNode &operator=(const CResNode &) = delete;

    IEspia *observer = nullptr;

    /// Sets the observer and tells it `NodeAdded`.
    void SetObserver(IEspia *newObserver);
    void NotifyChanged();
};
