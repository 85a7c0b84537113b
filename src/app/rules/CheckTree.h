#pragma once

#include <QString>

#include <functional>
#include <vector>

class CResFolder;

/// The items of a tree of check boxes. Without a widget: a dialog shows it, a helper fills and reads it.
class CheckTree
{
public:
    struct Item
    {
        QString text;
        CResFolder *data = nullptr; ///< the helper's; not owned
        bool checked = false;
        std::vector<Item> children;
    };

    /// The top items. They stay where they are in memory once a helper has filled the tree.
    std::vector<Item> items;
    /// Told when an item's check changes, with its data; empty while a helper fills the tree.
    std::function<void(CResFolder *data, bool checked)> onCheck;

    /// Gives an item and all its descendants that state, each before its children. This is also what a change by the
    /// user does.
    void SetCheckAll(Item &item, bool checked);
    /// Every item, from the first to the last.
    void SetAll(bool checked);
};

/// What a tree of check boxes is about: fills it, counts what would change, asks and applies it. Belongs to the caller
/// of the dialog.
class ITreeFltrHelper
{
public:
    /// Adds the items and sets the checks.
    virtual void InitTree(CheckTree &tree) = 0;
    /// OK was pressed. True closes the dialog.
    virtual bool Apply(CheckTree &tree) = 0;
    virtual void OnCheck(CResFolder *itemData, bool checked) = 0;

protected:
    ~ITreeFltrHelper() = default;
};
