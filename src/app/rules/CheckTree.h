// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <vector>

class CResFolder;

/// The items of a tree of check boxes. It has no widget: a dialog shows it, and a helper fills and reads it.
class CheckTree
{
public:
    struct Item
    {
        QString text;
        CResFolder *data = nullptr; ///< for the helper's use; not owned
        bool checked = false;
        std::vector<Item> children;
    };

    /// The top items. Their addresses don't change once a helper has filled the tree.
    std::vector<Item> items;
    /// Called with an item's data when its check changes. Empty while a helper fills the tree.
    std::function<void(CResFolder *data, bool checked)> onCheck;

    /// Checks or unchecks an item and all its descendants, each item before its children. A change by the user does the
    /// same.
    void SetCheckAll(Item &item, bool checked);
    /// Checks or unchecks every item, from the first to the last.
    void SetAll(bool checked);
};

/// The logic behind a tree of check boxes: fills the tree, counts what would change, asks the user, and applies the
/// choice. The caller of the dialog owns it.
class ITreeFltrHelper
{
public:
    /// Adds the items and sets the checks.
    virtual void InitTree(CheckTree &tree) = 0;
    /// Called when the user presses OK. Returns true to close the dialog.
    virtual bool Apply(CheckTree &tree) = 0;
    virtual void OnCheck(CResFolder *itemData, bool checked) = 0;

protected:
    ~ITreeFltrHelper() = default;
};
